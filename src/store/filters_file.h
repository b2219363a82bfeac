// A site's URL filters: pieces of text that keep a link out of its sitemaps. One per line in "filters.vskp".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "store/global_controls.h"

namespace store {

struct [[nodiscard]] Filters {
  platform::FileResult result;            // of reading the file
  std::vector<std::string> entries = {};  // the non-empty lines, in file order; the same text can stand twice
};

/// A filter as it is stored: `typed` without line ends at both ends; blanks are kept.
std::string_view filterText(std::string_view typed);

/// The site's filters; a missing file is made, empty.
Filters loadFilterFile(const GlobalControls& controls, std::string_view siteName);

/// Appends filterText(text) to the existing file. A text with line feeds inside makes several filters.
/// Nothing is written for an empty `text`, which is an input error of the caller's.
platform::FileResult addFilter(const GlobalControls& controls, std::string_view siteName,
                               std::string_view text);

/// Writes `entries` as the site's whole filters file.
platform::FileResult saveFilters(const GlobalControls& controls, std::string_view siteName,
                                 const std::vector<std::string>& entries);

}  // namespace store
