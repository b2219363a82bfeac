// Processes that are killed at any moment.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "fault_test.h"
#include "platform/files.h"
#include "sitemaps/html_format.h"
#include "sitemaps/xml_format.h"
#include "store/broken_reasons.h"
#include "store/site_record.h"

namespace faults {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;

constexpr int kScanKills = 80;
constexpr int kMostRuns = 2'000;

class Killed : public FaultTest {
 protected:
  /// Kills the program at any moment of its run. False when it was faster.
  bool runAndKill(const Arguments& arguments) {
    using std::chrono::steady_clock;
    const microseconds moment(
        std::uniform_int_distribution<microseconds::rep>(0, m_usually.count())(m_random));
    const auto start = steady_clock::now();
    support::RunningProgram program(VESKEL_CLI, arguments, options());
    std::this_thread::sleep_for(moment);
    program.sendSignal(SIGKILL);
    const auto lived = std::chrono::duration_cast<microseconds>(steady_clock::now() - start);
    const auto result = program.wait();
    EXPECT_FALSE(result.timedOut);
    const bool killed = result.exitCode == 128 + SIGKILL;
    // Keeps to what the program takes, however busy the machine gets meanwhile.
    m_usually = killed ? m_usually + m_usually / 20 : lived;
    return killed;
  }

  bool chance(int oneIn) { return std::uniform_int_distribution<int>(1, oneIn)(m_random) == 1; }

 private:
  std::mt19937 m_random{20260401};
  microseconds m_usually{50'000};
};

/// Every file of the site's folder stands as it does in `before` or, the documents, as it does on the way to
/// what it is in `after`.
void expectNothingLost(const Snapshot& now, const Snapshot& before, const Snapshot& after) {
  for (const auto& [file, text] : withoutLeftovers(now)) {
    SCOPED_TRACE(file);
    ASSERT_TRUE(after.contains(file));
    const auto old = before.find(file);
    const bool isOld = old != before.end() && old->second == text;
    const bool isDocument = file.starts_with("sitemap");
    // The system may cut a write short when it kills the one who writes, so a cell need not be whole.
    EXPECT_TRUE(isOld || (isDocument ? after.at(file).starts_with(text) : after.at(file) == text))
        << text.substr(0, 2000);
  }
  for (const auto& [file, text] : before) EXPECT_TRUE(now.contains(file)) << file;
}

TEST_F(Killed, ScansLoseNothing) {
  const support::SiteServer server(manyPages(80));
  prepare({"add", "shop", server.url()});
  const Snapshot fresh = snapshotOf(site());
  const Arguments scan = {"scan", "shop", "--progress", "none"};
  prepare(scan, 1);
  const Snapshot whole = snapshotOf(site());
  ASSERT_EQ(whole.size(), 10u);  // seven documents, the broken pages, the filters, the record

  int killed = 0;
  for (int run = 0; killed < kScanKills; ++run) {
    SCOPED_TRACE("run " + std::to_string(run));
    ASSERT_LT(run, kMostRuns) << "the program is never killed in time";
    if (chance(4)) {
      for (const auto& [file, text] : snapshotOf(site())) fs::remove(site() / file);
      ASSERT_TRUE(platform::replaceFile(site() / "shop.qzVSK", fresh.at("shop.qzVSK")).ok());
    }
    Snapshot before = withoutLeftovers(snapshotOf(site()));
    const bool isNew = before.at("shop.qzVSK") == fresh.at("shop.qzVSK");
    killed += runAndKill(scan);
    const Snapshot now = snapshotOf(site());
    // A site that is scanned for the first time gets the counters it lacks before the scan's own.
    if (isNew && now.at("shop.qzVSK") == store::withMissingCounters(fresh.at("shop.qzVSK"))) {
      before["shop.qzVSK"] = now.at("shop.qzVSK");
    }
    expectNothingLost(now, before, whole);
    if (run % 10 == 9) {
      prepare(scan, 1);
      EXPECT_TRUE(snapshotOf(site()) == whole);
    }
    if (HasFailure()) return;
  }
}

/// Killed as it enters the n-th of these calls, for every n that there is. Once the list of sites was read,
/// all is as before or as after.
TEST_F(Killed, ASiteIsChangedOrNotWhereverThatEnds) {
  SKIP_WITHOUT_STRACE();
  const std::string record = store::newSiteRecord("shop", "http://a.test/");
  const std::string older = "<siteName>shop</siteName>\n<siteURL>http://a.test/</siteURL>\n";
  const Snapshot bare = {{"shop", "(folder)"}, {"shop/shop.qzVSK", record}};
  const Snapshot shop = {
      {"shop", "(folder)"}, {"shop/filters.vskp", "/kept/\n"}, {"shop/shop.qzVSK", record}};
  struct Case {
    Arguments command;
    Snapshot before;
    Snapshot after;
    int kills;  // at least
  };
  const Case cases[] = {
      {{"add", "shop", "http://a.test/"}, {}, bare, 5},
      {{"edit", "shop", "--url", "http://b.test/"},
       bare,
       {{"shop", "(folder)"}, {"shop/shop.qzVSK", store::newSiteRecord("shop", "http://b.test/")}},
       6},
      {{"filters", "shop", "--delete", "/kept/", "--add", "/new/"},
       shop,
       {{"shop", "(folder)"}, {"shop/filters.vskp", "/new/\n"}, {"shop/shop.qzVSK", record}},
       6},
      {{"delete", "shop", "--yes"}, shop, {}, 5},
      {{"edit", "shop", "--name", "store", "--url", "http://b.test/"},
       shop,
       {{"store", "(folder)"},
        {"store/filters.vskp", "/kept/\n"},
        {"store/store.qzVSK", store::newSiteRecord("store", "http://b.test/")}},
       8},
      {{"sites"}, {{"shop", "(folder)"}, {"shop/shop.qzvsk", older}, {"shop/sitemap.html", "x"}}, bare, 6},
  };
  const store::BrokenReasons reasons(store::StateFolder(ownHome.path() / "state"));
  for (const auto& [command, before, after, kills] : cases) {
    int killed = 0;
    for (const char* calls : {"mkdir", "flock", "linkat", "/^rename(at)?$", "renameat2", "fsync", "write",
                              "/^unlink$", "unlinkat", "rmdir"}) {
      for (int n = 1; n < 20; ++n) {
        SCOPED_TRACE(command[0] + ", " + calls + " " + std::to_string(n));
        fs::remove_all(data());
        fs::create_directories(before.empty() ? data() : site());
        for (const auto& [file, text] : before) {
          if (text == "(folder)") continue;
          ASSERT_TRUE(platform::replaceFile(data() / file, text).ok());
        }
        ASSERT_TRUE(reasons.save("shop", {{"u", "of shop"}}).ok());
        const std::string inject = std::string(calls) + ":signal=KILL:when=" + std::to_string(n);
        // Not with --seccomp-bpf, where strace loses the signal.
        const auto result = runUnder({"strace", "-f", "-o", "/dev/null", "-e", "inject=" + inject}, command);
        if (result.exitCode == 0) break;
        EXPECT_EQ(result.exitCode, 128 + SIGKILL);
        ++killed;

        const std::string name = fs::exists(site()) ? "shop" : "store";
        const std::string left = platform::readFile(controls().returnFullFileLocation(name)).text;
        EXPECT_TRUE(command[0] != "edit" || store::recordValue(left, store::kSiteName) == name);
        prepare({"sites"});
        const Snapshot now = withoutLeftovers(snapshotOf(data()));
        EXPECT_TRUE(now == after || (now == before && command[0] != "sites"));
        EXPECT_TRUE(before.empty() || now.empty() || reasons.lookUp(name, {"u"})[0].reason == "of shop");
        if (now == before) prepare(command);
        EXPECT_TRUE(withoutLeftovers(snapshotOf(data())) == after);
        if (snapshotOf(data()) != after) prepare({"edit", after.begin()->first, "--url", "c.test"});
        const auto files = platform::filesBelow(data());
        EXPECT_TRUE(std::none_of(files.begin(), files.end(), isLeftover));
        if (HasFailure()) return;
      }
    }
    EXPECT_GE(killed, kills) << command[0];
  }
}

}  // namespace
}  // namespace faults
