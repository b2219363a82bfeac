#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "support/program_test.h"
#include "support/site_server.h"

namespace {

using support::Arguments;
using support::SiteServer;
using support::words;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

/// A site that is scanned by the program, and changes.
class ReportCommand : public support::ProgramTest {
 protected:
  SiteServer::Pages pages = {
      {"/", {"<title>Start</title><a href=a.html>A\x1B</a><a href=gone.html>Gone</a>"}},
      {"/a.html", {"<title>A</title><a href=gone.html>Lost</a>"}}};
  SiteServer server{[this](const std::string& target, int) { return support::pageOf(pages, target); }};

  void SetUp() override {
    ProgramTest::SetUp();
    prepare({"add", "shop", server.url()});
  }
  auto scan(const std::string& failOn = "broken") {
    return run(words("scan shop --progress none --fail-on " + failOn));
  }
  std::filesystem::path database() const { return home.path() / "state/veskel/sites/shop/report.db"; }
};

TEST_F(ReportCommand, TellsChangesAndFailsAsAsked) {
  const auto breakMore = [&] { pages["/"].body += "<a href=more.html>More</a>"; };
  struct Case {
    const char* name;
    std::function<void()> change;
    const char* failOn;
    int exitCode;
    const char* told;
  };
  const Case cases[] = {
      {"first scan: every broken page is new", [] {}, "new-broken", 1, "Broken               1\n"},
      {"as before", [] {}, "new-broken", 0,
       "0 pages new, 0 gone, 0 renamed.\nNewly broken: 0, repaired: 0.\n"},
      {"as before, and broken", [] {}, "broken", 1, "Newly broken: 0, repaired: 0.\n"},
      {"more broken", breakMore, "new-broken", 1, "more.html), repaired: 0.\n"},
      {"never", [&] { pages.erase("/a.html"); }, "never", 0,
       "0 pages new, 0 gone, 0 renamed.\nNewly broken: 1"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    each.change();
    const auto result = scan(each.failOn);
    EXPECT_EQ(result.exitCode, each.exitCode);
    EXPECT_THAT(result.output, HasSubstr(each.told));
  }
  const auto changes = run(words("show shop --changes"));
  EXPECT_EQ(changes.output, "0 pages new, 0 gone, 0 renamed.\nNewly broken: 1 (" + server.url("a.html") +
                                "), repaired: 0.\n");
  EXPECT_THAT(run(words("scan shop --progress json")).output,
              EndsWith("{\"event\":\"changes\",\"new\":0,\"gone\":0,\"renamed\":0,\"newlyBroken\":0,"
                       "\"repaired\":0}\n"));
}

TEST_F(ReportCommand, PrintsAndWritesTheReport) {
  scan();
  const auto summary = run(words("report shop"));
  EXPECT_EQ(summary.exitCode, 0);
  EXPECT_THAT(summary.output, HasSubstr("  Pages used             2\n  Broken                 1\n"));
  EXPECT_THAT(summary.output, HasSubstr(server.url("gone.html") + " (404 - Not Found)\n      \"Gone\" on " +
                                        server.url() + "\n      \"Lost\" on " + server.url("a.html") + "\n"));
  EXPECT_THAT(run(words("show shop --changes")).errors, HasSubstr("nothing to compare it with"));
  struct Case {
    const char* arguments;
    int exitCode;
    const char* told;  // on either stream
  };
  const Case cases[] = {
      {"report shop --format html", 0, "<!DOCTYPE html>\n"},
      {"report shop --output - --format csv", 0, "URL,Status,Standing,"},
      {"report shop --broken --format csv", 0, "URL,Status,Reason,Linking page,Link\r\n"},
      {"report shop --broken", 0, "\"Lost\" on "},
      {"report shop --output -", 2, "Which format?"},
      {"report shop --output x.pdf", 2, "Which format?"},
      {"report shop --output x.html --broken", 2, "--broken is for"},
      {"report none", 2, "There is no site named \"none\".\n"},
      {"report none --output x.html", 2, "There is no site named \"none\".\n"},
      {"report shop --output /dev/null/x.html", 4, "Could not write /dev/null/x.html: Not a directory"},
      {"show shop --changes --json", 2, "excludes"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.arguments);
    const auto result = run(words(each.arguments));
    EXPECT_EQ(result.exitCode, each.exitCode);
    EXPECT_THAT(result.exitCode == 0 ? result.output : result.errors, HasSubstr(each.told));
  }
  const std::string file = (home.path() / "r.JSON").native();
  EXPECT_EQ(run({"report", "shop", "--output", file}).output, "Written to " + file + "\n");
  EXPECT_EQ(nlohmann::json::parse(platform::readFile(file).text)["pages"].size(), 3u);
  EXPECT_EQ(run({"report", "shop", "--output", file}).exitCode, 4);
  EXPECT_EQ(run({"report", "shop", "--output", file, "--force"}).exitCode, 0);
}

TEST_F(ReportCommand, SaysWhyThereIsNoReport) {
  struct Case {
    const char* name;
    std::function<void()> harm;
    const char* error;
  };
  const Case cases[] = {
      {"not scanned", [] {}, "There is no report of \"shop\" yet: a scan that is complete makes one.\n"},
      {"stopped", [&] { run(words("scan shop --progress none --max-pages 1")); },
       "There is no report of \"shop\" yet"},
      {"damaged",
       [&] {
         scan();
         ASSERT_TRUE(platform::replaceFile(database(), std::string(100, 'x')).ok());
       },
       "The report of \"shop\" could not be read. The report is damaged. The next scan makes a new one.\n"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    each.harm();
    for (const char* arguments : {"report shop", "show shop --changes"}) {
      const auto result = run(words(arguments));
      EXPECT_EQ(result.exitCode, 4);
      EXPECT_EQ(result.output, "");
      EXPECT_THAT(result.errors, testing::StartsWith(each.error));
    }
  }
  // A scan as good as any other, with nothing to compare it with.
  const auto result = scan("new-broken");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.output, Not(HasSubstr("Newly broken")));
}

}  // namespace
