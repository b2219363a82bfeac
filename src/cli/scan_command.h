// "veskel-cli scan": one scan in the foreground.
#pragma once

#include <string>

#include "cli/cli_context.h"

namespace cli {

/// What happens when the site seems to lead in a circle.
enum class LoopAnswer { keepGoing, cancelScan };

/// Which broken pages make the exit code of a scan that is done otherwise.
enum class FailOn {
  broken,
  newBroken,  // against the complete scan before; without one every broken page is new
  never,
};

enum class ProgressStyle { automatic, bar, json, none };

struct ScanOptions {
  std::string siteName;
  LoopAnswer loops = LoopAnswer::keepGoing;
  ProgressStyle progress = ProgressStyle::automatic;
  FailOn failOn = FailOn::broken;
  bool goesOn = false;          // with what the last scan has kept
  GivenSettings settings = {};  // for this scan, in place of the site's own
  bool passwordFromInput = false;
};

/// Scans the site and says how it went. Returns the exit code.
int runScan(const CliContext& context, const ScanOptions& options);

}  // namespace cli
