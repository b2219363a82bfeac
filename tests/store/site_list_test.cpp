#include "store/site_list.h"

#include <map>
#include <string>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "store/site_record.h"
#include "support/data_folder_test.h"
#include "support/file_size_limit.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

constexpr const char* kOlder =
    "<siteName>Old</siteName>\n<siteURL>http://old.test/</siteURL>\n<ignoreRobotFile>YES</ignoreRobotFile>\n"
    "<pagesFound>5</pagesFound>\n<totalLinks>6</totalLinks>";

class SiteListTest : public support::DataFolderTest {
 protected:
  store::SiteList list() const { return store::siteTableRows(controls, state); }
};

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
    Files after = {};  // none: all stays as it is
  };
  const std::string fresh = store::newSiteRecord("b", "http://a.test/");
  const std::string older = "<siteName>b</siteName>\n<siteURL>http://a.test/</siteURL>\nmore";
  const Case cases[] = {
      {"folder renamed by hand", {{"b/a.qzVSK", record("a")}}, {{"b/b.qzVSK", record("b")}}},
      {"no other case is the same", {{"b/b.qzVSK", record("B")}}, {{"b/b.qzVSK", record("b")}}},
      {"renaming cut off before the folder's",
       {{"b/b.qzVSK", record("b")},
        {"b/c.qzVSK", store::withIgnoreRobots(record("c", "http://c.test/"), true)}},
       {{"b/b.qzVSK", record("b")}}},
      {"another site's record", {{"b/b.qzVSK", record("b")}, {"b/c.qzVSK", "y" + record("c")}}},
      {"a copy under another name", {{"b/b.qzVSK", record("b")}, {"b/copy.qzVSK", record("b")}}},
      {"two records of neither's name", {{"b/c.qzVSK", record("c")}, {"b/d.qzVSK", record("d")}}},
      {"a record that does not name itself", {{"b/record.qzVSK", record("c")}}},
      {"a record without a name", {{"b/b.qzVSK", "<siteURL>http://a.test/</siteURL>"}}},
      {"older record",
       {{"b/b.qzvsk", older}, {"b/sitemap.html", "x"}, {"b/sitemap6.html", "x"}, {"b/sitemap7.html", "x"}},
       {{"b/b.qzVSK", fresh}, {"b/sitemap7.html", "x"}}},
      {"older record of a newer one", {{"b/b.qzvsk", older}, {"b/b.qzVSK", "x"}}, {{"b/b.qzVSK", fresh}}},
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
    EXPECT_THAT(list().problems, ElementsAre());
    EXPECT_EQ(snapshot(), c.after.empty() ? c.before : c.after);
    EXPECT_FALSE(list().updatedOldFile);
  }
}

TEST_F(SiteListTest, KeepsRecordsWhoseUpgradeFails) {
  write("Old/Old.qzvsk", kOlder);
  write("Old/sitemap.html", "x");
  write("b/b.qzvsk", "a file of some other program");
  const auto before = snapshot();
  store::SiteList listed;
  {
    const support::FileSizeLimit fullDisk;
    listed = list();
  }
  EXPECT_THAT(listed.problems, UnorderedElementsAre(HasSubstr("Old.qzVSK: File too large"),
                                                    HasSubstr("b.qzvsk: It is not a site record")));
  EXPECT_THAT(listed.names, ElementsAre());
  EXPECT_EQ(snapshot(), before);
}

TEST_F(SiteListTest, ACopiedFolderTakesNothingThatIsRemembered) {
  ASSERT_TRUE(reasons.save("a", {{"u", "of a"}}).ok());
  write("a/a.qzVSK", record("a"));
  write("b/a.qzVSK", record("a"));
  list();
  EXPECT_EQ(reasons.lookUp("a", {"u"})[0].reason, "of a");
}

TEST_F(SiteListTest, SelectingCompletesTheRecordOnceAndReadingNever) {
  const std::string fresh = store::newSiteRecord("a", "http://a.test/");
  write("a/a.qzVSK", fresh);
  write("a/badLinks.txt", "http://a.test/2\n\nhttp://a.test/1\nhttp://a.test/2");
  {
    const support::FileSizeLimit fullDisk;
    const auto site = store::selectSite(controls, "a");
    EXPECT_FALSE(site.result.ok());
    EXPECT_EQ(site.details.url, "http://a.test/");
  }
  const auto site = store::readSite(controls, "a");
  EXPECT_THAT(site.details.badLinks, ElementsAre("http://a.test/2", "http://a.test/1", "http://a.test/2"));
  EXPECT_EQ(read("a/a.qzVSK"), fresh);
  EXPECT_TRUE(store::selectSite(controls, "a").result.ok());
  EXPECT_TRUE(store::selectSite(controls, "a").result.ok());
  EXPECT_EQ(read("a/a.qzVSK"), fresh + "\n<pagesUsed>0</pagesUsed>");
  std::filesystem::remove(data() / "a" / store::kBadLinksFile);
  std::filesystem::create_directory(data() / "a" / store::kBadLinksFile);
  EXPECT_EQ(store::readSite(controls, "a").path, data() / "a" / store::kBadLinksFile);
  EXPECT_EQ(store::readSite(controls, "none").result.status, platform::FileStatus::missing);
}

TEST(GlobalControlsPaths, NamesNeverLeadOutByASlash) {
  EXPECT_EQ(store::GlobalControls("/h").returnFullFileLocation("/etc"),
            "/h/Library/Application Support/Quillfern/Veskel//etc//etc.qzVSK");
}

}  // namespace
