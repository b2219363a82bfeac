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
  require(crawler::Exclusions(texts).find(link) == firstInLink(texts, link),
          "the first text that stands in a link is found");
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string link(fuzz::takeLine(rest));
  checkExclusions(crawler::robotsRules(rest), link);
}
