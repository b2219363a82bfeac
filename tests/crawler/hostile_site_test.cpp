// Whole scans of sites that misbehave: they end, blame the right page for the right reason, and use the rest.
#include <atomic>
#include <fstream>
#include <latch>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/gzip.h"
#include "sitemaps/xml_format.h"
#include "support/raw_server.h"
#include "support/sanitizers.h"
#include "support/scan_run.h"

namespace crawler {
namespace {

using namespace std::chrono_literals;
using support::rawAnswer;
using support::RawConnection;
using support::RawRequest;
using support::RawServer;
using support::ScanRun;
using testing::Each;
using testing::Field;
using testing::SizeIs;

constexpr std::string_view kHtml = "Content-Type: text/html\r\n";

void expectClosedDocuments(const ScanRun& run) {
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
    EXPECT_TRUE(run.file(std::string(layout.fileName)).ends_with("</html>")) << layout.fileName;
  }
  EXPECT_TRUE(run.file("sitemap.xml").ends_with(sitemaps::kXmlClosing));
}

TEST(HostileSite, CanBeLeftWhereverItHolds) {
  for (const std::string place :
       {"GET / ", "GET //robots.txt ", "GET /good.html ", "HEAD / ", "HEAD /good.html "}) {
    SCOPED_TRACE(place);
    std::latch reached(1);
    std::atomic<bool> told = false;
    const RawServer server([&](RawConnection& connection) {
      while (const auto request = connection.readRequest()) {
        if (request->head.starts_with(place)) {
          if (!told.exchange(true)) reached.count_down();
          return connection.waitForClose();
        }
        connection.answer(*request,
                          rawAnswer("200 OK", kHtml, "<title>Page</title><a href=good.html>Good</a>"));
      }
    });
    ScanRun run(server.url());
    run.httpLimits = {.connectTimeout = 1h, .silenceTimeout = 1h, .exchangeTimeout = 1h};  // end nothing
    const ScanResult result = run.scan([&](SiteScanner& scanner) {
      reached.wait();
      scanner.cancelScan();
    });
    EXPECT_EQ(result.end, ScanEnd::cancelled);
    expectClosedDocuments(run);
  }
}

/// The most memory held so far, in kilobytes.
long peakKilobytes() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6));
  }
  return -1;
}

TEST(HostileSite, CannotFillTheMemoryByItsBadPages) {
  constexpr int kBombs = 4;
  constexpr int kPages = 40;
  const std::string bomb = *platform::gzipped(std::string(80u << 20, '\0'));
  std::string anchors;  // which take some 7 MiB when they are read
  while (anchors.size() < 300u << 10) anchors += "<a>";
  const RawServer server(RawServer::answering([&](const RawRequest& request) {
    if (request.target().starts_with("/bomb"))
      return rawAnswer("200 OK", std::string(kHtml) + "Content-Encoding: gzip\r\n", bomb);
    if (request.target() != "/") return rawAnswer("200 OK", kHtml, anchors);
    std::string links;
    for (int i = 0; i < kPages; ++i) {
      links += "<a href=" + std::string(i < kBombs ? "bomb" : "page") + std::to_string(i) + ".html>x</a>";
    }
    return rawAnswer("200 OK", kHtml, links);
  }));
  ScanRun run(server.url());
  run.limits.bytes = 8u << 20;
  run.limits.bytesOfOnePage = 1u << 20;
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
  const long before = peakKilobytes();
  const ScanResult result = run.scan();
  EXPECT_EQ(result.end, ScanEnd::complete);
  EXPECT_EQ(result.progress.pagesScanned, kPages + 1);
  EXPECT_THAT(result.brokenPages, Each(Field(&store::BrokenPage::reason, "0 - The answer is too large")));
  EXPECT_THAT(result.brokenPages, SizeIs(kBombs));
  // One bomb at a time, whose turn it is, and few pages of anchors. With sanitizers nothing can be said.
  EXPECT_TRUE(support::withSanitizers() || (peakKilobytes() - before) >> 10 < 256);
}

}  // namespace
}  // namespace crawler
