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
    std::string link;
    std::string answer;
    std::string repeated;  // without end; else the connection is closed
    std::string reason;    // empty for a page that is used
  };
  const BadPage pages[] = {
      {"endless.html", ok + "\r\n", std::string(10'000, 'x'), "0 - The answer is too large"},
      {"broken.html", ok + "Content-Length: 9\r\n\r\nab", "", "0 - The answer was broken off or malformed"},
      {"loop.html", "HTTP/1.1 302 Found\r\nLocation: /loop.html\r\n\r\n", "", "0 - Too many redirects"},
      {std::string(8'000, 'a') + ".html", "HTTP/1.1 414 URI Too Long\r\n\r\n", "", "414 - URI Too Long"},
      {"untyped.html", "HTTP/1.1 200 OK\r\n\r\n<title>Untyped</title>", "", "200 - OK"},
      {"short.html", ok + "Content-Length: 20\r\n\r\n<title>Short</title>and more", "", ""},
  };
  const RawServer server([&](RawConnection& connection) {
    const auto request = connection.readRequest();
    if (!request) return;
    std::string links;
    for (const BadPage& page : pages) {
      links += "<a href=" + page.link + ">Link</a>";
      if (request->target() != "/" + page.link) continue;
      if (connection.send(page.answer) && !page.repeated.empty()) connection.sendForever(page.repeated);
      return;
    }
    const std::string title = request->target() == "/" ? "Start" : "Good page";
    connection.send(rawAnswerTo(*request, "200 OK", std::string(kHtml) + "Connection: close\r\n",
                                "<title>" + title + "</title>" + links + "<a href=good.html>Good</a>"));
  });
  ScanRun run(server.url());
  const ScanResult result = run.scan();
  EXPECT_EQ(result.end, ScanEnd::complete);
  EXPECT_EQ(result.progress.pagesScanned, 8);
  EXPECT_TRUE(result.problems.empty());
  expectClosedDocuments(run);
  std::vector<std::string> reasons;
  for (const store::BrokenPage& page : result.brokenPages) reasons.push_back(page.reason);
  std::vector<std::string> expected;
  std::string badLinks;
  for (const BadPage& page : pages) {
    if (page.reason.empty()) continue;
    expected.push_back(page.reason);
    badLinks += server.url("/" + page.link) + "\n";
  }
  EXPECT_EQ(reasons, expected);
  EXPECT_TRUE(run.file("badLinks.txt") == badLinks);
  const std::string used = run.file("sitemap1cpo.html");
  EXPECT_THAT(used, HasSubstr("\">Good page<!-- LINKID: "));
  EXPECT_THAT(used, HasSubstr("\">Short<!-- LINKID: "));
  EXPECT_THAT(used, Not(HasSubstr("Untyped")));
}

/// Scans with limits that end nothing, cancels once `reached` is told, and expects the scan to end.
void expectStop(const std::string& url, std::latch& reached) {
  ScanRun run(url);
  run.httpLimits = {.connectTimeout = 600s, .silenceTimeout = 600s};
  const ScanResult result = run.scan([&](SiteScanner& scanner) {
    reached.wait();
    scanner.cancelScan();
  });
  EXPECT_EQ(result.end, ScanEnd::cancelled);
  expectClosedDocuments(run);
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
    expectStop(server.url(), reached);
  }
}

TEST(HostileSite, IsNotAskedForADateAfterAStop) {
  // The limit on that question would end it too, though late.
  class Client : public platform::HttpClient {
   public:
    platform::HttpAnswer fetch(const platform::HttpRequest&, std::stop_token stop) override {
      EXPECT_TRUE(stop.stop_requested());
      return {};
    }
  };
  Client client;
  std::stop_source stop;
  stop.request_stop();
  EXPECT_EQ(askLastModified(client, "http://a.test/", stop.get_token()), "");
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
  struct Case {
    const char* name;
    std::string headers, body;
    int pages;
    long maxMegabytes;
  };
  std::string anchors;
  while (anchors.size() < 300u << 10) anchors += "<a>";
  const Case cases[] = {
      {"bombs", "Content-Encoding: br\r\n", support::brotliBomb(80u << 20), 7, 256},
      {"anchors", "", anchors, 30, 128},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::string links;
    for (int i = 0; i < c.pages; ++i) links += "<a href=" + std::to_string(i) + ".html>Bomb</a>";
    const RawServer server(RawServer::answering([&](const RawRequest& request) {
      if (request.target() == "/") return rawAnswerTo(request, "200 OK", kHtml, links);
      return rawAnswerTo(request, "200 OK", std::string(kHtml) + c.headers, c.body);
    }));
    ScanRun run(server.url());
    run.limits.bytes = 8u << 20;
    run.limits.bytesOfOnePage = 1u << 20;
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
    const long before = peakKilobytes();
    EXPECT_EQ(run.scan().progress.pagesScanned, c.pages + 1);
    // One bomb of up to 64 MiB at a time, whose turn it is; the anchors of a page take some 7.
    EXPECT_LT((peakKilobytes() - before) >> 10, c.maxMegabytes);
  }
}

}  // namespace
}  // namespace crawler
