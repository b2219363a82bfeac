// "veskel-cli export": a site's sitemaps and its broken pages, ready to be published.
#pragma once

#include <optional>
#include <string>

#include "cli/cli_context.h"

namespace cli {

enum class ExportKind { html, xml, broken };

/// As given on the command line; what belongs to another kind is refused.
struct ExportOptions {
  std::string siteName;
  ExportKind kind = ExportKind::html;
  std::optional<std::string> output = {};       // a file, or "-" for standard output
  std::optional<std::string> layout = {};       // html: "3c" and so on; "3c" when not given
  std::optional<std::string> format = {};       // broken: "txt", "html" or "csv"; "txt" when not given
  std::optional<std::string> splitFolder = {};  // xml, in place of the output: a folder for several files
  bool gzip = false;                            // xml
  bool force = false;                           // replace files that exist
};

ExitCode exportSite(const CliContext& context, const ExportOptions& options);

}  // namespace cli
