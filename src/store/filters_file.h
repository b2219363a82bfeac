// A site's URL filters: pieces of text that keep a link out of its sitemaps. One per line in "filters.vskp".
#pragma once

#include <cstddef>
#include <functional>
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
/// Nothing is written for an empty `text`, which is an input error of the caller's. `busy` while the site is
/// being scanned.
platform::FileResult addFilter(const GlobalControls& controls, std::string_view siteName,
                               std::string_view text);

/// Has `change` change the site's filters as they are now and writes them, unless it returns false. Nobody
/// else changes them meanwhile; `busy` while the site is being scanned. `entries` are the filters afterwards.
using FilterChange = std::function<bool(std::vector<std::string>& filters)>;
Filters changeFilters(const GlobalControls& controls, std::string_view siteName, const FilterChange& change);

/// `present` without the filters that were seen in `rows` of the list `shown`. Of equal ones the one that has
/// as many of its kind before it goes; one that is gone already is passed over.
std::vector<std::string> withoutFilters(const std::vector<std::string>& present,
                                        const std::vector<std::string>& shown,
                                        const std::vector<std::size_t>& rows);

}  // namespace store
