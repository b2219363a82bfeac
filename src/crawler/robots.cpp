#include "crawler/robots.h"

namespace crawler {

std::string robotsAddress(std::string_view siteBaseURL) {
  return std::string(siteBaseURL) + "/robots.txt";
}

std::vector<std::string> robotsRules(std::string_view text) {
  constexpr std::string_view kDisallow = "Disallow: ";
  std::vector<std::string> rules;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    if (line.starts_with(kDisallow)) rules.emplace_back(line.substr(kDisallow.size()));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
  }
  return rules;
}

}  // namespace crawler
