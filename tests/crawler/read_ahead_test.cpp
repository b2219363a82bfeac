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

TEST(ReadAheadPages, GiveTheSameBytesOverAnyNumberOfConnections) {
  std::atomic<unsigned> seed = 1;
  const SiteServer server([&seed, pages = support::manyPages(60)](const std::string& target, int) {
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
  EXPECT_THAT(expected, testing::HasSubstr("page5.html#part"));
  EXPECT_EQ(documentsOver(32), expected);
  // Each scan asks once for a document, whatever fragments of it are pages.
  for (const char* request : {"GET /page5.html", "HEAD /page5.html"})
    EXPECT_EQ(server.timesAsked(request), 2);
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
