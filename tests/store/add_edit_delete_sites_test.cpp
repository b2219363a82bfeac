#include "store/add_edit_delete_sites.h"

#include <string>

#include <gmock/gmock.h>

#include "store/site_record.h"
#include "store_test.h"

namespace {

using store::SaveOutcome;
using testing::ElementsAre;

class AddEditDeleteSitesTest : public StoreTest {
 protected:
  void add(const std::string& name) {
    write(name + "/" + name + ".qzVSK", record(name, "http://" + name + ".test/"));
    write(name + "/sitemap.xml", "<map of " + name + ">");
  }

  /// Scanned, and with the robots switch on.
  static std::string record(const std::string& name, const std::string& url) {
    return store::withIgnoreRobots(store::newSiteRecord(name, url), true) + "\n<pagesUsed>7</pagesUsed>";
  }

  store::AddEditDeleteSites sites{controls};
};

TEST_F(AddEditDeleteSitesTest, CreatesUnlessAnythingHasTheName) {
  EXPECT_EQ(sites.createNewSite("a", "http://a.test/").outcome, SaveOutcome::saved);
  EXPECT_EQ(read("a/a.qzVSK"), store::newSiteRecord("a", "http://a.test/"));
  EXPECT_EQ(sites.createNewSite("a", "http://other.test/").outcome, SaveOutcome::nameTaken);
  write("plain file", "x");
  EXPECT_EQ(sites.createNewSite("plain file", "http://a.test/").outcome, SaveOutcome::nameTaken);
  EXPECT_THAT(platform::filesBelow(data()), ElementsAre("a/a.qzVSK", "plain file"));
  EXPECT_EQ(read("a/a.qzVSK"), store::newSiteRecord("a", "http://a.test/"));
}

TEST_F(AddEditDeleteSitesTest, FailedCreationLeavesNothing) {
  {
    const FullDisk fullDisk;
    const auto result = sites.createNewSite("a", "http://a.test/");
    EXPECT_EQ(result.outcome, SaveOutcome::failed);
    EXPECT_EQ(result.path, data() / "a" / "a.qzVSK");
    EXPECT_NE(result.file.error, "");
  }
  const std::string longName(253, 'n');  // fits as a folder, but not with the extension
  EXPECT_EQ(sites.createNewSite(longName, "http://a.test/").outcome, SaveOutcome::failed);
  EXPECT_TRUE(std::filesystem::is_empty(data()));
}

TEST_F(AddEditDeleteSitesTest, SameNameChangesTheUrlLineAlone) {
  add("a");
  EXPECT_EQ(sites.saveEditedSite("a", "a", "http://new.test/").outcome, SaveOutcome::saved);
  EXPECT_EQ(read("a/a.qzVSK"), record("a", "http://new.test/"));
}

TEST_F(AddEditDeleteSitesTest, RenameMovesEverything) {
  add("a");
  EXPECT_EQ(sites.saveEditedSite("a", "A", "http://new.test/").outcome, SaveOutcome::saved);
  EXPECT_THAT(platform::filesBelow(data()), ElementsAre("A/A.qzVSK", "A/sitemap.xml"));
  EXPECT_EQ(read("A/A.qzVSK"), record("A", "http://new.test/"));
  EXPECT_EQ(read("A/sitemap.xml"), "<map of a>");
}

TEST_F(AddEditDeleteSitesTest, TakenNameGivesTheOtherSiteTheUrl) {
  add("a");
  add("b");
  EXPECT_TRUE(sites.isNameTaken("a", "b"));
  const auto result = sites.saveEditedSite("a", "b", "http://new.test/");
  EXPECT_EQ(result.outcome, SaveOutcome::nameTaken);
  EXPECT_TRUE(result.file.ok());
  EXPECT_EQ(read("a/a.qzVSK"), record("a", "http://a.test/"));
  EXPECT_EQ(read("b/b.qzVSK"), record("b", "http://new.test/"));
  EXPECT_EQ(read("b/sitemap.xml"), "<map of b>");
}

TEST_F(AddEditDeleteSitesTest, TakenNameWithoutARecordIsReported) {
  add("a");
  write("b/other.txt", "x");
  const auto result = sites.saveEditedSite("a", "b", "http://new.test/");
  EXPECT_EQ(result.outcome, SaveOutcome::nameTaken);
  EXPECT_FALSE(result.file.ok());
  EXPECT_THAT(platform::filesBelow(data()), ElementsAre("a/a.qzVSK", "a/sitemap.xml", "b/other.txt"));
}

TEST_F(AddEditDeleteSitesTest, FailedRenameIsUndone) {
  add("a");
  const std::string before = read("a/a.qzVSK");
  const auto expectUnchanged = [&] {
    EXPECT_THAT(platform::filesBelow(data()), ElementsAre("a/a.qzVSK", "a/sitemap.xml"));
    EXPECT_EQ(read("a/a.qzVSK"), before);
  };
  {
    SCOPED_TRACE("the record cannot be written");
    {
      const FullDisk fullDisk;
      EXPECT_EQ(sites.saveEditedSite("a", "b", "http://new.test/").outcome, SaveOutcome::failed);
    }
    expectUnchanged();
  }
  {
    SCOPED_TRACE("the record cannot be moved");
    const auto result = sites.saveEditedSite("a", std::string(253, 'n'), "http://new.test/");
    EXPECT_EQ(result.outcome, SaveOutcome::failed);
    EXPECT_NE(result.file.error, "");
    expectUnchanged();
  }
  {
    SCOPED_TRACE("the record is missing");
    EXPECT_EQ(sites.saveEditedSite("none", "b", "http://new.test/").outcome, SaveOutcome::failed);
    expectUnchanged();
  }
}

TEST_F(AddEditDeleteSitesTest, DeletesOneSiteWithEverythingInIt) {
  add("a");
  add("ab");
  write("a/deeper/still/file", "x");
  EXPECT_TRUE(sites.deleteSite("a").ok());
  EXPECT_FALSE(platform::somethingAt(data() / "a"));
  EXPECT_THAT(platform::filesBelow(data()), ElementsAre("ab/ab.qzVSK", "ab/sitemap.xml"));
  EXPECT_EQ(sites.deleteSite("a").status, platform::FileStatus::missing);
}

TEST_F(AddEditDeleteSitesTest, NothingIsDeletedUnderANameThatLeadsElsewhere) {
  add("a");
  for (const char* name : {"", ".", "..", "/", "/a", "a/", "a/..", "../Veskel", "a/../a"}) {
    SCOPED_TRACE(name);
    EXPECT_FALSE(sites.deleteSite(name).ok());
    EXPECT_THAT(platform::filesBelow(data()), ElementsAre("a/a.qzVSK", "a/sitemap.xml"));
  }
}

TEST_F(AddEditDeleteSitesTest, OnlyALinkToAFolderIsDeleted) {
  write("elsewhere/kept", "x");
  std::filesystem::create_directory_symlink(data() / "elsewhere", data() / "a");
  EXPECT_TRUE(sites.deleteSite("a").ok());
  EXPECT_FALSE(platform::somethingAt(data() / "a"));
  EXPECT_THAT(platform::filesBelow(data()), ElementsAre("elsewhere/kept"));
}

}  // namespace
