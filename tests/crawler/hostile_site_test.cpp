// Whole scans of sites that misbehave: each ends, blames the right page for the right reason, and uses the
// rest.
#include "crawler/hostile_site.h"

#include <chrono>
#include <fstream>
#include <semaphore>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sitemaps/xml_format.h"
#include "support/bombs.h"
#include "support/sanitizers.h"
#include "support/scan_run.h"

namespace crawler {
namespace {

using namespace std::chrono_literals;
using platform::FetchFailure;
using support::RawConnection;
using support::RawRequest;
using support::RawServer;
using support::ScanRun;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

void expectClosedDocuments(const ScanRun& run) {
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
    EXPECT_TRUE(run.file(std::string(layout.fileName)).ends_with("</html>")) << layout.fileName;
  }
  EXPECT_TRUE(run.file("sitemap.xml").ends_with(sitemaps::kXmlClosing));
}

std::string addressOfBadPage(const HostileSite& site, const Misbehaviour& misbehaviour) {
  const std::string url = site.url("/bad.html");
  return misbehaviour.link.starts_with("https") ? "https" + url.substr(4) : site.url("/" + misbehaviour.link);
}

TEST(HostileSite, SpoilsNothingButItsBadPage) {
  for (const Misbehaviour& misbehaviour : misbehaviours()) {
    SCOPED_TRACE(misbehaviour.name);
    const HostileSite site(misbehaviour);
    ScanRun run(site.url());
    if (misbehaviour.silent) run.httpLimits.silenceTimeout = 2s;
    const ScanResult& result = run.scan();
    EXPECT_EQ(result.end, ScanEnd::complete);
    EXPECT_EQ(result.progress.pagesScanned, 3);
    EXPECT_THAT(result.problems, IsEmpty());
    expectClosedDocuments(run);

    const std::string pages = run.file("sitemap1cpo.html");
    EXPECT_THAT(pages, HasSubstr("---\">Good page<!-- LINKID: "));
    const std::string bad = addressOfBadPage(site, misbehaviour);
    if (misbehaviour.reason.empty()) {
      EXPECT_TRUE(pages.find("\"" + bad + "---LINKID:") != std::string::npos);
      EXPECT_THAT(pages, HasSubstr("---\">" + misbehaviour.title + "<!-- LINKID: "));
      EXPECT_THAT(result.brokenPages, IsEmpty());
    } else {
      EXPECT_TRUE(pages.find(bad) == std::string::npos);
      EXPECT_THAT(result.brokenPages, ElementsAre(Field(&store::BrokenPage::reason, misbehaviour.reason)));
      EXPECT_TRUE(run.file("badLinks.txt") == bad + "\n");
    }
  }
}

TEST(HostileSite, IsUnreachableWhereItsStartPageMisbehaves) {
  const HostileSite site({"", [](const RawRequest& request) { return titledPage(request, ""); }});
  struct Case {
    std::string url;
    FetchFailure failure;
  };
  const Case cases[] = {
      {"http://nonexistent.invalid/", FetchFailure::nameNotResolved},
      {"http://127.0.0.1:1/", FetchFailure::connectionFailed},
      {"https" + site.url().substr(4), FetchFailure::tlsFailed},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.url);
    ScanRun run(c.url);
    EXPECT_EQ(run.scan().unreachableReason, noAnswer(c.failure));
  }
}

/// Scans the server's site, cancels as soon as `reached` says so, and expects the scan to end at once.
void expectPromptStop(const std::string& url, std::counting_semaphore<>& reached) {
  ScanRun run(url);
  run.httpLimits = {.connectTimeout = 600s, .silenceTimeout = 600s};
  std::chrono::steady_clock::time_point stopped;
  const ScanResult result = run.scan([&](SiteScanner& scanner) {
    EXPECT_TRUE(reached.try_acquire_for(60s));
    stopped = std::chrono::steady_clock::now();
    scanner.cancelScan();
  });
  // That a scan stops within a second is a promise to the user. Twice that leaves room for a busy machine.
  EXPECT_LT(std::chrono::steady_clock::now() - stopped, 2s);
  // What is over too soon to be cancelled has ended by itself.
  EXPECT_TRUE(result.end == ScanEnd::cancelled || result.end == ScanEnd::complete);
  expectClosedDocuments(run);
}

TEST(HostileSite, CanBeLeftAtAnyMoment) {
  for (const Misbehaviour& misbehaviour : misbehaviours()) {
    SCOPED_TRACE(misbehaviour.name);
    std::counting_semaphore<> reached(0);
    const HostileSite site(misbehaviour, [&] { reached.release(); });
    expectPromptStop(site.url(), reached);
  }
}

TEST(HostileSite, CanBeLeftWhereverItIsSilent) {
  // Where a scan waits for something else than the page in hand.
  const std::string silences[] = {"GET / ", "GET //robots.txt ", "GET /good.html ", "HEAD / ",
                                  "HEAD /good.html "};
  for (const std::string& silence : silences) {
    SCOPED_TRACE(silence);
    std::counting_semaphore<> reached(0);
    RawServer server([&](RawConnection& connection) {
      while (const auto request = connection.readRequest()) {
        if (request->head.starts_with(silence)) {
          reached.release();
          return connection.waitForClose();
        }
        connection.send(fullAnswer(*request, "200 OK", "Content-Type: text/html\r\n",
                                   "<title>Page</title><a href=good.html>Good</a>"));
      }
    });
    expectPromptStop(server.url(), reached);
  }
}

TEST(HostileSite, CanBeLeftInAHandshake) {
  std::counting_semaphore<> reached(0);
  RawServer server([&](RawConnection& connection) {
    reached.release();
    connection.waitForClose();
  });
  expectPromptStop("https" + server.url().substr(4), reached);
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
  };
  constexpr std::size_t kBombBytes = 512u << 20;
  std::string anchors;
  while (anchors.size() < 3u << 20) anchors += "<a>";
  const Case cases[] = {
      {"gzip", "Content-Encoding: gzip\r\n", support::gzipBomb(kBombBytes)},
      {"br", "Content-Encoding: br\r\n", support::brotliBomb(kBombBytes)},
      {"anchors", "", anchors},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::string links;
    for (int i = 0; i < 24; ++i) links += "<a href=" + std::to_string(i) + ".html>Bomb</a>";
    RawServer server(RawServer::answering([&](const RawRequest& request) {
      if (request.target() == "/") return fullAnswer(request, "200 OK", "Content-Type: text/html\r\n", links);
      return fullAnswer(request, "200 OK", "Content-Type: text/html\r\n" + c.headers, c.body);
    }));
    ScanRun run(server.url());
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
    const long before = peakKilobytes();
    EXPECT_EQ(run.scan().progress.pagesScanned, 25);
    // Six at a time of up to 4 MiB, and the one whose turn it is of up to 64.
    EXPECT_LT(peakKilobytes() - before, 320 << 10);
  }
}

}  // namespace
}  // namespace crawler
