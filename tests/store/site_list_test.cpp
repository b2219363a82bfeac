#include "store/site_list.h"

#include <map>
#include <string>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "store/broken_reasons.h"
#include "store/site_record.h"
#include "store_test.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kOlder =
    "<siteName>Old</siteName>\n<siteURL>http://old.test/</siteURL>\n<ignoreRobotFile>YES</ignoreRobotFile>\n"
    "<pagesFound>5</pagesFound>\n<totalLinks>6</totalLinks>";

using SiteListTest = StoreTest;

std::string record(const std::string& name, const std::string& url = "http://a.test/") {
  return store::newSiteRecord(name, url) + "\n<pagesUsed>7</pagesUsed>\nx";
}

TEST_F(SiteListTest, ListsFoldersThatHoldARecordOnceByName) {
  for (const char* file :
       {"b/b.qzVSK", "b/c.qzVSK", "a b/a b.qzVSK", "a/a.qzVSK", "B/B.qzVSK", "c/C.QZVSK", "d/sitemap.xml",
        "e/.qzVSK", "stray.qzVSK", "f/f.qzVSK.bak", "g/h/h.qzVSK", "hidden/hidden.qzVSK/in the way"}) {
    write(file, "x");
  }
  ASSERT_EQ(mkfifo((data() / "d" / "d.qzVSK").c_str(), 0600), 0);
  const auto before = snapshot();
  EXPECT_THAT(list().names, ElementsAre("B", "a", "a b", "b", "d", "g/h", "hidden"));
  EXPECT_FALSE(list().updatedOldFile);
  EXPECT_THAT(list().problems, ElementsAre());
  EXPECT_EQ(snapshot(), before);
  EXPECT_EQ(store::readSite(controls, "d").result.error, "Not a regular file");
}

TEST_F(SiteListTest, ClearsAwayWhatWasLeftUnfinished) {
  const std::string atWork = platform::temporaryName();
  const std::string left = platform::temporaryName();
  write(atWork + "/a.qzVSK", record("a"));
  write(left + "/a.qzvsk", kOlder);
  write(".veskel-0/mine", "x");
  {
    const platform::FolderLock somebodyAtWork(data() / atWork);
    EXPECT_THAT(list().names, ElementsAre());
    EXPECT_THAT(platform::filesBelow(data()), ElementsAre(".veskel-0/mine", atWork + "/a.qzVSK"));
  }
  EXPECT_FALSE(list().updatedOldFile);
  EXPECT_THAT(platform::filesBelow(data()), ElementsAre(".veskel-0/mine"));
}

using Files = std::map<std::string, std::string>;

TEST_F(SiteListTest, PutsRightWhatIsNotAsItShouldBe) {
  struct Case {
    const char* name;
    Files before;
    Files after;
  };
  const Files twoSites = {{"b/b.qzVSK", record("b")}, {"b/c.qzVSK", "y" + record("c")}};
  const Files ownCopy = {{"b/b.qzVSK", record("b")}, {"b/copy.qzVSK", record("b")}};
  const Files unknown = {{"b/c.qzVSK", record("c")}, {"b/d.qzVSK", record("d")}};
  const Files foreign = {{"b/record.qzVSK", record("c")}};
  const Files nameless = {{"b/b.qzVSK", "<siteURL>http://a.test/</siteURL>"}};
  const Files nested = {{"b/c/d.qzVSK", record("d")}};
  const Files noRecord = {{"b/b.qzvsk", "a file of some other program"}};
  const Files fresh = {{"b/b.qzVSK", store::newSiteRecord("b", "http://a.test/")}};
  const std::string older = "<siteName>b</siteName>\n<siteURL>http://a.test/</siteURL>\nmore";
  const Case cases[] = {
      {"folder renamed by hand", {{"b/a.qzVSK", record("a")}}, {{"b/b.qzVSK", record("b")}}},
      {"record renamed too", {{"b/b.qzVSK", record("a")}}, {{"b/b.qzVSK", record("b")}}},
      {"no other case is the same", {{"b/b.qzVSK", record("B")}}, {{"b/b.qzVSK", record("b")}}},
      {"cut off before the folder's renaming",
       {{"b/b.qzVSK", record("b")},
        {"b/c.qzVSK", store::withIgnoreRobots(record("c", "http://c.test/"), true)}},
       {{"b/b.qzVSK", record("b")}}},
      {"cut off behind it",
       {{"b/b.qzVSK", record("b", "http://c.test/")}, {"b/a.qzVSK", record("a")}},
       {{"b/b.qzVSK", record("b", "http://c.test/")}}},
      {"another site's record", twoSites, twoSites},
      {"a copy under another name", ownCopy, ownCopy},
      {"two records of neither's name", unknown, unknown},
      {"a record that does not name itself", foreign, foreign},
      {"a record without a name", nameless, nameless},
      {"deeper in a folder", nested, nested},
      {"older record",
       {{"b/b.qzvsk", older}, {"b/sitemap.html", "x"}, {"b/sitemap6.html", "x"}, {"b/sitemap7.html", "x"}},
       {{"b/b.qzVSK", fresh.at("b/b.qzVSK")}, {"b/sitemap7.html", "x"}}},
      {"older record of a newer one", {{"b/b.qzvsk", older}, {"b/b.qzVSK", "x"}}, fresh},
      {"upgrade cut off early", {{"b/b.qzvsk", older}, {"b/b.qzNEW", "x"}}, fresh},
      {"upgrade cut off late", {{"b/b.qzNEW", fresh.at("b/b.qzVSK")}, {"b/sitemap2.html", "x"}}, fresh},
      {"no record at all", noRecord, noRecord},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::filesystem::remove_all(data() / "b");
    for (const auto& [file, text] : c.before) write(file, text);
    {
      const platform::FolderLock scan(data() / "b");
      list();
      EXPECT_EQ(snapshot(), c.before);
    }
    EXPECT_EQ(list().problems.empty(), c.before != noRecord);
    EXPECT_EQ(snapshot(), c.after);
    EXPECT_FALSE(list().updatedOldFile && c.before != noRecord);
  }
}

TEST_F(SiteListTest, KeepsRecordsWhoseUpgradeFails) {
  write("Old/Old.qzvsk", kOlder);
  write("Old/sitemap.html", "x");
  const auto before = snapshot();
  store::SiteList listed;
  {
    const FullDisk fullDisk;
    listed = list();
  }
  EXPECT_THAT(listed.problems, ElementsAre(HasSubstr("Old.qzVSK: File too large")));
  EXPECT_THAT(listed.names, ElementsAre());
  EXPECT_EQ(snapshot(), before);
}

TEST_F(SiteListTest, WhatIsRememberedFollowsAFolderRenamedByHand) {
  const store::BrokenReasons reasons(state);
  ASSERT_TRUE(reasons.save("a", {{"u", "of a"}}).ok());
  write("a/a.qzVSK", record("a"));
  write("b/a.qzVSK", record("a"));
  list();
  EXPECT_EQ(reasons.lookUp("a", {"u"})[0].reason, "of a");
  std::filesystem::rename(data() / "a", data() / "c");
  list();
  EXPECT_EQ(reasons.lookUp("c", {"u"})[0].reason, "of a");
  // A renaming that was cut off before that.
  write("c/d.qzVSK", record("d"));
  std::filesystem::rename(data() / "c", data() / "d");
  list();
  EXPECT_EQ(reasons.lookUp("d", {"u"})[0].reason, "of a");
}

TEST_F(SiteListTest, SelectingCompletesTheRecordOnceAndReadingNever) {
  const std::string fresh = store::newSiteRecord("a", "http://a.test/");
  write("a/a.qzVSK", fresh);
  EXPECT_TRUE(store::readSite(controls, "a").result.ok());
  EXPECT_EQ(read("a/a.qzVSK"), fresh);
  EXPECT_TRUE(store::selectSite(controls, "a").result.ok());
  EXPECT_TRUE(store::selectSite(controls, "a").result.ok());
  EXPECT_EQ(read("a/a.qzVSK"), fresh + "\n<pagesUsed>0</pagesUsed>");
}

TEST_F(SiteListTest, ReportsWhatCannotBeReadOrCompleted) {
  EXPECT_EQ(store::readSite(controls, "none").result.status, platform::FileStatus::missing);
  write("a/a.qzVSK", store::newSiteRecord("a", "http://a.test/"));
  {
    const FullDisk fullDisk;
    const auto site = store::selectSite(controls, "a");
    EXPECT_FALSE(site.result.ok());
    EXPECT_EQ(site.details.url, "http://a.test/");
  }
  std::filesystem::create_directory(data() / "a" / store::kBadLinksFile);
  EXPECT_EQ(store::readSite(controls, "a").path, data() / "a" / store::kBadLinksFile);
}

TEST_F(SiteListTest, ReadsBrokenLinksInOrder) {
  write("a/a.qzVSK", "<siteURL>u</siteURL>");
  write("a/badLinks.txt", "http://a.test/2\n\nhttp://a.test/1\nhttp://a.test/2");
  EXPECT_THAT(store::readSite(controls, "a").details.badLinks,
              ElementsAre("http://a.test/2", "http://a.test/1", "http://a.test/2"));
}

TEST_F(SiteListTest, RobotsSwitchNeedsItsElement) {
  write("a/a.qzVSK", store::newSiteRecord("a", "u"));
  EXPECT_TRUE(store::setIgnoreRobots(controls, "a", true).ok());
  EXPECT_TRUE(store::readSite(controls, "a").details.ignoreRobots);
  write("b/b.qzVSK", "<siteName>b</siteName>");
  EXPECT_EQ(store::setIgnoreRobots(controls, "b", true).status, platform::FileStatus::failed);
  EXPECT_EQ(read("b/b.qzVSK"), "<siteName>b</siteName>");
}

TEST(NeededFolders, AreMadeBelowAHomeThatExists) {
  const support::TempFolder folder;
  const store::GlobalControls missingHome(folder.path() / "none");
  EXPECT_EQ(store::checkNeededFoldersExist(missingHome).status, platform::FileStatus::missing);
  EXPECT_FALSE(platform::somethingAt(folder.path() / "none"));

  const store::GlobalControls controls(folder.path());
  ASSERT_TRUE(platform::makeFolder(folder.path() / "Library").ok());
  EXPECT_TRUE(store::checkNeededFoldersExist(controls).ok());
  EXPECT_TRUE(store::checkNeededFoldersExist(controls).ok());
  ASSERT_TRUE(platform::removeFolder(controls.homeFolderLocation()).ok());
  ASSERT_TRUE(platform::makeEmptyFile(controls.homeFolderLocation()).ok());
  const auto inTheWay = store::checkNeededFoldersExist(controls);
  EXPECT_FALSE(inTheWay.ok());
  EXPECT_NE(inTheWay.error, "");
}

TEST(GlobalControlsPaths, NamesNeverLeadOutByASlash) {
  EXPECT_EQ(store::GlobalControls("/h").returnFullFileLocation("/etc"),
            "/h/Library/Application Support/Quillfern/Veskel//etc//etc.qzVSK");
}

}  // namespace
