// The rules of a robots.txt, and what keeps links out. Input: a link, then the robots.txt.
#include "crawler/robots.h"

#include <optional>
#include <string>
#include <vector>

#include "crawler/exclusions.h"
#include "fuzz_target.h"
#include "platform/text.h"

namespace {

using fuzz::require;

/// The rules found otherwise: by their mark at the start of lines, without a look at lines that lack it.
std::vector<std::string> rulesByMark(std::string_view text) {
  const std::string mark = "\nDisallow: ";
  const std::string whole = "\n" + std::string(text) + "\n";
  std::vector<std::string> rules;
  for (std::size_t at = whole.find(mark); at != std::string::npos; at = whole.find(mark, at)) {
    at += mark.size();
    rules.push_back(whole.substr(at, whole.find('\n', at) - at));
  }
  return rules;
}

std::string withAsciiCaseSwapped(std::string text) {
  for (char& c : text) {
    if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) c = static_cast<char>(c ^ 0x20);
  }
  return text;
}

/// Each text by itself, without the one pass over the link.
std::optional<std::size_t> firstInLink(const std::vector<std::string>& texts, const std::string& link) {
  const std::string folded = platform::foldCase(link);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (!texts[i].empty() && folded.find(platform::foldCase(texts[i])) != std::string::npos) return i;
  }
  return {};
}

void checkExclusions(const std::vector<std::string>& texts, const std::string& link) {
  const crawler::Exclusions exclusions(texts);
  require(exclusions.find(link) == firstInLink(texts, link), "the first text that stands in a link is found");
  for (const std::string& text : texts) {
    if (text.empty()) continue;
    require(!exclusions.empty(), "a text makes the list count");
    const crawler::Exclusions alone({text});
    require(alone.find(text).has_value(), "a text excludes itself");
    require(crawler::Exclusions({withAsciiCaseSwapped(text)}).find(link) == alone.find(link),
            "the case of a text does not matter");
    // Bad bytes side by side may count together as one bad character.
    if (fuzz::isUtf8(text) && fuzz::isUtf8(link)) {
      require(alone.find(link + text + link).has_value(), "a text excludes a link that holds it");
    }
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = fuzz::textOf(data, size);
  const std::string link(fuzz::takeLine(rest));
  const std::vector<std::string> rules = crawler::robotsRules(rest);
  require(rules == rulesByMark(rest), "rules are what follows the mark at a line's start");
  checkExclusions(rules, link);
  return 0;
}
