// A report as one page for a browser.
#pragma once

#include <cstddef>
#include <string>

#include "report/site_report.h"

namespace report {

/// So many rows a table of the page has at most; below it the page says so.
inline constexpr std::size_t kRowsShown = 1'000;

/// The page, in UTF-8, without any outside resource. What stands in it comes from strangers: texts cannot
/// leave their place, and links lead to http and https only. Its size is bounded, whatever the site's.
std::string reportHtml(const SiteReport& report);

}  // namespace report
