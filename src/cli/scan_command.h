// "veskel-cli scan": one scan in the foreground.
#pragma once

#include <string>

#include "cli/cli_context.h"

namespace cli {

/// What happens when the site seems to lead in a circle.
enum class LoopAnswer { keepGoing, cancelScan };

enum class ProgressStyle { automatic, bar, json, none };

struct ScanOptions {
  std::string siteName;
  LoopAnswer loops = LoopAnswer::keepGoing;
  ProgressStyle progress = ProgressStyle::automatic;
  bool goesOn = false;          // with what the last scan has kept
  GivenSettings settings = {};  // for this scan, in place of the site's own
  bool passwordFromInput = false;
};

/// Scans the site and says how it went. Returns the exit code.
int runScan(const CliContext& context, const ScanOptions& options);

}  // namespace cli
