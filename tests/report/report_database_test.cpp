#include "report/report_database.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "report/report_writer.h"
#include "support/scan_run.h"
#include "support/site_server.h"

namespace report {
namespace {

using crawler::PageStanding;
using support::SiteServer;
using Use = ReportDatabase::Use;

/// A site that is scanned with a report.
class Reported : public testing::Test {
 protected:
  SiteServer::Pages pages = {
      {"/",
       {"<title>Start</title><a href=a.html>A</a><a href=a.html>Again</a><a href=b.html></a>"
        "<a href=gone.html>Gone</a><a href=http://out.test/>Out</a>"}},
      {"/a.html",
       {"<title>A \xC3\xA4</title><a href=gone.html>Lost</a><a href=b.html>B</a>", "text/html; charset=utf-8",
        200, "Tue, 15 Jun 2010 12:00:00 GMT"}},
      {"/b.html", {"<title>B</title><a href=http://out.test/>Away</a>"}}};
  SiteServer server{[this](const std::string& target, int) { return support::pageOf(pages, target); }};
  support::ScanRun run{server.url()};

  crawler::ScanResult scan() {
    ReportWriter log(run.state(), "Site");
    run.log = &log;
    return run.scan();
  }
  ReportDatabase database(Use use = Use::read) { return {run.state(), "Site", use}; }
  std::filesystem::path file() const { return run.state().ofSite("Site") / "report.db"; }
};

TEST_F(Reported, HoldsWhatTheScanMet) {
  ASSERT_TRUE(scan().reportKept.ok());
  ReportDatabase report = database();
  const std::vector<ScanFacts> kept = report.keptScans();
  ASSERT_EQ(kept.size(), 1u);
  EXPECT_TRUE(kept[0].isComplete());
  EXPECT_EQ(kept[0].pagesFound, 4);
  EXPECT_EQ(kept[0].broken, 1);
  const ScanContents contents = report.contents(kept[0]);
  struct Case {
    const char* target;
    const char* title;
    PageStanding standing;
    int level;
    std::uint32_t linkedFrom;
    const char* reason;
  };
  const Case cases[] = {{"", "Start", PageStanding::listed, 0, 0, ""},
                        {"a.html", "A \xC3\xA4", PageStanding::listed, 1, 1, ""},
                        {"b.html", "B", PageStanding::listed, 1, 2, ""},
                        {"gone.html", "Missing", PageStanding::broken, 1, 2, "404 - Not Found"}};
  ASSERT_EQ(contents.pages.size(), std::size(cases));
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    const Page& page = contents.pages[i];
    SCOPED_TRACE(page.address);
    EXPECT_EQ(page.number, i);
    EXPECT_EQ(page.address, server.url(cases[i].target));
    EXPECT_EQ(page.title, cases[i].title);
    EXPECT_EQ(page.standing, cases[i].standing);
    EXPECT_EQ(page.level, cases[i].level);
    EXPECT_EQ(page.linkedFrom, cases[i].linkedFrom);
    EXPECT_EQ(page.brokenReason, cases[i].reason);
    EXPECT_GT(page.bytes, 0);
  }
  EXPECT_EQ(contents.pages[1].modified, "Tue, 15 Jun 2010 12:00:00 GMT");
  EXPECT_EQ(contents.pages[1].type, "text/html");
  ASSERT_EQ(contents.outside.size(), 1u);
  EXPECT_EQ(contents.outside[0].address, "http://out.test/");
  EXPECT_EQ(contents.outside[0].linkedFrom, 2u);

  const Target gone{false, 3};
  const Target outside{true, 0};
  std::string links;
  for (const auto& [target, pagesThere] : report.linksTo(kept[0], {gone, outside})) {
    for (const LinkingPage& page : pagesThere) {
      links += (target == gone ? "gone " : "out ") + page.address.substr(server.url().size()) + ":" +
               page.name + " ";
    }
  }
  EXPECT_EQ(links, "gone :Gone gone a.html:Lost out :Out out b.html:Away ");
}

TEST_F(Reported, KeepsTwoCompleteScansAndTheCountsOfAll) {
  for (int i = 0; i < 3; ++i) scan();
  run.settings.site.maxPages = 2;
  scan();
  ReportDatabase report = database();
  std::string history;
  for (const ScanFacts& facts : report.history()) history += facts.end + std::to_string(facts.id) + " ";
  EXPECT_EQ(history, "cancelled4 complete3 complete2 complete1 ");
  EXPECT_EQ(report.keptScans().size(), 2u);
  EXPECT_EQ(report.contents(report.keptScans()[1]).pages.size(), 4u);
  EXPECT_TRUE(report.contents({.id = 1}).pages.empty());
}

TEST_F(Reported, KeepsTheFirstHundredLinksToAPage) {
  pages.clear();
  for (int i = 0; i < 120; ++i) {
    pages["/"].body += "<a href=" + std::to_string(i) + ".html>x</a>";
    pages["/" + std::to_string(i) + ".html"].body = "<a href=gone.html>" + std::string(300, 'x') + "</a>";
  }
  scan();
  ReportDatabase report = database();
  const ScanContents contents = report.contents(report.keptScans()[0]);
  const Page& gone = contents.pages.back();
  EXPECT_EQ(gone.linkedFrom, 120u);
  const auto links = report.linksTo(contents.facts, {{false, gone.number}});
  ASSERT_EQ(links.size(), 1u);
  EXPECT_EQ(links.begin()->second.size(), kLinkingPagesKept);
  EXPECT_EQ(links.begin()->second[0].name.size(), 200u);
}

TEST_F(Reported, SetsAsideWhatItCannotUse) {
  const auto damage = [&](std::size_t at, const std::string& bytes) {
    std::fstream(file(), std::ios::in | std::ios::out | std::ios::binary).seekp(static_cast<long>(at))
        << bytes;
  };
  struct Case {
    const char* name;
    std::function<void()> harm;
    const char* notice;
  };
  const Case cases[] = {
      {"no database", [&] { damage(0, "Something else"); }, "damaged"},
      {"damaged inside", [&] { damage(16384, std::string(32768, '\xFF')); }, "damaged"},
      {"newer",
       [&] { platform::Database(file(), platform::Database::Access::write).run("PRAGMA user_version = 9"); },
       "written by a newer version"},
      {"older",
       [&] { platform::Database(file(), platform::Database::Access::write).run("PRAGMA user_version = 1"); },
       "written by an older version"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.name);
    scan();
    each.harm();
    const crawler::ScanResult result = scan();
    EXPECT_EQ(result.end, crawler::ScanEnd::complete);
    EXPECT_TRUE(result.reportKept.ok()) << result.reportKept.error;
    EXPECT_THAT(result.reportNotice, testing::HasSubstr(each.notice));
    EXPECT_TRUE(std::filesystem::exists(file().native() + ".set-aside"));
    ReportDatabase report = database();
    EXPECT_EQ(report.history().size(), 1u);
    EXPECT_TRUE(report.result().ok());
  }
}

TEST_F(Reported, ScansAllTheSameWhereItCannotBeKept) {
  std::filesystem::create_directories(file());
  const crawler::ScanResult result = scan();
  EXPECT_EQ(result.end, crawler::ScanEnd::complete);
  EXPECT_FALSE(result.reportKept.ok());
  EXPECT_TRUE(result.problems.empty());
}

TEST(Report, IsMissingBeforeTheFirstScan) {
  const support::TempFolder home;
  const store::StateFolder state(home.path());
  EXPECT_EQ(ReportDatabase(state, "Site", Use::read).result().status, platform::FileStatus::missing);
  ASSERT_TRUE(platform::makeFolders(state.ofSite("Site")).ok());
  std::ofstream(state.ofSite("Site") / "report.db");
  EXPECT_EQ(ReportDatabase(state, "Site", Use::read).result().status, platform::FileStatus::missing);
}

}  // namespace
}  // namespace report
