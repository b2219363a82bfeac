// "veskel-cli report" and what other commands tell of a site's report.
#pragma once

#include <optional>
#include <string>

#include "cli/cli_context.h"

namespace cli {

/// As given on the command line.
struct ReportOptions {
  std::string siteName;
  std::optional<std::string> output = {};  // a file, or "-" for standard output
  std::optional<std::string> format = {};  // "html", "json" or "csv"; by the file's ending when not given
  bool force = false;                      // replace a file that exists
  bool broken = false;                     // the broken pages alone, all of them
};

/// Prints a summary, or writes the report as a file.
ExitCode showReport(const CliContext& context, const ReportOptions& options);

/// Prints what the last complete scan has changed since the one before.
ExitCode showChanges(const CliContext& context, const std::string& siteName);

}  // namespace cli
