#include "crawler/robots_groups.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace crawler {
namespace {

using platform::FetchFailure;
using testing::ElementsAre;

/// The text of the rule that decides, with "+" in front when it allows; "" when none does.
std::string decision(const RobotsGroup& group, std::string_view path) {
  const RobotsVerdict verdict = robotsVerdict(group, path);
  if (!verdict.rule) return verdict.isAllowed ? "" : "forbidden by nothing";
  return (verdict.isAllowed ? "+" : "") + group.rules.at(*verdict.rule).text;
}

std::string decision(const std::string& rules, std::string_view path) {
  return decision(parseRobotsTxt("user-agent: *\n" + rules, "Veskel/1.0").group, path);
}

TEST(RobotsTxt, GivesEachUserAgentItsGroup) {
  constexpr std::string_view kText =
      "User-Agent: *\nDisallow: *.gif$\nDisallow: /example/\nAllow: /publications/\n\n"
      "User-Agent: foobot\nDisallow:/\nAllow:/example/page.html\nAllow:/example/allowed.gif\n\n"
      "User-Agent: barbot\nUser-Agent: bazbot\nDisallow: /example/page.html\n\nUser-Agent: quxbot\n";
  struct Case {
    const char* userAgent;
    const char* path;
    const char* rule;
  };
  const Case cases[] = {
      {"other", "/publications/a.gif", "+Allow: /publications/"},
      {"other", "/a/b.gif", "Disallow: *.gif$"},
      {"other", "/example/", "Disallow: /example/"},
      {"FooBot/2.1 (Linux)", "/a", "Disallow:/"},
      {"foobot", "/example/page.html?a", "+Allow:/example/page.html"},
      {"foo", "/a", ""},
      {"bazbot", "/example/page.html", "Disallow: /example/page.html"},
      {"quxbot", "/example/page.html", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.userAgent) + " " + c.path);
    EXPECT_EQ(decision(parseRobotsTxt(kText, c.userAgent).group, c.path), c.rule);
  }
}

TEST(RobotsTxt, ReadsWhatSitesWrite) {
  struct Case {
    const char* name;
    const char* text;
    const char* decision;  // on /a for veskel
  };
  const Case cases[] = {
      {"no group", "Disallow: /\n", ""},
      {"groups of one name are one",
       "User-agent: veskel\nAllow: /b\nUser-agent: x\nUser-agent: Veskel\nDisallow: /", "Disallow: /"},
      {"a name beside ours", "User-agent: veskel/2\nUser-agent: *\nDisallow: /a", "Disallow: /a"},
      {"byte-order mark, carriage returns, blanks, comments",
       "\xEF\xBB\xBF\tUSER-AGENT : * # all\r# none\r\r\n dIsAlLoW :\t/a # b\r", "dIsAlLoW :\t/a"},
      {"what is no rule ends no group",
       "User-agent: *\n\nSitemap: /s\nnoise\n: /x\nUser-agent: x\nDisallow: /a", "Disallow: /a"},
      {"a delay ends the names", "User-agent: *\nCrawl-delay: 1\n\nUser-agent: x\nDisallow: /", ""},
      {"ours has no rule", "User-agent: *\nDisallow: /\nUser-agent: veskel\nDisallow:", ""},
      {"bytes that are no text", "User-agent: *\nDisallow: /\xE9\nDisallow: /a\xFF*\nDisallow: /a*\xFF", ""},
      {"not from the start of a path", "User-agent: *\nDisallow: a\nDisallow: $\nDisallow: a*\nDisallow: **",
       "Disallow: **"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(decision(parseRobotsTxt(c.text, "Veskel/1.0 (Linux)").group, "/a"), c.decision);
  }
  EXPECT_EQ(decision("Disallow: /caf\xE9", "/caf%e9"), "Disallow: /caf\xEF\xBF\xBD");
}

TEST(RobotsTxt, ReadsSitemapsAndTheLongestDelay) {
  const RobotsTxt robots = parseRobotsTxt(
      "sitemap: http://h/1.xml\nUser-agent: veskel\nSITEMAP:http://h/2.xml # two\nCrawl-delay: 0.0015\n"
      "User-agent: veskel\nCrawl-delay: inf\nCrawl-delay: .001\nUser-agent: *\nCrawl-delay: 7\nSitemap:\n",
      "Veskel");
  EXPECT_THAT(robots.sitemaps, ElementsAre("http://h/1.xml", "http://h/2.xml"));
  EXPECT_EQ(robots.group.crawlDelay, std::chrono::milliseconds(2));
  for (const char* none : {"", "-1", "1s", "0,5", "nan", "infinity", "1e2", "0x1"}) {
    const std::string text = std::string("User-agent: *\nCrawl-delay: ") + none;
    EXPECT_EQ(parseRobotsTxt(text, "a").group.crawlDelay, std::nullopt) << none;
  }
  EXPECT_EQ(parseRobotsTxt("User-agent: *\nCrawl-delay: 99999999999999", "a").group.crawlDelay,
            std::chrono::hours(24));
}

TEST(RobotsRules, ThatSayMostDecide) {
  struct Case {
    const char* rules;
    const char* path;
    const char* rule;
  };
  const Case cases[] = {
      {"Allow: /example/page/\nDisallow: /example/page/disallowed.gif", "/example/page/disallowed.gif",
       "Disallow: /example/page/disallowed.gif"},
      {"Disallow: /a\nAllow: /a", "/ab", "+Allow: /a"},
      {"Allow: /%61%62c\nDisallow: /abcd", "/abcd", "Disallow: /abcd"},  // encoded octets weigh no more
      {"Allow: /a\nDisallow: /a$", "/a", "Disallow: /a$"},
      {"Disallow: /a$", "/ab", ""},
      {"Disallow: /A", "/a", ""},
      {"Disallow: /this/*/exactly$", "/this/a/b/exactly", "Disallow: /this/*/exactly$"},
      {"Disallow: /this/*/exactly$", "/this/exactly", ""},
      {"Disallow: /*b*ab$", "/abab", "Disallow: /*b*ab$"},
      {"Disallow: /*ab*b$", "/ab", ""},  // an octet is matched once
      {"Disallow: /a$b", "/a$b", "Disallow: /a$b"},
      {"Disallow: /foo/bar?baz=https://foo.bar", "/foo/bar?baz=https%3A%2f%2Ffoo.bar",
       "Disallow: /foo/bar?baz=https://foo.bar"},
      {"Disallow: /foo/bar/\u30C4", "/foo/bar/%E3%83%84", "Disallow: /foo/bar/\u30C4"},
      {"Disallow: /foo/bar/baz", "/foo/bar/%62%61%7A", "Disallow: /foo/bar/baz"},
      {"Disallow: /file-with-a-%2A.html", "/file-with-a-*.html", "Disallow: /file-with-a-%2A.html"},
      {"Disallow: /file-with-a-%2A.html", "/file-with-a-b.html", ""},
      {"Disallow: /%2562", "/b", ""},  // decoded once
      {"Disallow: /robots", "/robots.txt", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.rules) + " on " + c.path);
    EXPECT_EQ(decision(c.rules, c.path), c.rule);
  }
}

/// Each asterisk that could begin anew elsewhere would double the time.
TEST(RobotsRules, AreBoundedWhateverTheyAre) {
  std::string pattern = "Disallow: /";
  while (pattern.size() < 100'000) pattern += "*a";
  EXPECT_EQ(decision(pattern + "*b", "/" + std::string(8'000, 'a')), "");

  std::string text = "User-agent: *\nDisallow: /secret/";
  text.insert(0, kMaxRobotsBytes - text.size() + 3, '\n');  // cut off behind "/sec"
  EXPECT_EQ(decision(parseRobotsTxt(text, "a").group, "/second"), "");
  EXPECT_EQ(decision(parseRobotsTxt(text.substr(4), "a").group, "/secret/"), "Disallow: /secret/");

  std::string many = "User-agent: *\n";
  for (std::size_t i = 0; i <= kMaxRobotsRules; ++i) many += "Allow: /" + std::to_string(i) + "\n";
  EXPECT_EQ(parseRobotsTxt(many, "a").group.rules.size(), kMaxRobotsRules);
}

TEST(RobotsAnswer, SaysWhetherAnythingMayBeFetched) {
  using enum RobotsAnswer;
  for (const auto& [status, meaning] : {std::pair{200, rules},
                                        {299, rules},
                                        {304, unavailable},
                                        {400, unavailable},
                                        {499, unavailable},
                                        {103, unreachable},
                                        {500, unreachable},
                                        {600, unreachable}}) {
    EXPECT_EQ(robotsAnswer(FetchFailure::none, status), meaning) << status;
  }
  EXPECT_EQ(robotsAnswer(FetchFailure::tooManyRedirects, 0), unavailable);
  EXPECT_EQ(robotsAnswer(FetchFailure::timedOut, 0), unreachable);
}

}  // namespace
}  // namespace crawler
