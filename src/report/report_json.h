// A report as JSON, for programs.
#pragma once

#include <string>

#include "report/site_report.h"

namespace report {

/// One object with all that is known: the scan, the history, the changes, broken pages with those that link
/// there, what was left out, all pages and all outside addresses, these a line each.
std::string reportJson(const SiteReport& report);

/// An array with the broken pages and those that link there.
std::string brokenJson(const SiteReport& report);

}  // namespace report
