#include "crawler/site_scanner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/files.h"
#include "sitemaps/html_format.h"
#include "support/scan_run.h"
#include "support/site_server.h"

namespace crawler {
namespace {

using support::ScanRun;
using support::ServedPage;
using support::SiteServer;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;

std::string titled(const std::string& title, const std::string& body = {}) {
  return "<html><head><title>" + title + "</title></head><body>" + body + "</body></html>";
}

std::string linkTo(const std::string& href, const std::string& text = "link") {
  return "<a href=\"" + href + "\">" + text + "</a>";
}

/// `count` pages, each with a link to the next; the last one links to itself.
SiteServer::Pages chainOf(int count) {
  SiteServer::Pages pages;
  for (int i = 1; i <= count; ++i) {
    const std::string target = i == 1 ? "/" : "/" + std::to_string(i) + ".html";
    const std::string next = i == count ? "#top" : std::to_string(i + 1) + ".html";
    pages[target] = {titled("Page " + std::to_string(i), linkTo(next))};
  }
  return pages;
}

TEST(Scan, FillsRowsOfEveryLayout) {
  for (const int count : {1, 2, 3, 5}) {
    SCOPED_TRACE(count);
    const SiteServer server(chainOf(count));
    ScanRun run(server.url());
    EXPECT_EQ(run.scan().end, ScanEnd::complete);
    support::expectStored("scans/pages-" + std::to_string(count) + ".txt", run.documents(server.url()));
  }
}

/// One page of each kind that the rules tell apart.
SiteServer::Pages oddSite() {
  SiteServer::Pages pages;
  pages["//robots.txt"] = {"User-agent: *\nDisallow: /private\n", "text/plain"};
  pages["/"] = {
      titled("Tom &amp; Jerry's \"<b>\" page",
             linkTo("a.html", "A &amp; B") + linkTo("a.html", "again") + linkTo("a.html#part") +
                 linkTo("sub/") + linkTo("private/secret.html") + linkTo("gone.html", "Gone") +
                 linkTo("doc.pdf") + linkTo("mailto:me@site.test", "Mail") + "<a name=\"top\"></a>" +
                 linkTo("http://elsewhere.test", "Elsewhere") + linkTo("list.php?id=1&amp;x=<2>", "List") +
                 linkTo("skipped/p.html") + linkTo("listing/") + linkTo("moved.html", "Moved") +
                 linkTo("latin.html") + linkTo("plain.php") + linkTo("untitled.html", "") +
                 linkTo("hollow.html") + "<a href=\"late.html\"><img src=\"i.png\" alt=\"Late\"></a>" +
                 linkTo("untyped.html")),
      "text/html; charset=utf-8", 200, "Tue, 15 Jun 2010 12:00:00 GMT"};
  pages["/a.html"] = {
      titled("A", linkTo("") + linkTo("../x.html") + linkTo("/rooted.html") + linkTo("./b.html")),
      "TEXT/HTML;charset=utf-8", 200, "Monday, 31-Dec-12 12:00:00 GMT"};
  pages["/sub/"] = {titled("Sub", linkTo("index.html", "Index")), "text/html", 200, "not a date"};
  pages["/private/secret.html"] = {titled("Secret")};
  pages["/list.php?id=1&x=%3C2%3E"] = {titled("List ?", linkTo("?a"))};
  pages["/list.php?id=1&x=%3C2%3E?a"] = {titled("Deeper")};
  pages["/skipped/p.html"] = {titled("Skipped")};
  pages["/listing/"] = {titled("Index of /listing", linkTo("inside.html"))};
  pages["/moved.html"] = {"", "", 301, "", "a.html"};
  pages["/latin.html"] = {"<meta charset=iso-8859-1><title>Caf\xE9 \x80</title>", "text/html"};
  pages["/plain.php"] = {titled("Plain"), "text/plain"};
  pages["/untitled.html"] = {"<p>" + linkTo("a.html", "<i>To</i> A")};
  pages["/hollow.html"] = {""};
  pages["/late.html"] = {titled("Late")};
  pages["/untyped.html"] = {titled("Untyped"), ""};
  return pages;
}

TEST(Scan, AppliesTheRulesToAWholeSite) {
  for (const bool ignoreRobots : {false, true}) {
    SCOPED_TRACE(ignoreRobots);
    const SiteServer server(oddSite());
    ScanRun run(server.url());
    run.settings.ignoreRobots = ignoreRobots;
    run.settings.filters = {"/SKIPPED"};
    EXPECT_EQ(run.scan().end, ScanEnd::complete);
    support::expectStored(ignoreRobots ? "scans/odd-site-robots-ignored.txt" : "scans/odd-site.txt",
                          run.documents(server.url()));
    EXPECT_EQ(server.timesAsked("GET /private/secret.html"), ignoreRobots ? 1 : 0);
  }
}

TEST(Scan, AsksOnceForAPageAndForADateThatAGoodOneLacks) {
  const SiteServer server(oddSite());
  ScanRun run(server.url());
  // What is no page is as broken as what is missing.
  EXPECT_THAT(run.scan().brokenPages, Contains(Field(&store::BrokenPage::reason, "200 - OK")));
  EXPECT_EQ(server.timesAsked("GET /latin.html"), 1);
  EXPECT_EQ(server.timesAsked("HEAD /latin.html"), 1);
  EXPECT_EQ(server.timesAsked("HEAD /a.html"), 0);
  EXPECT_EQ(server.timesAsked("HEAD /gone.html"), 0);
  EXPECT_EQ(server.timesAsked("HEAD /listing/"), 0);
  EXPECT_EQ(server.timesAsked("GET /hollow.html"), 2);  // an empty page is asked for once more
}

TEST(Scan, ReadsAPageThatCameEmptyOnce) {
  const SiteServer server([](const std::string& target, int times) -> ServedPage {
    if (target == "/") return {titled("Start", linkTo("shy.html"))};
    return {times == 1 ? "" : titled("Shy", linkTo("found.html", "Found"))};
  });
  ScanRun run(server.url());
  EXPECT_EQ(run.scan().statistics.pagesFound, 3);
  EXPECT_THAT(run.file("sitemap1cpo.html"), HasSubstr("shy.html---LINKID:2---\">Could not find page title<"));
  EXPECT_THAT(run.file("sitemap1c.html"), HasSubstr("found.html---LINKID:4---\">Found<"));
}

TEST(Scan, AsksOnceAboutQuestionMarksAndWaitsForTheAnswer) {
  using Answer = std::function<void(SiteScanner&)>;
  const Answer goOn = [](auto& scanner) { scanner.sheetDidEndShouldStopScan(LoopingAnswer::continueScan); };
  const Answer stop = [](auto& scanner) { scanner.sheetDidEndShouldStopScan(LoopingAnswer::cancelScan); };
  const Answer cancel = [](auto& scanner) { scanner.cancelScan(); };
  for (const Answer* answer : {&goOn, &stop, &cancel}) {
    const SiteServer server(
        {{"/", {titled("Start", linkTo("a?b?c?d?e") + linkTo("f?g?h?i?j") + linkTo("z"))}},
         {"/a?b?c?d?e", {titled("Loop")}},
         {"/f?g?h?i?j", {titled("Loop")}},
         {"/z", {titled("Behind")}}});
    ScanRun run(server.url());
    std::jthread user;
    run.view.onLooping = [&] {
      EXPECT_EQ(server.timesAsked("GET /z"), 0);  // nothing behind such an address is read ahead
      user = std::jthread([&] { (*answer)(run.scanner()); });
    };
    const ScanResult result = run.scan();
    EXPECT_EQ(result.end, answer == &goOn ? ScanEnd::complete : ScanEnd::cancelled);
    EXPECT_EQ(result.progress.pagesScanned, answer == &goOn ? 4 : 1);
    EXPECT_THAT(run.view.events, ElementsAre("started", "connected", "looping", "closing", "finished"));
  }
}

TEST(Scan, TellsWhyAStartPageCannotBeReached) {
  const SiteServer server({{"/folder/", {titled("Folder")}},
                           {"/folder/round.html", {.status = 302, .location = "round.html"}},
                           {"/locked/", {.status = 401}}});
  struct Case {
    const char* path;
    const char* reason;
  };
  const Case cases[] = {
      {"missing/", "404 - Not Found"},
      {"folder/missing.html", "404 - Not Found"},  // its folder answers, as that of the next
      {"folder/round.html", "0 - Too many redirects"},
      {"locked/", "401 - Unauthorized: the site asks for a name and a password"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path);
    ScanRun run(server.url(c.path));
    const std::string record = run.file("Site.qzVSK");
    const ScanResult result = run.scan();
    EXPECT_EQ(result.end, ScanEnd::unreachable);
    EXPECT_EQ(result.unreachableReason, c.reason);
    EXPECT_THAT(run.view.events, ElementsAre("started", "finished"));
    EXPECT_EQ(run.file("sitemap2c.html"), sitemaps::documentOpening(2));
    EXPECT_EQ(run.file("Site.qzVSK"), record);
  }
  ScanRun run("http://127.0.0.1:1/");
  EXPECT_THAT(run.scan().unreachableReason, testing::StartsWith("0 - "));
}

TEST(Scan, AsksForNothingWhenADocumentCannotBeWritten) {
  const SiteServer server(chainOf(1));
  ScanRun run(server.url());
  std::filesystem::create_directories(run.folder() / "sitemap3c.html" / "in the way");
  EXPECT_EQ(run.scan().end, ScanEnd::unwritable);
  EXPECT_TRUE(server.requests().empty());
}

TEST(Scan, EndsAtTheDeepestLevel) {
  SiteServer::Pages pages = chainOf(5);
  pages["/2.html"] = {"", "", 301, "", "/moved.html"};
  pages["/moved.html"] = {titled("Moved", linkTo("3.html"))};
  const SiteServer server(pages);
  for (const auto links : {store::LinkStyle::simple, store::LinkStyle::browser}) {
    ScanRun run(server.url());
    run.settings.site.links = links;
    run.settings.site.levels = 1;
    const ScanResult result = run.scan();
    EXPECT_EQ(result.end, ScanEnd::complete);
    EXPECT_EQ(result.statistics.pagesUsed, 2);
    EXPECT_THAT(result.leftOut.sentence(), HasSubstr("1 link below the deepest level"));
  }
}

TEST(Scan, KeepsWithinItsBounds) {
  const SiteServer server({{"/",
                            {titled("Start", linkTo("2.html") + linkTo("3.html") +
                                                 linkTo(std::string(60, 'x') + ".html") + linkTo("4.html"))}},
                           {"/2.html", {titled("Two")}},
                           {"/3.html", {titled("Three")}}});
  const std::size_t base = server.url().size();
  struct Case {
    const char* name;
    ScanBounds bounds;
    std::string leftOut;
    std::size_t pages;  // known at the end
    bool lastIsListed;  // with its own number
  };
  const Case cases[] = {
      {"a link too long", {.link = base + 40}, "Left out: 1 link as its address is too long", 4, true},
      {"a page too full", {.pageEntries = 450}, "Left out: 2 links as too many stand on one page", 3, false},
      {"more pages than fit",
       {.queue = 2 * base + 6},
       "Left out: 3 links as there are more pages than a scan can remember",
       2,
       true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ScanRun run(server.url());
    run.settings.bounds = c.bounds;
    const ScanResult result = run.scan();
    EXPECT_EQ(result.end, ScanEnd::complete);
    EXPECT_THAT(result.leftOut.sentence(), testing::StartsWith(c.leftOut));
    EXPECT_EQ(result.pages->size(), c.pages);
    EXPECT_EQ(run.file("sitemap1c.html").find("4.html---LINKID:5---") != std::string::npos, c.lastIsListed);
  }
}

TEST(Scan, TellsWhatItLeavesOut) {
  const SiteServer server(
      {{"/dir//robots.txt", {"User-agent: *\nDisallow: /private\n", "text/plain"}},
       {"/dir/index.html",
        {titled("Start", linkTo("v1.2.html") + linkTo("v1.2.html#2") + linkTo("v1.2.html") +
                             linkTo("a#part") + linkTo("private/x.html") + linkTo("http://127.0.0.1:1/dir/") +
                             linkTo("http://elsewhere.test/") + linkTo("mailto:") + linkTo("./") +
                             linkTo("../") + linkTo("/dir/"))}}});
  ScanRun run(server.url("dir/index.html"));
  run.settings.filters = {"unused", "#PART"};
  EXPECT_EQ(support::leftOutLines(run.scan(), server.url()),
            "3 by their ending: /dir/v1.2.html</dir/index.html /dir/v1.2.html#2</dir/index.html\n"
            "1 to the site's host without its port: http://127.0.0.1/dir/</dir/index.html\n"
            "1 by the filter \"#PART\": /dir/a#part</dir/index.html\n"
            "1 by the robots.txt rule \"/private\": /dir/private/x.html</dir/index.html\n"
            "1 to another port: http://127.0.0.1:1/dir/</dir/index.html\n"
            "1 above the start folder: /</dir/index.html\n"
            "1 to the folder of a known index page: /dir/</dir/index.html\n"
            "1 that leads nowhere: </dir/index.html\n"
            "1 to another host: http://elsewhere.test/</dir/index.html\n");
}

TEST(Scan, ClosesItsDocumentsWhereverItEnds) {
  struct Case {
    const char* name;
    bool cancelled;     // else the memory runs out
    std::string where;  // the link or the page with this end
    bool isLink;
    int pagesFound;
  };
  const Case cases[] = {
      {"cancelled in mid page", true, "/3.html", true, 3},
      {"no memory in mid page", false, "/3.html", true, 2},
      {"no memory between pages", false, "/2.html", false, 4},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const SiteServer server({{"/", {titled("Page 1", linkTo("2.html"))}},
                             {"/2.html", {titled("Page 2", linkTo("3.html") + linkTo("4.html"))}}});
    ScanRun run(server.url());
    const auto endAt = [&](std::string_view url, bool isLink) {
      if (isLink != c.isLink || !url.ends_with(c.where)) return;
      if (!c.cancelled) throw std::bad_alloc();
      run.scanner().cancelScan();
    };
    run.view.onLink = [&](std::string_view link) { endAt(link, true); };
    run.view.onPage = [&](const VisitedPage& page) { endAt(page.url, false); };
    const ScanResult result = run.scan();
    EXPECT_EQ(result.end, c.cancelled ? ScanEnd::cancelled : ScanEnd::failed);
    EXPECT_EQ(result.failure, c.cancelled ? "" : "out of memory");
    EXPECT_EQ(result.progress.pagesScanned, 2);
    EXPECT_EQ(result.statistics.pagesFound, c.pagesFound);
    EXPECT_TRUE(result.documentsClosed);
    EXPECT_THAT(run.view.events, ElementsAre("started", "connected", "closing", "finished"));
    for (const char* file : {"sitemap1c.html", "sitemap1cpo.html"}) {
      EXPECT_THAT(run.file(file), HasSubstr("2.html---LINKID:2---\">Page 2<")) << file;
      EXPECT_THAT(run.file(file), testing::EndsWith("</html>")) << file;
    }
    EXPECT_THAT(run.file("Site.qzVSK"), HasSubstr("<pagesUsed>2</pagesUsed>"));
  }
}

}  // namespace
}  // namespace crawler
