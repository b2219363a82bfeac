// Why an address is not in the sitemaps, and what would bring it there.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/latest_report.h"

namespace report {

/// Where a page that the scan visited stands: "In the sitemaps", "Left out, as it asks to be left out",
/// "Broken: 404 - Not Found".
std::string standingText(const Page& page);

/// Whether a text that somebody searches for is meant as an address, or as the end of one.
bool looksLikeAddress(std::string_view typed);

/// Why the address is not in the sitemaps, in sentences; where it is, says so. Spellings that differ only in
/// scheme, "#..." or a "/" at the end are taken as one. `filters` are the site's own ones. Holds texts of the
/// site as they are, and names places of the window.
std::string whyNotListed(const LatestReport& report, const std::vector<std::string>& filters,
                         std::string_view typed);

}  // namespace report
