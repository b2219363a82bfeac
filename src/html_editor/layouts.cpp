#include "html_editor/layouts.h"

#include <cstddef>

namespace html_editor {

using sitemaps::kLayoutsOffered;

namespace {

constexpr std::size_t kCount = sitemaps::kLayouts.size();

std::array<std::string_view, kCount> plainestFirst() {
  std::array<std::string_view, kCount> titles;
  for (std::size_t i = 0; i < kCount; ++i) titles[i] = kLayoutsOffered[kCount - 1 - i]->title;
  return titles;
}

std::array<LayoutItem, kCount> itemsShown() {
  std::array<LayoutItem, kCount> items;
  for (std::size_t i = 0; i < kCount; ++i) items[i] = {kLayoutsOffered[i]->title, sitemapTypeArray[i]};
  return items;
}

}  // namespace

const std::array<std::string_view, kCount> sitemapTypeArray = plainestFirst();
const std::array<LayoutItem, kCount> sitemapTypeItems = itemsShown();

const sitemaps::Layout* layoutOfEntry(std::string_view entry) {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (sitemapTypeArray[i] == entry) return kLayoutsOffered[i];
  }
  return nullptr;
}

}  // namespace html_editor
