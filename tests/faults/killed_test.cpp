// Processes that are killed at any moment.
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "fault_test.h"
#include "platform/files.h"
#include "sitemaps/html_format.h"
#include "sitemaps/xml_format.h"
#include "store/site_record.h"

namespace faults {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using testing::AnyOf;
using testing::Eq;

constexpr int kScanKills = 80;
constexpr int kEditKills = 40;
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

TEST_F(Killed, EditsAreDoneOrNot) {
  prepare({"add", "shop", "http://a.test/"});
  prepare({"filters", "shop", "--add", "/first/"});
  const Arguments edits[] = {{"edit", "shop", "--url", "http://a.test/" + std::string(3000, 'a')},
                             {"filters", "shop", "--add", std::string(5000, 'f')},
                             {"edit", "shop", "--ignore-robots", "yes"},
                             {"filters", "shop", "--delete", std::string(5000, 'f')},
                             {"edit", "shop", "--ignore-robots", "no"},
                             {"edit", "shop", "--url", "http://b.test/"}};
  const support::TempFolder twin;  // where the same edits happen without being killed
  int killed = 0;
  for (int run = 0; killed < kEditKills; ++run) {
    const Arguments& edit = edits[static_cast<std::size_t>(run) % std::size(edits)];
    SCOPED_TRACE("run " + std::to_string(run) + ": " + edit[0] + " " + edit[2]);
    ASSERT_LT(run, kMostRuns) << "the program is never killed in time";
    const Snapshot before = withoutLeftovers(snapshotOf(data()));
    fs::copy(ownHome.path(), twin.path(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    useHome(twin.path());
    prepare(edit);
    const Snapshot after = withoutLeftovers(snapshotOf(data()));
    useHome(ownHome.path());

    killed += runAndKill(edit);
    const Snapshot now = withoutLeftovers(snapshotOf(data()));
    EXPECT_TRUE(now == before || now == after);
    if (now == before) prepare(edit);
    EXPECT_TRUE(withoutLeftovers(snapshotOf(data())) == after);
    if (HasFailure()) return;
  }
  prepare({"edit", "shop", "--url", "http://end.test/"});
  EXPECT_THAT(platform::filesBelow(site()), testing::ElementsAre("filters.vskp", "shop.qzVSK"));
}

/// Killed as it enters the n-th of these calls, for every n that there is.
TEST_F(Killed, ARenameIsUsableWhereverItEnds) {
  SKIP_WITHOUT_STRACE();
  const auto recordOf = [this](const std::string& name) {
    return platform::readFile(controls().returnFullFileLocation(name)).text;
  };
  int killed = 0;
  for (const char* calls : {"renameat2", "/^rename(at)?$", "linkat", "fsync", "write"}) {
    for (int n = 1; n < 10; ++n) {
      SCOPED_TRACE(std::string(calls) + " " + std::to_string(n));
      fs::remove_all(data());
      prepare({"add", "shop", "http://a.test/"});
      prepare({"filters", "shop", "--add", "/kept/"});
      const std::string inject = std::string(calls) + ":signal=KILL:when=" + std::to_string(n);
      // Not with --seccomp-bpf, where strace loses the signal.
      const auto result = runUnder({"strace", "-f", "-o", "/dev/null", "-e", "inject=" + inject},
                                   {"edit", "shop", "--name", "store", "--url", "http://b.test/"});
      if (result.exitCode == 0) break;
      EXPECT_EQ(result.exitCode, 128 + SIGKILL);
      ++killed;

      const auto sites = run({"sites", "--json"});
      EXPECT_EQ(sites.exitCode, 0) << sites.errors;
      const std::string name = fs::exists(site()) ? "shop" : "store";
      EXPECT_THAT(recordOf(name), AnyOf(Eq(store::newSiteRecord(name, "http://a.test/")),
                                        Eq(store::newSiteRecord("shop", "http://a.test/")),
                                        Eq(store::newSiteRecord(name, "http://b.test/"))));
      // Whatever was left behind is gone after the next edit.
      const auto edited = run({"edit", name, "--url", "http://c.test/"});
      EXPECT_EQ(edited.exitCode, 0) << edited.errors;
      EXPECT_THAT(platform::filesBelow(data()),
                  testing::ElementsAre(name + "/filters.vskp", name + "/" + name + ".qzVSK"));
    }
  }
  EXPECT_GE(killed, 6);  // three renames, and the calls of a replacement
}

/// A site that is added or deleted is there whole or not at all, and its name can be used again.
TEST_F(Killed, ASiteIsAddedAndDeletedWholeWhereverThatEnds) {
  SKIP_WITHOUT_STRACE();
  const Arguments add = {"add", "shop", "http://a.test/"};
  const Arguments remove = {"delete", "shop", "--yes"};
  const std::string record = store::newSiteRecord("shop", "http://a.test/");
  for (const Arguments& command : {add, remove}) {
    int killed = 0;
    for (const char* calls :
         {"mkdir", "flock", "linkat", "/^rename(at)?$", "renameat2", "fsync", "write", "unlinkat", "rmdir"}) {
      for (int n = 1; n < 10; ++n) {
        SCOPED_TRACE(command[0] + ", " + calls + " " + std::to_string(n));
        fs::remove_all(data());
        if (command == remove) {
          prepare(add);
          prepare({"filters", "shop", "--add", "/kept/"});
        } else {
          prepare({"sites"});
        }
        const Snapshot before = snapshotOf(data());
        const std::string inject = std::string(calls) + ":signal=KILL:when=" + std::to_string(n);
        const auto result = runUnder({"strace", "-f", "-o", "/dev/null", "-e", "inject=" + inject}, command);
        if (result.exitCode == 0) break;
        EXPECT_EQ(result.exitCode, 128 + SIGKILL);
        ++killed;

        const auto sites = run({"sites", "--json"});
        EXPECT_EQ(sites.exitCode, 0) << sites.errors;
        const Snapshot now = snapshotOf(data());
        const Snapshot added = {{"shop", "(folder)"}, {"shop/shop.qzVSK", record}};
        EXPECT_TRUE(now.empty() || now == (command == add ? added : before));
        if (!now.empty()) prepare(remove);
        prepare(add);
        EXPECT_TRUE(snapshotOf(data()) == added);
        if (HasFailure()) return;
      }
    }
    EXPECT_GE(killed, command == add ? 5 : 4);
  }
}

}  // namespace
}  // namespace faults
