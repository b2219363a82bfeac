// What a finished scan leaves behind besides its documents: the list of broken pages and the counts in the
// record.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "store/global_controls.h"
#include "store/site_record.h"

namespace sitemaps {

/// One address a line, each line ended by a line feed.
std::string badLinksText(const std::vector<std::string>& badLinks);

/// Writes the site's list of broken pages. Without any, an existing list becomes empty and none is made.
platform::FileResult writeBadLinks(const store::GlobalControls& controls, std::string_view siteName,
                                   const std::vector<std::string>& badLinks);

/// Puts the counts of a scan into the site's record. A record that cannot be read or lacks one of the three
/// elements is left as it is, and the result says so.
platform::FileResult writeStatistics(const store::GlobalControls& controls, std::string_view siteName,
                                     const store::ScanStatistics& statistics);

}  // namespace sitemaps
