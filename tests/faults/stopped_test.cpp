// Scans that are ended from outside close what they have begun.
#include <atomic>
#include <csignal>
#include <functional>

#include "fault_test.h"
#include "platform/files.h"

namespace faults {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

using Stopped = FaultTest;

/// A site without end, that tells when its twentieth page is asked for.
support::SiteServer endlessSite(const std::function<void()>& onTwentieth) {
  return support::SiteServer([onTwentieth](const std::string& target, int) -> support::ServedPage {
    const int number = target == "/" ? 0 : std::atoi(target.c_str() + 1);
    if (number == 20) onTwentieth();
    const std::string next = std::to_string(number + 1);
    return {"<title>" + next + "</title><a href=" + next + ".html>" + next + "</a>"};
  });
}

TEST_F(Stopped, BySignals) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    SCOPED_TRACE(signal);
    std::atomic<const support::RunningProgram*> program = nullptr;
    const support::SiteServer server = endlessSite([&] {
      program.wait(nullptr);
      program.load()->sendSignal(signal);
    });
    prepare({"add", "shop", server.url()});
    support::RunningProgram scan(VESKEL_CLI, {"scan", "shop"}, options());
    program = &scan;
    program.notify_all();
    const auto result = scan.wait();
    EXPECT_EQ(result.exitCode, 130);
    EXPECT_THAT(result.output, HasSubstr("Stopped the scan of \"shop\" after "));
    EXPECT_THAT(platform::readFile(site() / "sitemap.xml").text, EndsWith("\n</urlset>"));
    prepare({"delete", "shop", "--yes"});
  }
}

TEST_F(Stopped, WhenNobodyReadsOn) {
  const support::SiteServer server = endlessSite([] {});
  prepare({"add", "shop", server.url()});
  const std::string code = home.path() / "code";
  for (const std::string progress : {"--progress json", "--progress bar 2>&1"}) {
    SCOPED_TRACE(progress);
    const std::string line =
        "{ '" VESKEL_CLI "' scan shop " + progress + "; echo $? >'" + code + "'; } | head -c 20";
    const auto result = support::runProgram("/bin/sh", {"-c", line}, options());
    EXPECT_EQ(result.output.size(), 20u);
    EXPECT_EQ(platform::readFile(code).text, "4\n");
    EXPECT_THAT(platform::readFile(site() / "sitemap.xml").text, EndsWith("\n</urlset>"));
  }
}

}  // namespace
}  // namespace faults
