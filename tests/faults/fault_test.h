// A home directory with one site, "shop", whose program is run while files and processes fail.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/program_test.h"
#include "support/sanitizers.h"
#include "support/site_server.h"

namespace faults {

using support::Arguments;
using support::manyPages;

/// Everything below the data folder: the text of each file, and "(folder)" for each folder.
using Snapshot = std::map<std::string, std::string>;

/// Every file of a scanned site stands as it did `before`, as it does `after` the whole scan or, a document,
/// as it does after some whole number of pages.
void expectNothingLost(const Snapshot& now, const Snapshot& before, const Snapshot& after);

/// A call that strace saw: the `number`-th of its name, and the line about it.
struct SystemCall {
  std::string name;
  int number;
  std::string line;
};

class FaultTest : public support::ProgramTest {
 protected:
  /// Runs `launcher` with the program and `arguments` behind its own; it is looked up in PATH.
  support::ProgramResult runUnder(Arguments launcher, const Arguments& arguments) const;

  /// The calls that `arguments` makes with success below the home directory, in order. `watched` are strace's
  /// options that tell which calls count.
  std::vector<SystemCall> callsOf(const Arguments& watched, const Arguments& arguments) const;
  /// Runs the program and has `what`, "error=EIO" or "signal=KILL", done to it as it enters the call.
  support::ProgramResult runWith(const std::string& what, const SystemCall& call, const Arguments& watched,
                                 const Arguments& arguments) const;

  /// What the data folder holds, and how to get back there.
  Snapshot snapshot() const;
  void restore(const Snapshot& snapshot) const;

  /// Has a scan replace sitemaps that were edited.
  void makeFormerSet() const;
  /// The sitemaps of the site and, below "former/", those that a scan has replaced.
  Snapshot sets() const;

  std::filesystem::path site() const { return controls.siteFolder("shop"); }
};

/// Skips the test where the calls of the program alone cannot be watched, or there is no strace.
#define SKIP_WITHOUT_STRACE()                                                          \
  if (support::withSanitizers()) GTEST_SKIP() << "sanitizers make calls of their own"; \
  if (runUnder({"strace", "-f", "-o", "/dev/null"}, {"--version"}).exitCode != 0)      \
  GTEST_SKIP() << "strace is missing, or not allowed to trace"

}  // namespace faults
