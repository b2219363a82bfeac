// What a site's robots.txt asks of one user agent (RFC 9309, the Robots Exclusion Protocol).
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/robots_pattern.h"
#include "platform/http_client.h"

namespace crawler {

/// So much of a robots.txt is read.
constexpr std::size_t kMaxRobotsBytes = 512u << 10;

/// So many rules for one user agent count, the first ones.
constexpr std::size_t kMaxRobotsRules = 10'000;

struct RobotsRule {
  std::string text;  // the line as written, for the user: "Disallow: /private/*"; without comment, UTF-8
  bool allows = false;
  RobotsPattern pattern;
};

/// What counts for one user agent. Without rules everything is allowed.
struct RobotsGroup {
  std::vector<RobotsRule> rules;                        // the one that says most first
  std::optional<std::chrono::milliseconds> crawlDelay;  // wished between two requests; a day at most
};

struct RobotsTxt {
  RobotsGroup group;
  std::vector<std::string> sitemaps;  // of "Sitemap:" lines, as written, in their order; UTF-8
};

/// Reads the first kMaxRobotsBytes of `text`, the bytes of a robots.txt; a line that is cut off there is
/// none. Lines that it cannot read are passed over. `userAgent` is what the scan calls itself in its
/// requests. Its name in groups is what stands in front of the first character that is no letter, digit, "_"
/// or "-", in any case: "Veskel" of "Veskel/1.0 (Linux)". All groups with that name count as one; where there
/// is none, those for "*".
RobotsTxt parseRobotsTxt(std::string_view text, std::string_view userAgent);

struct RobotsVerdict {
  bool isAllowed = true;
  std::optional<std::size_t> rule;  // index of the one that decided; nothing when none matches
};

/// Whether an address may be fetched. `path` is its path with its query, percent-encoded or not: "/a?b=c".
/// The matching rule with the most octets decides; of equal ones one that allows, then the first in the file.
RobotsVerdict robotsVerdict(const RobotsGroup& group, std::string_view path);

/// What an answer to the request for robots.txt means.
enum class RobotsAnswer {
  rules,        // the body has the rules
  unavailable,  // there are none: everything is allowed
  unreachable,  // nobody knows: nothing may be fetched
};

/// `status` counts when `failure` is none. Redirects that lead nowhere count as unavailable.
RobotsAnswer robotsAnswer(platform::FetchFailure failure, int status);

}  // namespace crawler
