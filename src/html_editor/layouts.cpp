#include "html_editor/layouts.h"

#include <algorithm>
#include <cstddef>

namespace html_editor {

constexpr std::array<std::string_view, 6> sitemapTypeArray = {
    "Single Column, Pages Only", "Two Columns, Pages Only", "Three Columns, Pages Only",
    "Single Column, All Links",  "Two Columns, All Links",  "Three Columns, All Links"};

constexpr std::array<LayoutItem, 6> sitemapTypeItems = {{
    {"Three Columns, All Links", sitemapTypeArray[0]},
    {"Two Columns, All Links", sitemapTypeArray[1]},
    {"Single Column, All Links", sitemapTypeArray[2]},
    {"Three Columns, Pages Only", sitemapTypeArray[3]},
    {"Two Columns, Pages Only", sitemapTypeArray[4]},
    {"Single Column, Pages Only", sitemapTypeArray[5]},
}};

namespace {

/// The files of the chooser's items, in the order of those.
constexpr std::array<std::string_view, 6> kFiles = {"sitemap3c.html",   "sitemap2c.html",
                                                    "sitemap1c.html",   "sitemap3cpo.html",
                                                    "sitemap2cpo.html", "sitemap1cpo.html"};

const sitemaps::Layout* layoutOfFile(std::string_view fileName) {
  const auto found = std::find_if(sitemaps::kLayouts.begin(), sitemaps::kLayouts.end(),
                                  [fileName](const auto& layout) { return layout.fileName == fileName; });
  return found == sitemaps::kLayouts.end() ? nullptr : &*found;
}

template <typename Names, typename Projection>
const sitemaps::Layout* layoutAt(const Names& names, Projection nameOf, std::string_view name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (nameOf(names[i]) == name) return layoutOfFile(kFiles[i]);
  }
  return nullptr;
}

}  // namespace

const sitemaps::Layout* layoutOfEntry(std::string_view entry) {
  return layoutAt(
      sitemapTypeArray, [](std::string_view name) { return name; }, entry);
}

const sitemaps::Layout* layoutOfTitle(std::string_view title) {
  return layoutAt(
      sitemapTypeItems, [](const LayoutItem& item) { return item.title; }, title);
}

}  // namespace html_editor
