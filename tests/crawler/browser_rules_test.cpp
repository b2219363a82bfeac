#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "crawler/browser_link_rules.h"
#include "crawler/browser_page.h"
#include "support/scan_run.h"
#include "support/site_server.h"

namespace crawler {
namespace {

using support::ScanRun;
using support::SiteServer;
using testing::HasSubstr;

TEST(BrowserPage, ReadsLinksTheirNamesAndWishes) {
  struct Case {
    const char* name;
    std::string markup;
    std::string
        links;  // "address|name", "!" behind one that is not followed, "-" before one that is not listed
  };
  const Case cases[] = {
      {"folded names", "<a href=1>\n a <b>\xC2\xA0 b</b>\r\n</a>", "1|a b "},
      {"blank names",
       "<a href=1> <img alt=' i  j '> </a><a href=2 title=t>&nbsp;</a><a href=3 aria-label=l></a>"
       "<a href='4/p.html?q'></a><a href=5/></a><a href=../></a>",
       "1|i j 2|t 3|l 4/p.html?q|p.html 5/|5 ../|.. "},
      {"areas and frames", "<map><area href=1 alt=a></map><frame src=2><iframe src=3></iframe>",
       "1|a -2| -3| "},
      {"not to be followed", "<a href=1 rel='x NoFollow'>a</a><a href=2 rel=nofollower>b</a>", "1|a! 2|b "},
      {"the page's wish", "<meta name=Robots content='noindex,NOFOLLOW'><a href=1>a</a>", "(noindex)1|a! "},
      {"of other crawlers", "<meta name=otherbot content=none><a href=1>a</a>", "1|a "},
      {"base and canonical", "<base><base href=b><base href=c><link rel='x canonical' href=d>", "(b)(=d)"},
      {"places without an address", "<a name=x>y</a><area><frame>", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const PageContents contents = readBrowserPage(c.markup);
    std::string links;
    if (!contents.isIndexed) links += "(noindex)";
    if (contents.base) links += "(" + *contents.base + ")";
    if (contents.canonical) links += "(=" + *contents.canonical + ")";
    for (const Anchor& anchor : contents.anchors) {
      if (!anchor.isListed) links += '-';
      links.append(*anchor.href).append("|").append(anchor.title).append(anchor.isFollowed ? " " : "! ");
    }
    EXPECT_EQ(links, c.links);
  }
  const RobotsWishes wishes = robotsWishes("nofollow, unavailable_after: 1 Jan, otherbot: noindex");
  EXPECT_TRUE(wishes.noFollow);
  EXPECT_FALSE(wishes.noIndex);
}

TEST(BrowserLinkRules, JudgeWhereALinkLeads) {
  const ScanSettings settings{.siteName = "Site",
                              .startUrl = "http://www.h:8080/d/index.html",
                              .filters = {"skip"},
                              .site = {.userAgent = "Other/2 (x)"},
                              .bounds = {.link = 60}};
  BrowserLinkRules rules(
      settings, {.status = 200, .body = "User-agent: other\nDisallow: /d/private*.html$\nCrawl-delay: 60"});
  rules.enterPage("http://www.h:8080/d/e/p.html", {.base = "../f/"});
  struct Case {
    const char* href;
    std::string address;
    LinkReason reason;
  };
  const std::string site = "http://www.h:8080/d/";
  const Case cases[] = {
      {" ./x.y.html#z ", site + "f/x.y.html", LinkReason::none},
      {"../a%7eb/./c\\", site + "a%7eb/c/", LinkReason::none},
      {"HTTPS://H:8080/d/?q=\xC3\xA9", "https://h:8080/d/?q=%C3%A9", LinkReason::none},
      {"/d/pic.PNG", site + "pic.PNG", LinkReason::otherType},
      {"/d/pic.png?page", site + "pic.png?page", LinkReason::none},
      {"/d/v1.2", site + "v1.2", LinkReason::none},
      {"/d/Skip", site + "Skip", LinkReason::filter},
      {"/d/private/x.html", site + "private/x.html", LinkReason::robots},
      {"/e/", "http://www.h:8080/e/", LinkReason::aboveStart},
      {"http://h/d/", "http://h/d/", LinkReason::otherPort},
      {"http://x.h:8080/d/", "http://x.h:8080/d/", LinkReason::otherHost},
      {"mailto:a@h", "mailto:a@h", LinkReason::otherHost},
      {"javascript:void(0)", "", LinkReason::empty},
      {"http://[", "", LinkReason::empty},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.href);
    const JudgedLink link = rules.judge(rules.makeAbsolute(c.href).value_or("(too long)"), PageQueue());
    EXPECT_EQ(link.address, c.address);
    EXPECT_EQ(link.reason, c.reason);
  }
  EXPECT_FALSE(rules.makeAbsolute(std::string(50, 'x')));
  EXPECT_EQ(rules.interval(), std::chrono::seconds(10));
  PageQueue known;
  known.append("https://h/x");
  EXPECT_TRUE(rules.findPage("http://www.h/x", known));
  EXPECT_FALSE(rules.findPage("http://www.h/x/", known));
}

std::string page(const std::string& title, const std::string& body = {}) {
  return "<title>" + title + "</title>" + body;
}

TEST(BrowserScan, CountsEachPageOnceAndTellsOthersApart) {
  SiteServer::Pages pages;
  pages["/"] = {
      page("Home",
           "<a href=index.html>i</a><a href=a.b.html>a</a><a href=moved>m</a><a href=away>w</a>"
           "<a href=file>f</a><a href=copy>c</a><a href=hidden>h</a><a href=gone>g</a><iframe src=frame>"
           "</iframe><a href=private>p</a><a href=i.png>i</a><a rel=nofollow href=secret>s</a>")};
  pages["/index.html"] = pages["/"];
  pages["/robots.txt"] = {"User-agent: *\nDisallow: /p*\n", "text/plain"};
  pages["/a.b.html"] = {page("A"), "application/xhtml+xml"};
  pages["/moved"] = {"", "", 301, "", "/end?x"};
  pages["/end?x"] = {page("End", "<a href=moved>m</a>")};
  pages["/away"] = {"", "", 302, "", "http://127.0.0.1:1/"};
  pages["/file"] = {std::string(5'000'000, 'x'), "application/octet-stream"};
  pages["/copy"] = {page("Copy", "<link rel=canonical href=/original?1><a href=behind>b</a>")};
  pages["/original?1"] = {page("Original", "<link rel=canonical href=/original?1>")};
  pages["/behind"] = {page("Behind")};
  pages["/hidden"] = {page("Hidden", "<meta name=robots content=noindex><a href=deep>d</a>")};
  pages["/deep"] = {page("Deep")};
  pages["/frame"] = {page("Frame")};
  const SiteServer server(pages);
  std::string first;
  for (const int connections : {1, 6}) {
    ScanRun run(server.url());
    run.settings.site.links = store::LinkStyle::browser;
    run.limits.connections = connections;
    const ScanResult result = run.scan();
    ASSERT_EQ(result.brokenPages.size(), 1u);  // whatever is behind "away"
    EXPECT_EQ(result.brokenPages[0].url, server.url() + "gone");
    EXPECT_EQ(result.statistics.pagesUsed, 7);
    EXPECT_EQ(support::leftOutLines(result, server.url()),
              "1 by the robots.txt rule \"Disallow: /p*\": /private</\n"
              "1 as the site asks not to follow it: /secret</\n"
              "1 as it asks to be left out: /hidden<\n"
              "1 that leads out of the site: /away<\n"
              "2 of other types: /i.png</ /file<\n"
              "1 that leads to another page: /moved<\n"
              "1 that is the folder's page again: /index.html<\n"
              "1 that names another page in its place: /copy<\n");
    std::string titles;
    const std::string text = run.file("sitemap1cpo.html");
    for (std::size_t at = 0; (at = text.find("---\">", at)) != std::string::npos;) {
      at += 5;
      titles += text.substr(at, text.find('<', at) - at) + " ";
    }
    EXPECT_EQ(titles, "Home A Frame End Original Behind Deep ");
    if (first.empty()) first = run.documents(server.url());
    EXPECT_EQ(run.documents(server.url()), first);
  }
}

TEST(BrowserScan, AsksRobotsTxtBeforeAnything) {
  struct Case {
    support::ServedPage robots;
    const char* reason;  // empty: the site is scanned
  };
  const Case cases[] = {
      {{"User-agent: *\nDisallow: /\n", "text/plain"}, "forbids the start page (Disallow: /)"},
      {{"User-agent: veskel\nAllow: /\n\nUser-agent: *\nDisallow: /", "text/plain"}, ""},
      {{"", "text/plain", 500}, "could not tell its robots.txt"},
      {{"Disallow", "text/plain", 404}, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.robots.body + std::to_string(c.robots.status));
    std::string named;  // set before anything is asked for
    const SiteServer server([&](const std::string& target, int) {
      const SiteServer::Pages pages = {{"/", {page("Home")}},
                                       {"/only-there.html", {page("Only there")}},
                                       {"/sitemap.xml", {named, "text/plain"}},
                                       {"/robots.txt", c.robots}};
      return support::pageOf(pages, target);
    });
    named = server.url() + "only-there.html\nhttp://elsewhere.test/\n";
    ScanRun run(server.url());
    run.settings.site.links = store::LinkStyle::browser;
    const ScanResult result = run.scan();
    EXPECT_EQ(result.end, *c.reason == '\0' ? ScanEnd::complete : ScanEnd::forbidden);
    EXPECT_THAT(result.refusal, HasSubstr(c.reason));
    run.settings.ignoreRobots = true;
    run.settings.site.sitemaps = store::OwnSitemaps::scanned;
    const ScanResult ignoring = run.scan();
    EXPECT_EQ(ignoring.end, ScanEnd::complete);
    EXPECT_EQ(ignoring.statistics.pagesUsed, 2);
    EXPECT_EQ(ignoring.sitemapProblems.size(), 0u);
  }
}

}  // namespace
}  // namespace crawler
