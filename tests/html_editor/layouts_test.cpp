#include "html_editor/layouts.h"

#include <gtest/gtest.h>

namespace html_editor {
namespace {

TEST(Layouts, AnItemOpensTheFileThatItsTitleNamesAndItsEntryDoesNot) {
  const struct {
    std::string_view title, entry, file;
  } expected[] = {
      {"Three Columns, All Links", "Single Column, Pages Only", "sitemap3c.html"},
      {"Two Columns, All Links", "Two Columns, Pages Only", "sitemap2c.html"},
      {"Single Column, All Links", "Three Columns, Pages Only", "sitemap1c.html"},
      {"Three Columns, Pages Only", "Single Column, All Links", "sitemap3cpo.html"},
      {"Two Columns, Pages Only", "Two Columns, All Links", "sitemap2cpo.html"},
      {"Single Column, Pages Only", "Three Columns, All Links", "sitemap1cpo.html"},
  };
  ASSERT_EQ(sitemapTypeItems.size(), std::size(expected));
  for (std::size_t i = 0; i < sitemapTypeItems.size(); ++i) {
    SCOPED_TRACE(expected[i].title);
    EXPECT_EQ(sitemapTypeItems[i].title, expected[i].title);
    EXPECT_EQ(sitemapTypeItems[i].representedObject, expected[i].entry);
    EXPECT_EQ(layoutOfEntry(expected[i].entry)->fileName, expected[i].file);
  }
  EXPECT_EQ(layoutOfEntry("Four Columns"), nullptr);
}

}  // namespace
}  // namespace html_editor
