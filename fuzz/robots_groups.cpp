// What a robots.txt asks: the first line is the user agent, the second a path, the rest is the file.
#include "crawler/robots_groups.h"

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz_target.h"

namespace {

using fuzz::require;

std::string encoded(std::string_view octets) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const char c : octets) {
    const auto octet = static_cast<unsigned char>(c);
    text.append({'%', kDigits[octet >> 4], kDigits[octet & 15]});
  }
  return text;
}

}  // namespace

void fuzz::tryInput(std::string_view input) {
  std::string_view rest = input;
  const std::string userAgent(takeLine(rest));
  const std::string path = "/" + std::string(takeLine(rest));
  const crawler::RobotsTxt robots = crawler::parseRobotsTxt(rest, userAgent);
  const std::vector<crawler::RobotsRule>& rules = robots.group.rules;
  const crawler::RobotsVerdict verdict = crawler::robotsVerdict(robots.group, path);

  std::string other(rest);
  std::replace(other.begin(), other.end(), '\n', '\r');
  const crawler::RobotsTxt again = crawler::parseRobotsTxt(other + "\r\nnoise\r\nSitemap:", userAgent);
  require(again.group.rules.size() == rules.size() && again.sitemaps == robots.sitemaps,
          "any line end is one");
  if (robots.group.crawlDelay) {
    require(robots.group.crawlDelay->count() >= 0 && *robots.group.crawlDelay <= std::chrono::hours(24),
            "a delay is a bounded time");
  }
  for (const std::string& sitemap : robots.sitemaps) require(isUtf8(sitemap), "a sitemap's address is text");
  for (const crawler::RobotsRule& rule : rules) require(isUtf8(rule.text), "a rule can be shown");
  if (path.find('%') == std::string::npos) {
    const crawler::RobotsVerdict same = crawler::robotsVerdict(robots.group, encoded(path));
    require(same.rule == verdict.rule && same.isAllowed == verdict.isAllowed,
            "an encoded octet is that octet");
  }
  require(!verdict.rule || *verdict.rule < rules.size(), "a rule of the file decides");
  require(verdict.isAllowed == (!verdict.rule || rules[*verdict.rule].allows), "its kind is the answer");
}
