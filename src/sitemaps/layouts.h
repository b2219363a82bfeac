// The table of layouts: the HTML documents of a site, and every name that the user knows them by.
//
// Whatever goes through the layouts (a scan, the chooser, the export, the command line, a rebuild) reads this
// table, so that a further layout is a further row.
#pragma once

#include <array>
#include <string_view>

#include "platform/phrases.h"

namespace sitemaps {

/// What a document lists.
enum class Listing {
  pagesOnly,
  allLinks,  // each page, and below it the links found on it
};

/// One HTML document of a site.
struct Layout {
  std::string_view fileName;   // in the site's folder
  std::string_view shortName;  // on the command line, and of its pictogram
  std::string_view title;      // in the chooser of layouts
  const char* checkBox;        // by which it is ticked for the export
  int columns;                 // 1 or more
  Listing listing;
};

/// All of them, in the order in which a scan starts and closes them.
inline constexpr auto kLayouts = std::to_array<Layout>({
    {"sitemap1cpo.html", "1cpo", platform::Phrases::noop("Single Column, Pages Only"), "oneCST", 1,
     Listing::pagesOnly},
    {"sitemap1c.html", "1c", platform::Phrases::noop("Single Column, All Links"), "oneCSF", 1,
     Listing::allLinks},
    {"sitemap2cpo.html", "2cpo", platform::Phrases::noop("Two Columns, Pages Only"), "twoCST", 2,
     Listing::pagesOnly},
    {"sitemap2c.html", "2c", platform::Phrases::noop("Two Columns, All Links"), "twoCSF", 2,
     Listing::allLinks},
    {"sitemap3cpo.html", "3cpo", platform::Phrases::noop("Three Columns, Pages Only"), "threeCST", 3,
     Listing::pagesOnly},
    {"sitemap3c.html", "3c", platform::Phrases::noop("Three Columns, All Links"), "threeCSF", 3,
     Listing::allLinks},
});

/// Pointers into kLayouts in the order in which they are offered: the fullest first, so that the first is the
/// document that is shown first.
extern const std::array<const Layout*, kLayouts.size()> kLayoutsOffered;

/// The layout of a short name; null for any other text.
const Layout* layoutNamed(std::string_view shortName);

}  // namespace sitemaps
