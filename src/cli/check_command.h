// "veskel-cli check-links": whether what a site links to outside is still there.
#pragma once

#include <string>

#include "cli/cli_context.h"
#include "cli/site_commands.h"

namespace cli {

struct CheckOptions {
  std::string siteName;
  bool resources = false;  // also images, styles and scripts of its pages
  bool again = false;      // also what was asked before a check was stopped
  OutputStyle style = OutputStyle::text;
};

/// Asks the addresses and says how they are. Returns the exit code.
int checkLinks(const CliContext& context, const CheckOptions& options);

}  // namespace cli
