#include "html_editor/recovery_copies.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace html_editor {
namespace {

class RecoveryCopiesTest : public testing::Test {
 protected:
  support::TempFolder folder;
  RecoveryCopies copies{store::StateFolder(folder.path() / "not" / "there yet")};
};

TEST_F(RecoveryCopiesTest, GiveBackTheLastEditOfTheVeryText) {
  const std::string original = "old\n\0text";
  ASSERT_TRUE(copies.save("/d/a.html", original, "first").ok());
  ASSERT_TRUE(copies.save("/d/a.html", original, std::string("\n edit \0\xFF", 9)).ok());
  ASSERT_TRUE(copies.save("/d/b.html", "b", "").ok());
  EXPECT_EQ(copies.load("/d/a.html", original), std::string("\n edit \0\xFF", 9));
  EXPECT_EQ(copies.load("/d/b.html", "b"), "");
  EXPECT_EQ(copies.load("/d/a.html", "scanned anew"), std::nullopt);
  EXPECT_EQ(copies.load("/d/a.html", ""), std::nullopt);
  EXPECT_EQ(copies.load("/d/c.html", original), std::nullopt);
  EXPECT_EQ(copies.load("/other/a.html", original), std::nullopt);
}

TEST_F(RecoveryCopiesTest, AreGoneWhenDroppedOrOfNoUse) {
  EXPECT_TRUE(copies.drop("/d/a.html").ok());
  ASSERT_TRUE(copies.save("/d/a.html", "text", "text").ok());
  EXPECT_EQ(copies.load("/d/a.html", "text"), std::nullopt);  // edited back to what it was
  ASSERT_TRUE(copies.save("/d/a.html", "text", "edit").ok());
  EXPECT_TRUE(copies.drop("/d/a.html").ok());
  EXPECT_EQ(copies.load("/d/a.html", "text"), std::nullopt);
}

TEST_F(RecoveryCopiesTest, CutOffOrForeignFilesAreNoCopies) {
  ASSERT_TRUE(copies.save("/d/a.html", "text", "edit").ok());
  const auto files = platform::filesBelow(folder.path());
  ASSERT_EQ(files.size(), 1U);
  const auto file = folder.path() / files[0];
  const std::string whole = platform::readFile(file).text;
  for (std::size_t size = 0; size + 4 < whole.size(); ++size) {
    ASSERT_TRUE(platform::replaceFile(file, whole.substr(0, size)).ok());
    EXPECT_EQ(copies.load("/d/a.html", "text"), std::nullopt) << size;
  }
}

TEST_F(RecoveryCopiesTest, ComeFromTheirFormerPlaceOnce) {
  ASSERT_TRUE(copies.save("/d/b.html", "text", "edit").ok());
  const auto newOne = folder.path() / "not" / "there yet" / "veskel" / "sites" / "d" / "unsaved-b.html";
  std::string text = platform::readFile(newOne).text;
  text.replace(0, text.find('\n') + 1, "veskel recovery copy 1\n10 /d/a\n.html\n");
  const auto former = folder.path() / "not" / "there yet" / "veskel" / "unsaved";
  ASSERT_TRUE(platform::makeFolders(former).ok());
  ASSERT_TRUE(platform::replaceFile(former / "1234.html", text).ok());
  ASSERT_TRUE(platform::replaceFile(former / "cut.html", text.substr(0, 28)).ok());
  copies.takeFormer();
  EXPECT_EQ(copies.load("/d/a\n.html", "text"), "edit");
  EXPECT_EQ(platform::filesBelow(former), std::vector<std::string>{"cut.html"});
  ASSERT_TRUE(platform::removeFile(former / "cut.html").ok());
  copies.takeFormer();
  EXPECT_FALSE(platform::somethingAt(former));
}

}  // namespace
}  // namespace html_editor
