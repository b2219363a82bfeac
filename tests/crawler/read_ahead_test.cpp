#include <atomic>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "crawler/read_ahead_pages.h"
#include "support/scan_run.h"
#include "support/site_server.h"

namespace crawler {
namespace {

using support::ScanRun;
using support::SiteServer;

/// Pages that each link to three others, to some by a fragment and to one that is missing.
SiteServer::Pages linkedPages() {
  constexpr int kPages = 60;
  SiteServer::Pages pages;
  for (int number = 0; number < kPages; ++number) {
    std::string body = "<title>Page " + std::to_string(number) + "</title>";
    for (const int step : {1, 7, 31}) {
      const std::string to = std::to_string((number + step) % kPages);
      body += "<a href=\"p" + to + ".html" + (step == 7 ? "#part" : "") + "\">To " + to + "</a>";
    }
    const std::string target = number == 0 ? "/" : "/p" + std::to_string(number) + ".html";
    pages[target] = {body, "text/html", 200, number % 3 == 0 ? "Tue, 15 Jun 2010 12:00:00 GMT" : ""};
  }
  return pages;
}

TEST(ReadAheadPages, GiveTheSameBytesOverAnyNumberOfConnections) {
  std::atomic<unsigned> seed = 1;
  const SiteServer server([&seed, pages = linkedPages()](const std::string& target, int) {
    // Answers overtake each other: each waits for a time of its own.
    std::minstd_rand random(seed++);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
    return support::pageOf(pages, target);
  });
  const auto documentsOver = [&](int connections) {
    ScanRun run(server.url());
    run.limits.connections = connections;
    EXPECT_EQ(run.scan().end, ScanEnd::complete);
    return run.documents(server.url());
  };
  const std::string expected = documentsOver(1);
  EXPECT_THAT(expected, testing::HasSubstr("p7.html#part"));
  EXPECT_EQ(documentsOver(32), expected);
}

TEST(ReadAheadPages, FetchOneDocumentOnceForItsFragments) {
  const SiteServer server(
      {{"/", {"<title>S</title><a href=p.html>1</a><a href=p.html#a>2</a><a href=p.html#b>3</a>"}},
       {"/p.html", {"<title>P</title>"}}});
  ScanRun run(server.url());
  EXPECT_EQ(run.scan().progress.pagesScanned, 4);
  EXPECT_EQ(server.timesAsked("GET /p.html"), 1);
  EXPECT_EQ(server.timesAsked("HEAD /p.html"), 1);
}

TEST(ReadAheadPages, FetchNothingPastALoopingAddressBeforeTheAnswer) {
  const SiteServer server({{"/", {"<title>S</title><a href=a?b?c?d?e>loop</a><a href=after.html>after</a>"}},
                           {"/after.html", {"<title>After</title>"}}});
  ScanRun run(server.url());
  int askedBefore = -1;
  run.view.onLooping = [&] {
    askedBefore = server.timesAsked("GET /after.html");
    run.scanner().sheetDidEndShouldStopScan(LoopingAnswer::continueScan);
  };
  EXPECT_EQ(run.scan().end, ScanEnd::complete);
  EXPECT_EQ(askedBefore, 0);
  EXPECT_EQ(server.timesAsked("GET /after.html"), 1);
}

TEST(ReadAheadPages, FetchALargePageInItsTurn) {
  const std::string large = "<title>Large</title>" + std::string(300'000, 'x') + "<a href=end.html>End</a>";
  const SiteServer server({{"/", {"<title>S</title><a href=1.html>1</a><a href=2.html>2</a>"}},
                           {"/1.html", {large}},
                           {"/2.html", {large}},
                           {"/end.html", {"<title>End</title>"}}});
  ScanRun run(server.url());
  run.limits.bytesOfOnePage = 100'000;
  run.limits.bytes = 1;  // hardly anything may be held, and the scan goes on all the same
  const ScanResult& result = run.scan();
  EXPECT_EQ(result.progress.pagesScanned, 4);
  EXPECT_EQ(result.progress.brokenLinks, 0);
}

}  // namespace
}  // namespace crawler
