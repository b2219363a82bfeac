#include "html_editor/layouts.h"

#include <set>

#include <gtest/gtest.h>

namespace html_editor {
namespace {

TEST(Layouts, AnItemSwitchesToTheFileThatItRebuildsAndNames) {
  std::set<std::string_view> files;
  for (const LayoutItem& item : sitemapTypeItems) {
    SCOPED_TRACE(item.title);
    const sitemaps::Layout* layout = layoutOfTitle(item.title);
    ASSERT_NE(layout, nullptr);
    EXPECT_EQ(layoutOfEntry(item.representedObject), layout);
    EXPECT_EQ(item.title.ends_with("Pages Only"), layout->listing == sitemaps::Listing::pagesOnly);
    constexpr std::string_view kWords[] = {"Single", "Two", "Three"};
    EXPECT_TRUE(item.title.starts_with(kWords[layout->columns - 1]));
    files.insert(layout->fileName);
  }
  EXPECT_EQ(files.size(), 6U);
  EXPECT_EQ(layoutOfTitle(sitemapTypeItems[0].title)->fileName, "sitemap3c.html");
  EXPECT_EQ(layoutOfEntry("Four Columns"), nullptr);
  EXPECT_EQ(layoutOfTitle(""), nullptr);
}

TEST(Layouts, EntriesOpenFilesByTheirPlaceAndNotByTheirWording) {
  const std::string_view files[] = {"sitemap3c.html",   "sitemap2c.html",   "sitemap1c.html",
                                    "sitemap3cpo.html", "sitemap2cpo.html", "sitemap1cpo.html"};
  for (std::size_t i = 0; i < sitemapTypeArray.size(); ++i) {
    EXPECT_EQ(layoutOfEntry(sitemapTypeArray[i])->fileName, files[i]);
  }
  EXPECT_EQ(layoutOfEntry("Single Column, Pages Only")->fileName, "sitemap3c.html");
  EXPECT_EQ(layoutOfTitle("Single Column, Pages Only")->fileName, "sitemap1cpo.html");
}

}  // namespace
}  // namespace html_editor
