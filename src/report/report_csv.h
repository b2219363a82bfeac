// A report as tables for spreadsheets (RFC 4180).
#pragma once

#include <string>

#include "report/site_report.h"

namespace report {

/// A line a page. The last field of a broken one names the pages that link there, a line each.
std::string pagesCsv(const SiteReport& report);

/// A line for each page that links to a broken one, with the link's name: "URL,Status,Reason,Linking
/// page,Link". A broken page to which none is known to link has a line of its own.
std::string brokenCsv(const SiteReport& report);

}  // namespace report
