// What a robots.txt asks: the first line is the user agent, the second a path, the rest is the file.
#include "crawler/robots_groups.h"

#include <algorithm>
#include <cstdint>
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

/// A rule's path or an address, by octets; the wildcard is none.
constexpr int kAnything = -1;
std::vector<int> octetsOf(std::string_view text, bool hasWildcards) {
  constexpr std::string_view kDigits = "0123456789abcdef0123456789ABCDEF";
  std::vector<int> octets;
  for (std::size_t i = 0; i < text.size(); ++i) {
    octets.push_back(hasWildcards && text[i] == '*' ? kAnything : static_cast<unsigned char>(text[i]));
    if (text[i] != '%' || i + 2 >= text.size()) continue;
    const std::size_t high = kDigits.find(text[i + 1]);
    const std::size_t low = kDigits.find(text[i + 2]);
    if (high == std::string_view::npos || low == std::string_view::npos) continue;
    octets.back() = static_cast<int>(high % 16 * 16 + low % 16);
    i += 2;
  }
  return octets;
}

struct Rule {
  std::vector<int> octets;
  bool reachesEnd;

  explicit Rule(std::string_view line) : reachesEnd(line.ends_with('$')) {
    line.remove_prefix(std::min(line.find(':') + 1, line.size()));
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    octets = octetsOf(line.substr(0, line.size() - (reachesEnd ? 1 : 0)), true);
  }

  std::size_t weight() const { return octets.size() + (reachesEnd ? 1 : 0); }

  /// Every place of the path at which the rule can stand is followed at once.
  bool matches(const std::vector<int>& path) const {
    std::vector<bool> places(path.size() + 1);
    places[0] = true;
    for (const int octet : octets) {
      std::vector<bool> next(places.size());
      for (std::size_t at = 0; at < places.size(); ++at) {
        if (octet == kAnything) next[at] = places[at] || (at > 0 && next[at - 1]);
        if (octet != kAnything && at > 0) next[at] = places[at - 1] && path[at - 1] == octet;
      }
      places = std::move(next);
    }
    return reachesEnd ? places.back() : std::find(places.begin(), places.end(), true) != places.end();
  }
};

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

  // Bytes that are no text are replaced in what is shown, so the rules cannot be read from it.
  if (!isUtf8(rest) || rest.size() >= crawler::kMaxRobotsBytes) return;
  const std::vector<int> octets = octetsOf(path, false);
  const std::vector<int> robotsPath = octetsOf("/robots.txt", false);
  std::optional<std::size_t> decides;
  for (std::size_t i = 0; i < rules.size() && octets != robotsPath; ++i) {
    const Rule rule(rules[i].text);
    const std::size_t before = i == 0 ? SIZE_MAX : Rule(rules[i - 1].text).weight();
    require(before > rule.weight() || (before == rule.weight() && (rules[i - 1].allows || !rules[i].allows)),
            "what says most is first, and what allows among equals");
    if (!decides && rule.matches(octets)) decides = i;
  }
  require(verdict.rule == decides, "the first rule that matches decides");
  require(verdict.isAllowed == (!decides || rules[*decides].allows), "its kind is the answer");
}
