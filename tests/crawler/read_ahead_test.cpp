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
using support::ServedPage;
using support::SiteServer;

constexpr int kPages = 150;

/// A page of a site in which every page links to five others, some of them by fragments or missing.
ServedPage pageOf(const std::string& target) {
  const std::size_t digits = target.find_first_of("0123456789");
  const int number = digits == std::string::npos ? 0 : std::stoi(target.substr(digits));
  if (number % 17 == 13) return {.status = 404};
  std::string body = "<title>Page " + std::to_string(number) + "</title>";
  for (const int step : {1, 2, 7, 31, 77}) {
    const std::string to = std::to_string((number + step) % kPages);
    body += "<a href=\"p" + to + ".html" + (step == 7 ? "#part" : "") + "\">To " + to + "</a>";
  }
  return {body, "text/html", 200, number % 3 == 0 ? "Tue, 15 Jun 2010 12:00:00 GMT" : ""};
}

TEST(ReadAheadPages, GiveTheSameBytesOverAnyNumberOfConnections) {
  std::atomic<unsigned> seed = 1;
  const SiteServer server([&seed](const std::string& target, int) {
    // Answers overtake each other: each waits for a time of its own.
    std::minstd_rand random(seed++);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
    return pageOf(target);
  });
  std::string expected;
  for (const int connections : {1, 6, 32}) {
    SCOPED_TRACE(connections);
    ScanRun run(server.url());
    run.limits.connections = connections;
    EXPECT_EQ(run.scan().end, ScanEnd::complete);
    const std::string documents = run.documents(server.url());
    if (expected.empty()) expected = documents;
    EXPECT_EQ(documents, expected);
  }
  EXPECT_THAT(expected, testing::HasSubstr("p7.html#part"));
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
