// Questions on the terminal before something is done that its user may not want.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/cli_context.h"

namespace cli {

enum class Confirmation { ask, given };

/// "Do you really want to delete the site:", and what is said where nobody can be asked, or the answer is no.
struct AskedAction {
  std::string_view action;   // "delete the site"
  std::string_view refused;  // "Nothing was deleted."
};

/// Whether the action on a site is wanted: nothing when it is, else the exit code, behind a sentence.
std::optional<ExitCode> confirm(Confirmation confirmation, const AskedAction& asked,
                                const std::string& siteName);

}  // namespace cli
