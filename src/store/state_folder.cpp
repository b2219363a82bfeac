#include "store/state_folder.h"

#include <cstdlib>

#include "store/global_controls.h"

namespace store {

namespace {

using platform::FileResult;
using platform::FileStatus;

FileResult fineWhenMissing(FileResult result) {
  if (result.status == FileStatus::missing) return {};
  return result;
}

}  // namespace

std::optional<StateFolder> StateFolder::fromEnvironment() {
  // A relative path in XDG_STATE_HOME is invalid and to be ignored, by the rules for such folders.
  const char* stateHome = std::getenv("XDG_STATE_HOME");
  if (stateHome != nullptr && *stateHome == '/') return StateFolder(stateHome);
  const auto home = homeFolder();
  if (!home) return {};
  return StateFolder(*home / ".local" / "state");
}

std::filesystem::path StateFolder::ofSite(std::string_view siteName) const {
  auto path = m_location / "sites";
  path += '/';  // as text: with operator/ a name that begins with a slash would lead out of the folder
  path += siteName;
  return path;
}

FileResult StateFolder::rename(std::string_view from, std::string_view to) const {
  if (auto removed = remove(to); !removed.ok()) return removed;
  return fineWhenMissing(platform::moveTo(ofSite(from), ofSite(to)));
}

FileResult StateFolder::remove(std::string_view siteName) const {
  return fineWhenMissing(platform::removeFolder(ofSite(siteName)));
}

}  // namespace store
