#include "store/broken_reasons.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/data_folder_test.h"

namespace {

class BrokenReasonsTest : public support::DataFolderTest {
 protected:
  std::string reasonOf(const std::string& site, const std::string& url) const {
    return reasons.lookUp(site, {url}).at(0).reason;
  }
};

TEST_F(BrokenReasonsTest, ComeBackWhateverTheUrlsHold) {
  const std::vector<store::BrokenPage> pages = {
      {"http://a.test/", "404 - Not Found"},
      {"http://a.test/x\ty", "0 - Tab"},
      {"http://a.test/\nhttp://a.test/\t200 - OK", "500 - Forged line"},
      {"http://a.test/c:\\new\\\\", "410 - Backslashes"},
      {"http://a.test/empty", ""},
  };
  ASSERT_TRUE(reasons.save("a", pages).ok());
  for (const auto& page : pages) EXPECT_EQ(reasonOf("a", page.url), page.reason) << page.url;
  const auto found = reasons.lookUp("a", {"http://a.test/empty", "http://a.test/", "http://a.test/"});
  EXPECT_EQ(found.at(1).reason + found.at(2).url, "404 - Not Foundhttp://a.test/");
  EXPECT_EQ(reasonOf("a", "http://a.test/unknown"), "");
  EXPECT_EQ(reasonOf("b", "http://a.test/"), "");
}

TEST_F(BrokenReasonsTest, ComeFromTheirFormerPlaceOnce) {
  const auto former = state.location() / "broken";
  ASSERT_TRUE(platform::makeFolders(former).ok());
  ASSERT_TRUE(reasons.save("b", {{"1", "newer"}}).ok());
  for (const char* name : {"a", "b", "other"})
    ASSERT_TRUE(platform::replaceFile(former / (std::string(name) + ".tsv"), "1\tof former times\n").ok());
  reasons.takeFormer({"a", "b", "c"});
  EXPECT_EQ(reasonOf("a", "1"), "of former times");
  EXPECT_EQ(reasonOf("b", "1"), "newer");
  EXPECT_THAT(platform::filesBelow(former), testing::ElementsAre("other.tsv"));
  reasons.takeFormer({"other"});
  EXPECT_FALSE(platform::somethingAt(former));
}

}  // namespace
