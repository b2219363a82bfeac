#include "cli/document_output.h"

#include <iostream>

#include <unistd.h>

namespace cli {

namespace {

/// Where a terminal would obey what a site has put into its titles, only its line ends and tabs are.
void printDocument(std::string_view text) {
  if (isatty(STDOUT_FILENO) == 0) {
    std::cout << text;
    return;
  }
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\n\t");
    std::cout << printable(text.substr(0, end));
    if (end == std::string_view::npos) break;
    std::cout << text[end];
    text.remove_prefix(end + 1);
  }
}

}  // namespace

ExitCode reportExisting(const std::filesystem::path& file) {
  printError(printable(file.native()) + " exists already; --force replaces it.");
  return exitFileFailure;
}

ExitCode writeDocument(const std::string& output, bool force, std::string_view text) {
  if (output == kStandardOutput) {
    printDocument(text);
    return exitDone;
  }
  const std::filesystem::path file = output;
  if (!force && platform::somethingAt(file)) return reportExisting(file);
  const platform::FileResult written = platform::replaceFile(file, text);
  if (!written.ok()) return reportFileFailure("Could not write", file, written);
  std::cout << "Written to " << printable(file.native()) << '\n';
  return exitDone;
}

}  // namespace cli
