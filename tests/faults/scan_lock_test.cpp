// Two programs at one site.
#include <csignal>

#include "fault_test.h"
#include "platform/files.h"
#include "sitemaps/html_format.h"
#include "sitemaps/layouts.h"
#include "support/slow_site.h"
#include "support/waiting.h"

namespace faults {
namespace {

using ScanLock = FaultTest;

TEST_F(ScanLock, KeepsOthersOutAndGoesWithItsProcess) {
  support::SlowSite server(manyPages(10), "/page1.html");
  prepare({"add", "shop", server.url()});
  prepare({"filters", "shop", "--add", "/first/"});
  support::RunningProgram first(VESKEL_CLI, {"scan", "shop"}, options());
  // The start page's cell in the document that is written last: from then on the scan waits at the gate.
  const sitemaps::Layout& last = sitemaps::kLayouts.back();
  ASSERT_EQ(last.listing, sitemaps::Listing::allLinks);
  ASSERT_TRUE(support::comesTrue([&] {
    return platform::readFile(site() / last.fileName).text.size() >
           sitemaps::documentOpening(last.columns).size();
  })) << first.errors();

  const Snapshot before = snapshot();
  const Arguments others[] = {{"scan", "shop"},
                              {"edit", "shop", "--url", "http://b.test/"},
                              {"edit", "shop", "--name", "store"},
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
  EXPECT_TRUE(snapshot() == before);

  first.sendSignal(SIGKILL);
  EXPECT_EQ(first.wait().exitCode, 128 + SIGKILL);
  server.release();
  prepare({"edit", "shop", "--ignore-robots", "yes"});
  prepare({"scan", "shop"}, 1);
}

}  // namespace
}  // namespace faults
