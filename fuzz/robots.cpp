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
    // Bad bytes side by side may count together as one bad character.
    if (fuzz::isUtf8(text) && fuzz::isUtf8(link)) {
      require(alone.find(link + text + link).has_value(), "a text excludes a link that holds it");
    }
  }
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string link(fuzz::takeLine(rest));
  checkExclusions(crawler::robotsRules(rest), link);
}
