#include "html_editor/layouts.h"

#include <gtest/gtest.h>

namespace html_editor {
namespace {

TEST(Layouts, AnItemOpensTheFileThatItsTitleNames) {
  for (const LayoutItem& item : sitemapTypeItems) {
    SCOPED_TRACE(item.title);
    const sitemaps::Layout* opened = layoutOfEntry(item.representedObject);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(opened->title, item.title);
    EXPECT_EQ(item.title[1], "iwh"[opened->columns - 1]);  // Single, Two, Three
    EXPECT_EQ(item.title.ends_with("All Links"), opened->listing == sitemaps::Listing::allLinks);
  }
  EXPECT_EQ(sitemapTypeItems.front().representedObject, "Single Column, Pages Only");
  EXPECT_EQ(layoutOfEntry("Four Columns"), nullptr);
}

}  // namespace
}  // namespace html_editor
