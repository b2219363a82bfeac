// The list of a site's broken pages as files for the user.
#pragma once

#include <string>
#include <vector>

#include "store/broken_reasons.h"

namespace sitemaps {

/// One address a line, and an empty line at the end: without any address a line feed alone.
std::string brokenLinksText(const std::vector<std::string>& urls);

/// A page with one link a paragraph. Addresses are written as in the HTML sitemaps.
std::string brokenLinksHtml(const std::vector<std::string>& urls);

/// A table for spreadsheets (RFC 4180): URL, status, reason. Status and reason are empty where the reason is
/// not known; a page that gave no answer at all has the status 0.
std::string brokenLinksCsv(const std::vector<store::BrokenPage>& pages);

}  // namespace sitemaps
