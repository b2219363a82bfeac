#include "cli/confirmation.h"

#include <iostream>

#include <unistd.h>

#include "platform/text.h"

namespace cli {

namespace {

bool isYes(std::string_view answer) {
  const std::string folded = platform::foldCase(answer);
  return folded == "y" || folded == "yes";
}

}  // namespace

std::optional<ExitCode> confirm(Confirmation confirmation, const AskedAction& asked,
                                const std::string& siteName) {
  if (confirmation == Confirmation::given) return {};
  if (isatty(STDIN_FILENO) == 0) {
    printError("Nobody can be asked here whether to " + std::string(asked.action) + ": give --yes.");
    return exitBadInput;
  }
  std::cerr << "Do you really want to " << asked.action << ":\n"
            << printable(siteName) << "\n[y/N] " << std::flush;
  std::string answer;
  std::getline(std::cin, answer);
  if (isYes(answer)) return {};
  std::cerr << asked.refused << '\n';
  return exitDone;
}

}  // namespace cli
