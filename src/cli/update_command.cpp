#include "cli/update_command.h"

#include <iostream>

#include "cli/cli_context.h"
#include "cli/report_summary.h"
#include "cli/signal_watch.h"

namespace cli {

namespace {

using update::CheckEnd;

void printLine(const std::string& text) {
  if (!text.empty()) printLines(text + "\n");
}

void printRelease(const update::Release& release) {
  if (!release.page.empty()) std::cout << "Download page: " << printable(release.page) << '\n';
  if (release.notes.empty()) return;
  std::cout << '\n';
  printLine(release.notes);
}

}  // namespace

int checkUpdate(platform::HttpClient& client, const update::CheckRequest& request) {
  const SignalWatch signals;
  const update::CheckResult result = update::checkForUpdate(client, request, signals.token());
  const update::CheckText text = update::textOf(result, request);
  switch (result.end) {
    case CheckEnd::newer:
      printLine(text.title + " " + text.message);
      printRelease(result.release);
      if (!result.notesProblem.empty())
        printWarning("The release notes at " + printable(result.release.notesAddress) +
                     " could not be read: " + printable(result.notesProblem) + ".");
      return exitFoundNewer;
    case CheckEnd::current:
    case CheckEnd::needsNewerSystem:
    case CheckEnd::programIsNewer:
      printLine(text.title);
      printLine(text.message);
      return exitDone;
    case CheckEnd::notReached:
    case CheckEnd::notRead:
      printError(printable(text.title));
      printError(printable(text.message));
      return result.end == CheckEnd::notReached ? exitUnreachable : exitFileFailure;
    case CheckEnd::stopped:
      break;
  }
  return exitStopped;
}

}  // namespace cli
