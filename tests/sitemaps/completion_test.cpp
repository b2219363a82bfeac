#include "sitemaps/completion.h"

#include <gtest/gtest.h>

#include "site_folder_test.h"
#include "sitemaps/site_documents.h"
#include "sitemaps/xml_format.h"

namespace sitemaps {
namespace {

using CompletionTest = SiteFolderTest;

TEST_F(CompletionTest, AListOfBrokenPagesIsEmptiedByAScanWithout) {
  write("badLinks.txt", "http://h/a\n");
  EXPECT_TRUE(writeBadLinks(m_controls, "S", {}).ok());
  EXPECT_TRUE(std::filesystem::exists(folder() / "badLinks.txt"));
  EXPECT_EQ(read("badLinks.txt"), "");
}

TEST_F(CompletionTest, CountsGoIntoARecordThatHasAllThree) {
  write("S.qzVSK", "a<pagesUsed>1</pagesUsed><totalLinks>x</totalLinks><pagesFound></pagesFound>\n\xFF");
  EXPECT_TRUE(writeStatistics(m_controls, "S", {30, 20, 10}).ok());
  EXPECT_EQ(read("S.qzVSK"),
            "a<pagesUsed>10</pagesUsed><totalLinks>30</totalLinks><pagesFound>20</pagesFound>\n\xFF");
  write("S.qzVSK", "<totalLinks>1</totalLinks>");
  EXPECT_FALSE(writeStatistics(m_controls, "S", {3, 3, 3}).ok());
  EXPECT_EQ(read("S.qzVSK"), "<totalLinks>1</totalLinks>");
  std::filesystem::remove(folder() / "S.qzVSK");
  EXPECT_EQ(writeStatistics(m_controls, "S", {3, 3, 3}).status, platform::FileStatus::missing);
  EXPECT_FALSE(std::filesystem::exists(folder() / "S.qzVSK"));
}

TEST_F(CompletionTest, AFailingDocumentIsToldOnce) {
  SiteDocuments documents(folder());
  ASSERT_TRUE(documents.start());
  std::filesystem::remove(folder() / "sitemap1c.html");
  for (int i = 0; i < 3; ++i) documents.appendLinks("B");
  documents.finish();
  ASSERT_EQ(documents.problems().size(), 1u);
  EXPECT_EQ(documents.problems()[0].path, folder() / "sitemap1c.html");
  EXPECT_FALSE(std::filesystem::exists(folder() / "sitemap1c.html"));
  EXPECT_TRUE(read("sitemap.xml").ends_with(kXmlClosing));
}

}  // namespace
}  // namespace sitemaps
