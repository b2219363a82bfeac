#include "store/broken_reasons.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/temp_folder.h"

namespace {

std::string reasonOf(const store::BrokenReasons& reasons, const std::string& site, const std::string& url) {
  return reasons.lookUp(site, {url}).at(0).reason;
}

class BrokenReasonsTest : public testing::Test {
 protected:
  support::TempFolder folder;
  store::BrokenReasons reasons{store::StateFolder(folder.path() / "not" / "there yet")};
};

TEST_F(BrokenReasonsTest, ComeBackWhateverTheUrlsHold) {
  const std::vector<store::BrokenPage> pages = {
      {"http://a.test/", "404 - Not Found"},
      {"http://a.test/x\ty", "0 - Tab"},
      {"http://a.test/\nhttp://a.test/\t200 - OK", "500 - Forged line"},
      {"http://a.test/c:\\new\\\\", "410 - Backslashes"},
      {"http://a.test/empty", ""},
      {"http://a.test/reason", "0 - \t\n\\"},
  };
  ASSERT_TRUE(reasons.save("a", pages).ok());
  for (const auto& page : pages) {
    SCOPED_TRACE(page.url);
    EXPECT_EQ(reasonOf(reasons, "a", page.url), page.reason);
  }
  EXPECT_EQ(reasonOf(reasons, "a", "http://a.test/unknown"), "");
  EXPECT_EQ(reasonOf(reasons, "b", "http://a.test/"), "");
}

TEST_F(BrokenReasonsTest, LookUpKeepsOrderAndRepeats) {
  ASSERT_TRUE(reasons.save("a", {{"1", "one"}, {"2", "two"}}).ok());
  std::string found;
  for (const auto& page : reasons.lookUp("a", {"2", "3", "1", "2"}))
    found += page.url + "=" + page.reason + " ";
  EXPECT_EQ(found, "2=two 3= 1=one 2=two ");
}

TEST_F(BrokenReasonsTest, ComeFromTheirFormerPlaceOnce) {
  const auto former = reasons.state().location() / "broken";
  ASSERT_TRUE(platform::makeFolders(former).ok());
  ASSERT_TRUE(reasons.save("b", {{"1", "newer"}}).ok());
  for (const char* name : {"a", "b", "other"})
    ASSERT_TRUE(platform::replaceFile(former / (std::string(name) + ".tsv"), "1\tof former times\n").ok());
  reasons.takeFormer({"a", "b", "c"});
  EXPECT_EQ(reasonOf(reasons, "a", "1"), "of former times");
  EXPECT_EQ(reasonOf(reasons, "b", "1"), "newer");
  EXPECT_THAT(platform::filesBelow(former), testing::ElementsAre("other.tsv"));
  reasons.takeFormer({"other"});
  EXPECT_FALSE(platform::somethingAt(former));
}

}  // namespace
