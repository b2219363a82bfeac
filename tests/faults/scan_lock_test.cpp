// Two programs at one site.
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <functional>
#include <mutex>
#include <thread>

#include "fault_test.h"
#include "platform/files.h"
#include "sitemaps/html_format.h"

namespace faults {
namespace {

namespace fs = std::filesystem;

/// Holds up whoever comes until it is opened. For some time only, so that no test hangs.
class Gate {
 public:
  void pass() {
    std::unique_lock lock(m_mutex);
    m_opened.wait_for(lock, std::chrono::seconds(30), [this] { return m_isOpen; });
  }
  void open() {
    const std::lock_guard lock(m_mutex);
    m_isOpen = true;
    m_opened.notify_all();
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_opened;
  bool m_isOpen = false;
};

bool comesTrue(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

std::map<std::string, fs::file_time_type> timesIn(const fs::path& folder) {
  std::map<std::string, fs::file_time_type> times = {{".", fs::last_write_time(folder)}};
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    times[entry.path().filename()] = entry.last_write_time();
  }
  return times;
}

using ScanLock = FaultTest;

TEST_F(ScanLock, KeepsOthersOutAndGoesWithItsProcess) {
  Gate gate;
  const auto pages = manyPages(10);
  const support::SiteServer server([&](const std::string& target, int) {
    if (target == "/page1.html") gate.pass();
    const auto found = pages.find(target);
    return found != pages.end() ? found->second : support::ServedPage{.status = 404};
  });
  prepare({"add", "shop", server.url()});
  prepare({"filters", "shop", "--add", "/first/"});
  support::RunningProgram first(VESKEL_CLI, {"scan", "shop"}, options());
  // The start page's cell in the document that is written last: from then on the scan waits at the gate.
  const sitemaps::Layout& last = sitemaps::kLayouts.back();
  ASSERT_EQ(last.listing, sitemaps::Listing::allLinks);
  ASSERT_TRUE(comesTrue([&] {
    return platform::readFile(site() / last.fileName).text.size() >
           sitemaps::documentOpening(last.columns).size();
  })) << first.errors();

  const Snapshot before = snapshotOf(data());
  const auto times = timesIn(site());
  const Arguments others[] = {{"scan", "shop"},
                              {"edit", "shop", "--url", "http://b.test/"},
                              {"edit", "shop", "--name", "store"},
                              {"edit", "shop", "--ignore-robots", "yes"},
                              {"filters", "shop", "--add", "/second/"},
                              {"delete", "shop", "--yes"}};
  for (const Arguments& other : others) {
    SCOPED_TRACE(other[0] + " " + other.back());
    const auto result = run(other);
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "The site \"shop\" is being scanned.\n");
  }
  for (const Arguments& look : {Arguments{"show", "shop"}, Arguments{"filters", "shop"}}) prepare(look);
  EXPECT_TRUE(snapshotOf(data()) == before);
  EXPECT_TRUE(timesIn(site()) == times);

  first.sendSignal(SIGKILL);
  EXPECT_EQ(first.wait().exitCode, 128 + SIGKILL);
  gate.open();
  prepare({"edit", "shop", "--ignore-robots", "yes"});
  prepare({"scan", "shop"}, 1);
}

}  // namespace
}  // namespace faults
