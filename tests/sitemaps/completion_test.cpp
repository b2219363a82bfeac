#include "sitemaps/completion.h"

#include <gtest/gtest.h>

#include "sitemaps/site_documents.h"
#include "sitemaps/xml_format.h"
#include "support/data_folder_test.h"

namespace sitemaps {
namespace {

using CompletionTest = support::DataFolderTest;

TEST_F(CompletionTest, AListOfBrokenPagesIsEmptiedByAScanWithout) {
  write("S/badLinks.txt", "http://h/a\n");
  EXPECT_TRUE(writeBadLinks(controls, "S", {}).ok());
  EXPECT_EQ(read("S/badLinks.txt"), "");
}

TEST_F(CompletionTest, CountsGoIntoARecordThatHasAllThree) {
  write("S/S.qzVSK", "a<pagesUsed>1</pagesUsed><totalLinks>x</totalLinks><pagesFound></pagesFound>\n\xFF");
  EXPECT_TRUE(writeStatistics(controls, "S", {30, 20, 10}).ok());
  EXPECT_EQ(read("S/S.qzVSK"),
            "a<pagesUsed>10</pagesUsed><totalLinks>30</totalLinks><pagesFound>20</pagesFound>\n\xFF");
  write("S/S.qzVSK", "<totalLinks>1</totalLinks>");
  EXPECT_FALSE(writeStatistics(controls, "S", {3, 3, 3}).ok());
  EXPECT_EQ(read("S/S.qzVSK"), "<totalLinks>1</totalLinks>");
  std::filesystem::remove(data() / "S" / "S.qzVSK");
  EXPECT_EQ(writeStatistics(controls, "S", {3, 3, 3}).status, platform::FileStatus::missing);
  EXPECT_EQ(read("S/S.qzVSK"), "(missing)");
}

TEST_F(CompletionTest, AFailingDocumentIsToldOnce) {
  SiteDocuments documents(data());
  ASSERT_TRUE(documents.start());
  std::filesystem::remove(data() / "sitemap1c.html");
  for (int i = 0; i < 3; ++i) documents.appendLinks("B");
  documents.finish();
  ASSERT_EQ(documents.problems().size(), 1u);
  EXPECT_EQ(documents.problems()[0].path, data() / "sitemap1c.html");
  EXPECT_EQ(read("sitemap1c.html"), "(missing)");
  EXPECT_TRUE(read("sitemap.xml").ends_with(kXmlClosing));
}

}  // namespace
}  // namespace sitemaps
