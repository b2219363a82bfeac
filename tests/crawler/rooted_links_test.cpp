// Links from the root lose the port, so a site that uses them can be scanned at the standard port alone. That
// port is had in a network namespace of the test's own.
#include <cstdio>
#include <cstring>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/scan_run.h"
#include "support/site_server.h"

namespace crawler {
namespace {

using support::ScanRun;

constexpr int kPassed = 0;
constexpr int kFailed = 1;
constexpr int kNoNamespace = 77;

bool enterNetworkOfOurOwn() {
  if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
  const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  ifreq loopback{};
  std::strncpy(loopback.ifr_name, "lo", sizeof loopback.ifr_name - 1);
  loopback.ifr_flags = IFF_UP | IFF_RUNNING;
  const bool up = ioctl(descriptor, SIOCSIFFLAGS, &loopback) == 0;
  close(descriptor);
  return up;
}

void scanAtStandardPort() {
  const support::SiteServer server({{"/", {"<title>Start</title><a href=\"/a/b.html\">B</a>"}},
                                    {"/a/b.html", {"<title>B</title><a href=\"/d.html\">D</a>"}},
                                    {"/d.html", {"<title>D</title>"}}},
                                   80);
  ScanRun run("http://127.0.0.1/");
  EXPECT_THAT(
      ScanRun::pagesOf(run.scan()),
      testing::ElementsAre("http://127.0.0.1/", "http://127.0.0.1/a/b.html", "http://127.0.0.1/d.html"));
  EXPECT_EQ(run.file("badLinks.txt"), "(missing)");
}

TEST(RootedLinks, LeadIntoTheSiteAtTheStandardPort) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    if (!enterNetworkOfOurOwn()) _exit(kNoNamespace);
    scanAtStandardPort();
    std::fflush(nullptr);  // what failed is told by the child
    _exit(testing::Test::HasFailure() ? kFailed : kPassed);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  if (WEXITSTATUS(status) == kNoNamespace) GTEST_SKIP() << "no network namespace can be made here";
  EXPECT_EQ(WEXITSTATUS(status), kPassed);
}

}  // namespace
}  // namespace crawler
