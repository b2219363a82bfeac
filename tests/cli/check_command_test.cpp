#include <atomic>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "support/program_test.h"
#include "support/site_server.h"

namespace {

using support::ServedPage;
using support::SiteServer;
using support::words;
using testing::HasSubstr;

using CheckCommand = support::ProgramTest;

TEST_F(CheckCommand, AsksWhatTheLastScanMetAndGoesOnWhereItWasStopped) {
  std::atomic<const support::RunningProgram*> program = nullptr;
  std::atomic<int> asked = 0;
  const SiteServer outside([&](const std::string& target, int) -> ServedPage {
    if (++asked == 2) {
      program.wait(nullptr);
      program.load()->sendSignal(SIGINT);
    }
    return {.status = target == "/gone" ? 410 : 200};
  });
  const SiteServer server({{"/",
                            {"<title>S</title><a href=" + outside.url("a") + ">A</a><a href=" +
                             outside.url("gone") + ">B</a><a href=mailto:me@a.test>M</a><img src=x.png>"}}});
  prepare({"add", "shop", server.url(), "--links", "browser"});
  EXPECT_THAT(run(words("check-links shop")).errors, HasSubstr("No complete scan of \"shop\" is kept"));
  prepare(words("scan shop"));

  support::RunningProgram check(VESKEL_CLI, words("check-links shop"), options());
  program = &check;
  program.notify_all();
  EXPECT_EQ(check.wait().exitCode, 130);
  const auto rest = run(words("check-links shop --json"));
  EXPECT_EQ(rest.exitCode, 1) << rest.errors;
  const auto json = nlohmann::json::parse(rest.output);
  ASSERT_EQ(json.size(), 2u);
  EXPECT_EQ(json[0]["state"], "fine");
  EXPECT_EQ(json[1]["reason"], "410 - Gone");
  EXPECT_EQ(outside.timesAsked("HEAD /a"), 1);
  // The next one asks all again.
  EXPECT_THAT(run(words("check-links shop --resources")).output,
              AllOf(HasSubstr("3 addresses: 1 fine, 0 moved, 2 broken, 0 could not be checked\n"),
                    HasSubstr("x.png (404 - Not Found)\n      on " + server.url() + "\n")));
  EXPECT_EQ(outside.timesAsked("HEAD /a"), 2);
}

}  // namespace
