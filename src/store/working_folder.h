// Folders beside those of the sites: a new site is made in one before it gets its name, and a deleted one is
// removed from one after it has lost its name. So a site is there whole or not at all, and a process that is
// killed half way leaves no folder that keeps a name taken.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "store/global_controls.h"

namespace store {

/// The files below the data folder as platform::filesBelow() gives them, without those in working folders.
std::vector<std::string> siteFiles(const GlobalControls& controls);

/// Removes the working folders that nobody works in any more. Whoever does holds the folder's lock.
void removeLeftWorkingFolders(const GlobalControls& controls);

/// Gives `folder`, a folder in the data folder, the name of a working folder; `path` is where it is then.
struct [[nodiscard]] SetAside {
  platform::FileResult result;
  std::filesystem::path path = {};
};
SetAside setAside(const GlobalControls& controls, const std::filesystem::path& folder);

/// A new working folder, locked. Goes away with this object unless it got another name.
class WorkingFolder {
 public:
  explicit WorkingFolder(const GlobalControls& controls);
  ~WorkingFolder();
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

  /// How making it went.
  const platform::FileResult& result() const { return m_result; }
  const std::filesystem::path& path() const { return m_path; }

  /// Makes it a folder like any other. `exists` when anything stands at `path`.
  platform::FileResult becomes(const std::filesystem::path& path);

 private:
  platform::FileResult m_result;
  std::filesystem::path m_path;  // empty once it has become another
  std::optional<platform::FolderLock> m_lock;
};

}  // namespace store
