// The chooser of layouts: its items, and the files behind them.
#pragma once

#include <array>
#include <string_view>

#include "sitemaps/layouts.h"

namespace html_editor {

/// The names of the layouts, the plainest first. An entry stands for the chooser's item in the same place,
/// and opens the file that the item's title names, not the one that it names itself: see layoutOfEntry().
extern const std::array<std::string_view, sitemaps::kLayouts.size()> sitemapTypeArray;

/// An item of the chooser.
struct LayoutItem {
  std::string_view title;              // what the user reads, and which file a rebuild writes
  std::string_view representedObject;  // an entry of sitemapTypeArray: which file a switch opens
};

/// In the order shown. Switching and rebuilding lead to the same file for each item; the first one's is the
/// document of the first load.
extern const std::array<LayoutItem, sitemaps::kLayouts.size()> sitemapTypeItems;

/// The layout that switching opens for an entry of sitemapTypeArray; null for any other text.
const sitemaps::Layout* layoutOfEntry(std::string_view entry);

}  // namespace html_editor
