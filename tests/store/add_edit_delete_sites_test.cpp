#include "store/add_edit_delete_sites.h"

#include <functional>
#include <string>

#include <gmock/gmock.h>

#include "store/filters_file.h"
#include "store/site_list.h"
#include "store/site_record.h"
#include "support/data_folder_test.h"

namespace {

using store::NameClash;
using store::SaveOutcome;
using testing::ElementsAre;

class AddEditDeleteSitesTest : public support::DataFolderTest {
 protected:
  void add(const std::string& name) {
    write(name + "/" + name + ".qzVSK", record(name, "http://" + name + ".test/"));
    write(name + "/sitemap.xml", "<map of " + name + ">");
  }

  /// Scanned, and with the robots switch on.
  static std::string record(const std::string& name, const std::string& url) {
    return store::withIgnoreRobots(store::newSiteRecord(name, url), true) + "\n<pagesUsed>7</pagesUsed>";
  }

  SaveOutcome edit(const std::string& name, const store::SiteEdit& changes) const {
    return sites.saveEditedSite(name, changes, NameClash::overwriteUrl).outcome;
  }

  void remember(const std::string& name) const {
    ASSERT_TRUE(reasons.save(name, {{"u", "of " + name}}).ok());
  }
  std::string remembered(const std::string& name) const { return reasons.lookUp(name, {"u"})[0].reason; }

  store::AddEditDeleteSites sites{controls, state};
};

TEST_F(AddEditDeleteSitesTest, CreatesUnlessAnythingHasTheName) {
  EXPECT_EQ(sites.createNewSite("a", "http://a.test/").outcome, SaveOutcome::saved);
  write("plain file", "x");
  const auto before = snapshot();
  EXPECT_EQ(before.at("a/a.qzVSK"), store::newSiteRecord("a", "http://a.test/"));
  for (const char* taken : {"a", "plain file"})
    EXPECT_EQ(sites.createNewSite(taken, "http://other.test/").outcome, SaveOutcome::nameTaken);
  EXPECT_EQ(snapshot(), before);
}

TEST_F(AddEditDeleteSitesTest, ChangesWhatIsGivenAlone) {
  add("a");
  EXPECT_EQ(edit("a", {.url = "http://new.test/"}), SaveOutcome::saved);
  EXPECT_EQ(read("a/a.qzVSK"), record("a", "http://new.test/"));
  EXPECT_EQ(edit("a", {.name = "A", .ignoreRobots = false}), SaveOutcome::saved);
  EXPECT_THAT(platform::filesBelow(data()), ElementsAre("A/A.qzVSK", "A/sitemap.xml"));
  EXPECT_EQ(read("A/A.qzVSK"), store::withIgnoreRobots(record("A", "http://new.test/"), false));
  EXPECT_EQ(read("A/sitemap.xml"), "<map of a>");
}

TEST_F(AddEditDeleteSitesTest, TakenNameIsRefusedOrGivesTheOtherSiteTheUrl) {
  add("a");
  add("b");
  auto expected = snapshot();
  const store::SiteEdit takesB{.name = "b", .url = "http://new.test/", .ignoreRobots = false};
  EXPECT_EQ(sites.saveEditedSite("a", takesB, NameClash::refuse).outcome, SaveOutcome::nameTaken);
  EXPECT_EQ(snapshot(), expected);
  const auto result = sites.saveEditedSite("a", takesB, NameClash::overwriteUrl);
  EXPECT_EQ(result.outcome, SaveOutcome::nameTaken);
  EXPECT_TRUE(result.file.ok());
  expected["b/b.qzVSK"] = record("b", "http://new.test/");
  EXPECT_EQ(snapshot(), expected);
}

TEST_F(AddEditDeleteSitesTest, EditsWithoutPlaceAreRefused) {
  add("a");
  write("a/taken.qzVSK", "x");
  write("b/b.qzVSK", "<siteName>b</siteName>");
  const auto before = snapshot();
  for (const store::SiteEdit& noPlace :
       {store::SiteEdit{.name = "c", .url = "http://new.test/"}, store::SiteEdit{.ignoreRobots = true}}) {
    EXPECT_EQ(edit("b", noPlace), SaveOutcome::failed);
  }
  EXPECT_EQ(edit("a", {.name = "taken"}), SaveOutcome::failed);
  EXPECT_EQ(edit("none", {.name = "c"}), SaveOutcome::failed);
  EXPECT_EQ(snapshot(), before);
}

TEST_F(AddEditDeleteSitesTest, DeletesOneSiteWithEverythingInIt) {
  add("a");
  add("ab");
  write("elsewhere/kept", "x");
  write("a/deeper/still/file", "x");
  std::filesystem::create_directory_symlink(data() / "elsewhere", data() / "a" / "link");
  std::filesystem::create_directory_symlink(data() / "elsewhere", data() / "link");
  for (const char* name : {"a", "link"}) {
    EXPECT_EQ(sites.deleteSite(name).outcome, SaveOutcome::saved);
    EXPECT_FALSE(platform::somethingAt(data() / name));
    EXPECT_EQ(sites.deleteSite(name).file.status, platform::FileStatus::missing);
  }
  const auto before = snapshot();
  EXPECT_THAT(platform::filesBelow(data()), ElementsAre("ab/ab.qzVSK", "ab/sitemap.xml", "elsewhere/kept"));
  for (const char* name : {"", ".", "..", "/ab", "ab/", "../Veskel"}) {
    SCOPED_TRACE(name);
    EXPECT_NE(sites.deleteSite(name).outcome, SaveOutcome::saved);
    EXPECT_EQ(snapshot(), before);
  }
}

TEST_F(AddEditDeleteSitesTest, WhatIsRememberedFollowsTheSite) {
  for (const char* name : {"a", "b"}) remember(name);
  EXPECT_EQ(sites.createNewSite("a", "http://a.test/").outcome, SaveOutcome::saved);
  EXPECT_EQ(remembered("a"), "");  // of a former site
  remember("a");
  EXPECT_EQ(sites.createNewSite("a", "http://a.test/").outcome, SaveOutcome::nameTaken);
  EXPECT_EQ(edit("a", {.name = "b"}), SaveOutcome::saved);
  EXPECT_EQ(remembered("b"), "of a");
  EXPECT_FALSE(platform::somethingAt(state.ofSite("a")));
  EXPECT_EQ(sites.deleteSite("b").outcome, SaveOutcome::saved);
  EXPECT_FALSE(platform::somethingAt(state.ofSite("b")));
}

TEST_F(AddEditDeleteSitesTest, ASiteThatIsBeingScannedIsLeftAlone) {
  add("a");
  add("b");
  write("a/filters.vskp", "/a\n");
  write("a/a.qzVSK", store::newSiteRecord("a", "http://a.test/"));
  const auto before = snapshot();
  const platform::FolderLock scan(data() / "a");
  EXPECT_EQ(edit("a", {.name = "c"}), SaveOutcome::busy);
  EXPECT_EQ(sites.deleteSite("a").outcome, SaveOutcome::busy);
  const auto clash = sites.saveEditedSite("b", {.name = "a", .url = "x"}, NameClash::overwriteUrl);
  EXPECT_EQ(clash.file.status, platform::FileStatus::busy);
  EXPECT_EQ(edit("a", {.ignoreRobots = true}), SaveOutcome::busy);
  EXPECT_EQ(store::addFilter(controls, "a", "/b").status, platform::FileStatus::busy);
  const auto clear = [](auto& filters) { return filters.clear(), true; };
  EXPECT_EQ(store::changeFilters(controls, "a", clear).result.error, "The site is being scanned.");
  EXPECT_TRUE(store::selectSite(controls, "a").result.ok());
  EXPECT_EQ(snapshot(), before);
}

}  // namespace
