#include "store/site_list.h"

#include <string>

#include <gmock/gmock.h>

#include "store/add_edit_delete_sites.h"
#include "store/site_record.h"
#include "store_test.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kOlder =
    "<siteName>Old</siteName>\n<siteURL>http://old.test/</siteURL>\n<ignoreRobotFile>YES</ignoreRobotFile>\n"
    "<pagesFound>5</pagesFound>\n<totalLinks>6</totalLinks>";

using SiteListTest = StoreTest;

TEST_F(SiteListTest, ListsFoldersThatHoldARecordByName) {
  for (const char* file : {"b/b.qzVSK", "a b/a b.qzVSK", "a/a.qzVSK", "B/B.qzVSK", "c/C.QZVSK",
                           "d/sitemap.xml", "e/.qzVSK", "stray.qzVSK", "f/f.qzVSK.bak", "g/h/h.qzVSK"}) {
    write(file, "x");
  }
  const auto list = store::siteTableRows(controls);
  EXPECT_THAT(list.names, ElementsAre("B", "a", "a b", "b", "g/h"));
  EXPECT_FALSE(list.updatedOldFile);
  EXPECT_THAT(list.problems, ElementsAre());
}

TEST_F(SiteListTest, ListsFoldersThatHideTheirRecord) {
  write("a/a.qzVSK", store::newSiteRecord("a", "http://a.test/"));
  write("b/b.qzVSK/in the way", "x");
  write("c/other.txt", "x");
  EXPECT_THAT(store::siteTableRows(controls).names, ElementsAre("a", "b"));
  const auto site = store::readSite(controls, "b");
  EXPECT_EQ(site.result.status, platform::FileStatus::failed);
  EXPECT_EQ(site.path, data() / "b" / "b.qzVSK");
}

TEST_F(SiteListTest, ClearsAwayWhatWasLeftUnfinished) {
  write(".veskel-0/a.qzVSK", store::newSiteRecord("a", "http://a.test/"));
  write(".veskel-1/a.qzvsk", kOlder);
  write(".veskel-7/sitemap.xml", "x");
  {
    const platform::FolderLock somebodyAtWork(data() / ".veskel-0");
    EXPECT_THAT(store::siteTableRows(controls).names, ElementsAre());
    EXPECT_THAT(platform::filesBelow(data()), ElementsAre(".veskel-0/a.qzVSK"));
    EXPECT_EQ(store::AddEditDeleteSites(controls).createNewSite("a", "http://a.test/").outcome,
              store::SaveOutcome::saved);
    EXPECT_TRUE(store::AddEditDeleteSites(controls).deleteSite("a").ok());
    EXPECT_THAT(platform::filesBelow(data()), ElementsAre(".veskel-0/a.qzVSK"));
  }
  EXPECT_FALSE(store::siteTableRows(controls).updatedOldFile);
  EXPECT_TRUE(std::filesystem::is_empty(data()));
}

TEST_F(SiteListTest, UpgradesOlderRecordsAndDropsTheirDocuments) {
  write("Old/Old.qzvsk", kOlder);
  for (const char* file :
       {"sitemap.html", "sitemap2.html", "sitemap6.html", "sitemap7.html", "sitemap1c.html"}) {
    write(std::string("Old/") + file, "x");
  }
  const auto list = store::siteTableRows(controls);
  EXPECT_THAT(list.names, ElementsAre("Old"));
  EXPECT_TRUE(list.updatedOldFile);
  EXPECT_EQ(read("Old/Old.qzVSK"), store::newSiteRecord("Old", "http://old.test/"));
  EXPECT_THAT(platform::filesBelow(data()),
              ElementsAre("Old/Old.qzVSK", "Old/sitemap1c.html", "Old/sitemap7.html"));
  EXPECT_FALSE(store::siteTableRows(controls).updatedOldFile);
}

TEST_F(SiteListTest, KeepsRecordsWhoseUpgradeFails) {
  write("Old/Old.qzvsk", kOlder);
  write("Old/sitemap.html", "x");
  write("Other/Other.qzvsk", "a file of some other program");
  store::SiteList list;
  {
    const FullDisk fullDisk;
    list = store::siteTableRows(controls);
  }
  EXPECT_THAT(list.problems, ElementsAre(HasSubstr("Old.qzVSK"), HasSubstr("Other.qzvsk")));
  EXPECT_THAT(list.names, ElementsAre());
  EXPECT_EQ(read("Old/Old.qzvsk"), kOlder);
  EXPECT_EQ(read("Old/sitemap.html"), "x");
  EXPECT_EQ(read("Other/Other.qzvsk"), "a file of some other program");
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
