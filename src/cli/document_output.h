// Where documents go that a command makes: a file, or standard output.
#pragma once

#include <string>
#include <string_view>

#include "cli/cli_context.h"

namespace cli {

inline constexpr std::string_view kStandardOutput = "-";

/// Says that the file is there already.
ExitCode reportExisting(const std::filesystem::path& file);

/// Writes it to the file, or to standard output for "-"; a terminal gets it printable(). Files that exist are
/// replaced with `force` only. Says what went wrong, or where it was written.
ExitCode writeDocument(const std::string& output, bool force, std::string_view text);

}  // namespace cli
