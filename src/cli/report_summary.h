// A report on a terminal.
#pragma once

#include <string_view>

#include "report/site_report.h"

namespace cli {

/// What matters most, on one screen.
void printReport(const report::SiteReport& report);

/// All broken pages, each with the pages that link there.
void printBrokenPages(const report::SiteReport& report);

/// Several lines, each made printable, and a line feed behind the last.
void printLines(std::string_view text);

}  // namespace cli
