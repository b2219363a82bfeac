// "veskel-cli validate": whether search engines will take a sitemap.
#pragma once

#include <string>

#include "cli/cli_context.h"

namespace cli {

/// Checks the XML sitemap of the site of this name or, when there is no such site, the file of this name, and
/// prints every finding. A file may be a sitemap or an index of such, and compressed. In a site's own sitemap
/// empty elements are no faults, since the export leaves them out.
ExitCode validateSitemap(const CliContext& context, const std::string& nameOrFile);

}  // namespace cli
