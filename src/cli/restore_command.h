// "veskel-cli restore": the edited sitemaps that a scan has replaced, put back.
#pragma once

#include <string>

#include "cli/cli_context.h"
#include "cli/confirmation.h"

namespace cli {

ExitCode restoreSite(const CliContext& context, const std::string& name, Confirmation confirmation);

}  // namespace cli
