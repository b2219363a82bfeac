// A home directory with one site, "shop", whose program is run while files and processes fail.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "store/global_controls.h"
#include "support/run_program.h"
#include "support/sanitizers.h"
#include "support/site_server.h"
#include "support/temp_folder.h"

namespace faults {

using Arguments = std::vector<std::string>;

/// Everything below a folder: the text of each file, and "(folder)" for each folder.
using Snapshot = std::map<std::string, std::string>;
Snapshot snapshotOf(const std::filesystem::path& folder);

/// What a program that was killed in the very moment of a renaming may leave.
bool isLeftover(const std::string& file);
Snapshot withoutLeftovers(Snapshot snapshot);

/// A site of `count` pages, each with links to several others and every tenth with one that is broken.
support::SiteServer::Pages manyPages(int count);

/// Whether `text` is what a scan has written to `file` after some whole number of pages, by the text that it
/// has in the end.
bool endsBehindACell(const std::string& file, const std::string& text, const std::string& whole);

/// A file system in memory that only the process holding it sees in its place; all others, who have the
/// right, reach it by path(). Gone with this object.
class MountedFolder {
 public:
  /// `options` are those of mount, "size=1m". The files of `content` are copied in; `readOnly`, a folder in
  /// it, can be read only. path() is empty where mounting is not possible, and problem() says why.
  MountedFolder(const std::string& options, const std::filesystem::path& content = {},
                const std::string& readOnly = {});

  const std::filesystem::path& path() const { return m_path; }
  const std::string& problem() const { return m_problem; }

 private:
  support::TempFolder m_place;
  std::optional<support::RunningProgram> m_holder;
  std::filesystem::path m_path;
  std::string m_problem;
};

class FaultTest : public testing::Test {
 protected:
  /// Works in `home` from now on.
  void useHome(const std::filesystem::path& home) { m_home = home; }

  support::ProgramOptions options() const;
  support::ProgramResult run(const Arguments& arguments) const;
  /// Runs `launcher` with the program and `arguments` behind its own; it is looked up in PATH.
  support::ProgramResult runUnder(Arguments launcher, const Arguments& arguments) const;
  /// What has to go well for a test to begin.
  void prepare(const Arguments& arguments, int expectedCode = 0) const;

  store::GlobalControls controls() const { return store::GlobalControls(m_home); }
  std::filesystem::path data() const { return controls().homeFolderLocation(); }
  std::filesystem::path site() const { return controls().siteFolder("shop"); }

  support::TempFolder ownHome;

 private:
  std::filesystem::path m_home = ownHome.path();
};

/// Skips the test where the calls of the program alone cannot be watched, or there is no strace.
#define SKIP_WITHOUT_STRACE()                                                          \
  if (support::withSanitizers()) GTEST_SKIP() << "sanitizers make calls of their own"; \
  if (runUnder({"strace", "-f", "-o", "/dev/null"}, {"--version"}).exitCode != 0)      \
  GTEST_SKIP() << "strace is missing, or not allowed to trace"

#define SKIP_UNLESS_MOUNTED(folder) \
  if ((folder).path().empty()) GTEST_SKIP() << "no file system can be mounted here: " << (folder).problem()

}  // namespace faults
