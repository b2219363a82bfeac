#include "cli/restore_command.h"

#include <iostream>

#include "sitemaps/former_set.h"

namespace cli {

namespace {

ExitCode reportNothingKept(const std::string& name) {
  printError("No edited sitemaps of \"" + printable(name) + "\" were replaced: there is nothing to restore.");
  return exitBadInput;
}

}  // namespace

ExitCode restoreSite(const CliContext& context, const std::string& name, Confirmation confirmation) {
  if (!context.hasSite(name)) return reportUnknownSite(name);
  const sitemaps::FormerSet former(context.controls, context.state, name);
  if (!former.isKept()) return reportNothingKept(name);
  const AskedAction asked = {"put the sitemaps of before back", "Nothing was changed."};
  if (const auto code = confirm(confirmation, asked, name)) return *code;
  const sitemaps::RestoreResult restored = former.restore();
  switch (restored.outcome) {
    case sitemaps::RestoreOutcome::nothingKept:
      return reportNothingKept(name);
    case sitemaps::RestoreOutcome::busy:
      return reportBusySite(name);
    case sitemaps::RestoreOutcome::failed:
      return reportFileFailure("Could not restore", restored.path, restored.file);
    case sitemaps::RestoreOutcome::done:
      break;
  }
  std::cout << "Restored the sitemaps of " << printable(name)
            << ". Those that made way are kept: restoring once more brings them back.\n";
  return exitDone;
}

}  // namespace cli
