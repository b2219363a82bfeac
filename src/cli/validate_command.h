// "veskel-cli validate": whether search engines will take a sitemap.
#pragma once

#include <string>

#include "cli/cli_context.h"

namespace cli {

enum class ShownFindings { first, all };  // the first hundred

/// Checks the XML sitemap of the site of this name, as the export would write it, or, when there is no such
/// site, the file of this name, and prints what it finds and how much that is. A file may be a sitemap or an
/// index of such, and compressed.
ExitCode validateSitemap(const CliContext& context, const std::string& nameOrFile, ShownFindings shown);

}  // namespace cli
