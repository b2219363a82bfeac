#include "crawler/robots_groups.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/ascii.h"
#include "platform/text.h"

namespace crawler {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLongestDelay = std::chrono::hours{24};

/// Without the protocol's blanks at both ends, which are fewer than elsewhere.
std::string_view withoutBlanks(std::string_view text) {
  constexpr std::string_view kLineBlanks = " \t";
  const std::size_t start = text.find_first_not_of(kLineBlanks);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(kLineBlanks) - start + 1);
}

/// The name at the start of a user agent, in lower case. Sites write versions behind it too.
std::string productToken(std::string_view userAgent) {
  const auto end = std::find_if_not(userAgent.begin(), userAgent.end(), [](char c) {
    return platform::isAsciiLetter(c) || platform::isAsciiDigit(c) || c == '_' || c == '-';
  });
  return platform::lowerAscii(userAgent.substr(0, static_cast<std::size_t>(end - userAgent.begin())));
}

bool isForEverybody(std::string_view name) {
  return name.starts_with('*') && productToken(name.substr(1)).empty();
}

std::optional<milliseconds> delayIn(std::string_view value) {
  double seconds = 0;
  const char* end = value.data() + value.size();
  const auto [read, error] = std::from_chars(value.data(), end, seconds, std::chars_format::fixed);
  // "inf" and "nan" are read as numbers.
  if (error != std::errc() || read != end || !std::isfinite(seconds) || seconds < 0) return std::nullopt;
  const std::chrono::duration<double> delay(seconds);
  return delay < kLongestDelay ? std::chrono::ceil<milliseconds>(delay) : kLongestDelay;
}

class Reader {
 public:
  explicit Reader(std::string_view userAgent) : m_token(productToken(userAgent)) {}

  void readLine(std::string_view line);
  RobotsTxt result();

 private:
  struct Audience {
    RobotsGroup group;
    bool isNamed = false;      // by some group
    bool isAddressed = false;  // by the group in hand
  };

  void startGroup(std::string_view name);
  void addRule(std::string_view line, std::string_view path, bool allows);
  void addDelay(std::string_view value);

  std::string m_token;
  Audience m_us;
  Audience m_everybody;
  bool m_namesEnded = true;  // the next name starts another group
  std::vector<std::string> m_sitemaps;
};

void Reader::readLine(std::string_view line) {
  line = withoutBlanks(line.substr(0, line.find('#')));
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return;
  const std::string field = platform::lowerAscii(withoutBlanks(line.substr(0, colon)));
  const std::string_view value = withoutBlanks(line.substr(colon + 1));
  if (field == "user-agent") {
    startGroup(value);
  } else if (field == "allow" || field == "disallow") {
    addRule(line, value, field == "allow");
  } else if (field == "crawl-delay") {
    addDelay(value);
  } else if (field == "sitemap" && !value.empty()) {
    m_sitemaps.push_back(platform::decodeUtf8(std::string(value)));
  }
}

void Reader::startGroup(std::string_view name) {
  if (m_namesEnded) m_us.isAddressed = m_everybody.isAddressed = false;
  m_namesEnded = false;
  const auto address = [](Audience& audience) { audience.isNamed = audience.isAddressed = true; };
  if (isForEverybody(name)) address(m_everybody);
  if (!m_token.empty() && productToken(name) == m_token) address(m_us);
}

void Reader::addRule(std::string_view line, std::string_view path, bool allows) {
  m_namesEnded = true;
  const RobotsPattern pattern(path);
  if (!pattern.isUsable()) return;  // an empty one too, which says that nothing is meant
  for (Audience* audience : {&m_us, &m_everybody}) {
    std::vector<RobotsRule>& rules = audience->group.rules;
    if (!audience->isAddressed || rules.size() == kMaxRobotsRules) continue;
    rules.push_back({platform::decodeUtf8(std::string(line)), allows, pattern});
  }
}

/// Ends the names of a group as a rule does. Many sites have "*" wait and nothing else, and then forbid all
/// to somebody who follows: nobody else is meant.
void Reader::addDelay(std::string_view value) {
  m_namesEnded = true;
  const std::optional<milliseconds> delay = delayIn(value);
  for (Audience* audience : {&m_us, &m_everybody}) {
    std::optional<milliseconds>& longest = audience->group.crawlDelay;
    if (audience->isAddressed) longest = std::max(longest, delay);
  }
}

RobotsTxt Reader::result() {
  RobotsGroup& group = m_us.isNamed ? m_us.group : m_everybody.group;
  std::stable_sort(group.rules.begin(), group.rules.end(), [](const RobotsRule& a, const RobotsRule& b) {
    if (a.pattern.octets() != b.pattern.octets()) return a.pattern.octets() > b.pattern.octets();
    return a.allows && !b.allows;
  });
  return {std::move(group), std::move(m_sitemaps)};
}

}  // namespace

RobotsTxt parseRobotsTxt(std::string_view text, std::string_view userAgent) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  constexpr std::string_view kLineEnds = "\r\n";
  if (text.size() >= kMaxRobotsBytes) {
    text = text.substr(0, kMaxRobotsBytes);
    // Half a path would forbid more than is meant.
    text = text.substr(0, text.find_last_of(kLineEnds) + 1);
  }
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  Reader reader(userAgent);
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find_first_of(kLineEnds));
    reader.readLine(line);
    text.remove_prefix(std::min(text.size(), line.size() + 1));
  }
  return reader.result();
}

RobotsVerdict robotsVerdict(const RobotsGroup& group, std::string_view path) {
  if (group.rules.empty()) return {};
  const RobotsPath address(path.empty() ? "/" : path);
  if (address.octets == "/robots.txt") return {};
  const auto rule = std::find_if(group.rules.begin(), group.rules.end(),
                                 [&](const RobotsRule& r) { return r.pattern.matches(address); });
  if (rule == group.rules.end()) return {};
  return {rule->allows, static_cast<std::size_t>(rule - group.rules.begin())};
}

RobotsAnswer robotsAnswer(platform::FetchFailure failure, int status) {
  using platform::FetchFailure;
  if (failure == FetchFailure::tooManyRedirects || failure == FetchFailure::forbiddenRedirect)
    return RobotsAnswer::unavailable;
  if (failure != FetchFailure::none) return RobotsAnswer::unreachable;
  if (status >= 200 && status < 300) return RobotsAnswer::rules;
  return status >= 300 && status < 500 ? RobotsAnswer::unavailable : RobotsAnswer::unreachable;
}

}  // namespace crawler
