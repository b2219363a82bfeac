// Whole scans of sites that misbehave: they end, blame the right page for the right reason, and use the rest.
#include <fstream>
#include <functional>
#include <latch>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sitemaps/xml_format.h"
#include "support/bombs.h"
#include "support/raw_server.h"
#include "support/sanitizers.h"
#include "support/scan_run.h"

namespace crawler {
namespace {

using namespace std::chrono_literals;
using support::rawAnswerTo;
using support::RawConnection;
using support::RawRequest;
using support::RawServer;
using support::ScanRun;
using testing::HasSubstr;
using testing::Not;

constexpr std::string_view kHtml = "Content-Type: text/html\r\n";

void expectClosedDocuments(const ScanRun& run) {
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
    EXPECT_TRUE(run.file(std::string(layout.fileName)).ends_with("</html>")) << layout.fileName;
  }
  EXPECT_TRUE(run.file("sitemap.xml").ends_with(sitemaps::kXmlClosing));
}

TEST(HostileSite, SpoilsNothingButItsBadPages) {
  const std::string ok = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n";
  struct BadPage {
    const char* target;
    std::string answer;  // and then the connection is closed
    const char* reason;
  };
  const std::vector<BadPage> pages = {
      {"/broken.html", ok + "Content-Length: 9\r\n\r\nab", "0 - The answer was broken off or malformed"},
      {"/untyped.html", "HTTP/1.1 200 OK\r\n\r\n<title>Untyped</title>", "200 - OK"},
      {"/endless.html", ok + "\r\n", "0 - The answer is too large"},
  };
  std::string links;
  for (const BadPage& page : pages) links += "<a href=" + std::string(page.target + 1) + ">Bad</a>";
  const RawServer server([&](RawConnection& connection) {
    const auto request = connection.readRequest();
    if (!request) return;
    for (const BadPage& page : pages) {
      if (request->target() != page.target) continue;
      connection.send(page.answer);
      if (&page == &pages.back()) connection.sendForever(std::string(10'000, 'x'));
      return;
    }
    connection.send(rawAnswerTo(*request, "200 OK", std::string(kHtml) + "Connection: close\r\n",
                                "<title>Good</title>" + links + "<a href=good.html>Good</a>"));
  });
  ScanRun run(server.url());
  const ScanResult result = run.scan();
  EXPECT_EQ(result.end, ScanEnd::complete);
  EXPECT_EQ(result.progress.pagesScanned, 5);
  expectClosedDocuments(run);
  ASSERT_EQ(result.brokenPages.size(), pages.size());
  for (std::size_t i = 0; i < pages.size(); ++i) {
    EXPECT_EQ(result.brokenPages[i].url, server.url(pages[i].target));
    EXPECT_EQ(result.brokenPages[i].reason, pages[i].reason);
  }
  EXPECT_THAT(run.file("sitemap1cpo.html"), HasSubstr("good.html---LINKID:"));
  EXPECT_THAT(run.file("sitemap1cpo.html"), Not(HasSubstr("Untyped")));
}

TEST(HostileSite, CanBeLeftWhereverItHolds) {
  const std::string endless =
      "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nTransfer-Encoding: chunked\r\n\r\n1;";
  const std::pair<std::string, std::string> cases[] = {
      {"GET / ", ""},  {"GET //robots.txt ", ""}, {"GET /good.html ", ""},
      {"HEAD / ", ""}, {"HEAD /good.html ", ""},  {"GET /good.html ", endless},
  };
  for (const auto& [place, answer] : cases) {
    SCOPED_TRACE(place + answer);
    std::latch reached(1);
    std::atomic<bool> told = false;
    const RawServer server([&, &start = place, &sent = answer](RawConnection& connection) {
      while (const auto request = connection.readRequest()) {
        if (request->head.starts_with(start)) {
          connection.send(sent);
          if (!told.exchange(true)) reached.count_down();
          if (sent.empty()) return connection.waitForClose();
          return connection.sendForever("x", 10ms);
        }
        connection.send(
            rawAnswerTo(*request, "200 OK", kHtml, "<title>Page</title><a href=good.html>Good</a>"));
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

TEST(HostileSite, CannotFillTheMemory) {
  if (support::withSanitizers()) GTEST_SKIP() << "memory cannot be judged with sanitizers";
  constexpr int kBombs = 4;
  constexpr int kPages = 40;
  const std::string bomb = support::brotliBomb(80u << 20);
  std::string anchors;  // which take some 7 MiB when they are read
  while (anchors.size() < 300u << 10) anchors += "<a>";
  const RawServer server(RawServer::answering([&](const RawRequest& request) {
    if (request.target().starts_with("/bomb"))
      return rawAnswerTo(request, "200 OK", std::string(kHtml) + "Content-Encoding: br\r\n", bomb);
    if (request.target() != "/") return rawAnswerTo(request, "200 OK", kHtml, anchors);
    std::string links;
    for (int i = 0; i < kPages; ++i) {
      links += "<a href=" + std::string(i < kBombs ? "bomb" : "page") + std::to_string(i) + ".html>x</a>";
    }
    return rawAnswerTo(request, "200 OK", kHtml, links);
  }));
  ScanRun run(server.url());
  run.limits.bytes = 8u << 20;
  run.limits.bytesOfOnePage = 1u << 20;
  std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
  const long before = peakKilobytes();
  EXPECT_EQ(run.scan().progress.pagesScanned, kPages + 1);
  // One bomb at a time, whose turn it is, and few pages of anchors.
  EXPECT_LT((peakKilobytes() - before) >> 10, 256);
}

}  // namespace
}  // namespace crawler
