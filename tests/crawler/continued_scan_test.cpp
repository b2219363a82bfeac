// Scans that were stopped, killed or lost their network, and those that go on with them.
#include <atomic>
#include <filesystem>
#include <mutex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "crawler/page_journal.h"
#include "platform/files.h"
#include "support/scan_run.h"
#include "support/site_server.h"
#include "support/skipped_time.h"

namespace crawler {
namespace {

namespace fs = std::filesystem;
using support::ScanRun;
using support::SiteServer;

/// A site with a page of each kind that leaves something behind for pages that follow.
SiteServer::Pages site() {
  SiteServer::Pages pages = support::manyPages(24);
  for (const char* odd : {"hollow.html", "moved.html", "latin.html", "copy.html", "hidden.html", "sub/",
                          "sub/index.html", "list.php?a=1&amp;b=%5C"}) {
    pages["/"].body += std::string("<a href=\"") + odd + "\">Odd\t\\ page</a><a name=x></a>";
  }
  pages["/hollow.html"] = {""};
  pages["/moved.html"] = {"", "", 301, "", "page3.html"};
  pages["/latin.html"] = {
      "<meta charset=iso-8859-1><base href=/sub/><title>Caf\xE9\t\\</title><a href='?\xE9'>\xE9</a>",
      "text/html"};
  pages["/copy.html"] = {"<link rel=canonical href=/sub/>"};
  pages["/hidden.html"] = {"<meta name=robots content=noindex><a rel=nofollow href=secret.html>x</a>"};
  pages["/sub/"] = pages["/sub/index.html"] = {"<title>Folder</title><a href=deep.html>Deep</a>"};
  pages["/sub/deep.html"] = {"<title>Deep</title>", "text/html", 200, "Tue, 15 Jun 2010 12:00:00 GMT"};
  return pages;
}

struct KeptRun : ScanRun {
  explicit KeptRun(const std::string& url, store::LinkStyle links = store::LinkStyle::simple) : ScanRun(url) {
    settings.site.links = links;
    isKept = true;
  }
};

TEST(ContinuedScan, GivesTheDocumentsOfOneThatWasNeverStopped) {
  const SiteServer server(site());
  for (const store::LinkStyle links : {store::LinkStyle::simple, store::LinkStyle::browser}) {
    KeptRun run(server.url(), links);
    const ScanResult whole = run.scan();
    EXPECT_FALSE(fs::exists(run.journal()));
    const std::string expected = run.documents(server.url());

    // Stopped at a page, and once more on the way; then killed: of what was kept any part is there.
    for (const int stop : {1, 2, 5, 19, whole.progress.pagesScanned - 1}) {
      SCOPED_TRACE(stop);
      int left = stop;
      run.view.onPage = [&](const VisitedPage&) {
        if (--left == 0) run.scanner().cancelScan();
      };
      run.settings.goesOn = false;
      EXPECT_TRUE(run.scan().canGoOn);
      const std::string kept = platform::readFile(run.journal()).text;
      run.settings.goesOn = true;
      left = stop / 2 + 1;
      EXPECT_TRUE(run.scan().canGoOn);
      run.view.onPage = nullptr;
      for (const std::size_t size : {kept.size(), kept.size() * 2 / 3, kept.size() / 3, std::size_t{30}}) {
        SCOPED_TRACE(size);
        ASSERT_TRUE(platform::replaceFile(run.journal(), kept.substr(0, size)).ok());
        const ScanResult result = run.scan();
        EXPECT_EQ(result.end, ScanEnd::complete);
        EXPECT_EQ(result.leftOut.sentence(), whole.leftOut.sentence());
        EXPECT_EQ(run.documents(server.url()), expected);
        EXPECT_FALSE(fs::exists(run.journal()));
        if (HasFailure()) return;
      }
    }
  }
}

TEST(ContinuedScan, AsksForNoPageTwice) {
  const SiteServer server(site());
  KeptRun run(server.url(), store::LinkStyle::browser);
  run.view.onPage = [&](const VisitedPage& page) {
    if (page.url.ends_with("page7.html")) run.scanner().cancelScan();
  };
  EXPECT_EQ(run.scan().end, ScanEnd::cancelled);
  run.settings.goesOn = true;
  run.view.onPage = nullptr;
  const int before = server.timesAsked("GET /page2.html");
  EXPECT_EQ(run.scan().end, ScanEnd::complete);
  EXPECT_EQ(server.timesAsked("GET /page2.html"), before);
}

TEST(ContinuedScan, FollowsAnotherSiteOrOtherRulesNever) {
  const SiteServer server(site());
  KeptRun run(server.url());
  run.view.onPage = [&](const VisitedPage&) { run.scanner().cancelScan(); };
  EXPECT_EQ(run.scan().end, ScanEnd::cancelled);
  run.view.onPage = nullptr;
  run.settings.goesOn = true;
  run.settings.site.links = store::LinkStyle::browser;
  EXPECT_EQ(run.scan().end, ScanEnd::complete);
  const std::string mixed = run.documents(server.url());
  run.settings.goesOn = false;
  EXPECT_EQ(run.scan().end, ScanEnd::complete);
  EXPECT_EQ(mixed, run.documents(server.url()));
}

TEST(ContinuedScan, WaitsForASiteThatHasGone) {
  std::atomic<bool> isGone = false;
  std::mutex mutex;
  std::string last;  // guarded by it
  const SiteServer server([&, pages = site()](const std::string& target, int) {
    const std::lock_guard lock(mutex);
    isGone = isGone || target == last;
    return isGone ? support::ServedPage{.status = 0} : support::pageOf(pages, target);
  });
  KeptRun run(server.url());
  support::SkippedTime clock;
  run.clock = &clock;
  run.settings.filters = {"#"};  // or the last page would be one that is there already
  const std::shared_ptr<const PageQueue> pages = run.scan().pages;
  const std::string expected = run.documents(server.url());

  // With the last page, too, where fewer are left than it takes to be sure on the way.
  const auto setLast = [&](std::string_view target) {
    const std::lock_guard lock(mutex);
    last = target;
  };
  for (const std::size_t page : {std::size_t{2}, pages->size() - 1}) {
    SCOPED_TRACE(page);
    setLast((*pages)[page].substr(server.url().size() - 1));
    run.settings.goesOn = false;
    EXPECT_EQ(run.scan().end, ScanEnd::lost);
    const std::string found = run.documents(server.url());
    run.settings.goesOn = true;
    EXPECT_EQ(run.scan().end, ScanEnd::unreachable);
    EXPECT_EQ(run.documents(server.url()), found);
    setLast({});
    isGone = false;
    EXPECT_EQ(run.scan().end, ScanEnd::complete);
    EXPECT_EQ(run.documents(server.url()), expected);
  }
}

TEST(ContinuedScan, IsNotOfferedWhereThePagesCouldNotBeKept) {
  const SiteServer server(site());
  KeptRun run(server.url());
  run.settings.bounds.journal = 1'000;
  run.settings.site.maxPages = 10;
  const ScanResult result = run.scan();
  EXPECT_EQ(result.end, ScanEnd::cancelled);
  EXPECT_FALSE(result.canGoOn);
  EXPECT_EQ(result.pagesKept.error, "The site holds too much for that");
  EXPECT_FALSE(fs::exists(run.journal()));
}

}  // namespace
}  // namespace crawler
