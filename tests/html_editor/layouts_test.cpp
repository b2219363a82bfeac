#include "html_editor/layouts.h"

#include <gtest/gtest.h>

namespace html_editor {
namespace {

TEST(Layouts, AnItemOpensTheFileThatItsTitleNamesAndItsEntryDoesNot) {
  const struct {
    std::string_view title, entry, file, shortName;
  } expected[] = {
      {"Three Columns, All Links", "Single Column, Pages Only", "sitemap3c.html", "3c"},
      {"Two Columns, All Links", "Two Columns, Pages Only", "sitemap2c.html", "2c"},
      {"Single Column, All Links", "Three Columns, Pages Only", "sitemap1c.html", "1c"},
      {"Three Columns, Pages Only", "Single Column, All Links", "sitemap3cpo.html", "3cpo"},
      {"Two Columns, Pages Only", "Two Columns, All Links", "sitemap2cpo.html", "2cpo"},
      {"Single Column, Pages Only", "Three Columns, All Links", "sitemap1cpo.html", "1cpo"},
  };
  ASSERT_EQ(sitemapTypeItems.size(), std::size(expected));
  for (std::size_t i = 0; i < sitemapTypeItems.size(); ++i) {
    SCOPED_TRACE(expected[i].title);
    EXPECT_EQ(sitemapTypeItems[i].title, expected[i].title);
    EXPECT_EQ(sitemapTypeItems[i].representedObject, expected[i].entry);
    const sitemaps::Layout* layout = layoutOfEntry(expected[i].entry);
    ASSERT_NE(layout, nullptr);
    EXPECT_EQ(layout->fileName, expected[i].file);
    EXPECT_EQ(layout, sitemaps::layoutNamed(expected[i].shortName));
    EXPECT_EQ(layout->listing == sitemaps::Listing::pagesOnly, layout->title.ends_with("Pages Only"));
    EXPECT_EQ(layout->columns, layout->fileName[7] - '0');
  }
  EXPECT_EQ(layoutOfEntry("Four Columns"), nullptr);
  EXPECT_EQ(sitemaps::layoutNamed("3C"), nullptr);
}

}  // namespace
}  // namespace html_editor
