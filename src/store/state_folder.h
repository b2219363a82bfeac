// The user's state folder: what the program remembers beside the sites' own data, which holds nothing of it.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace store {

/// A value; folders are made when something is first kept in them.
class StateFolder {
 public:
  /// `stateHome` is where all programs keep their state.
  explicit StateFolder(std::filesystem::path stateHome) : m_location(std::move(stateHome) / "veskel") {}

  /// In XDG_STATE_HOME, else in HOME/.local/state; nothing when the first names no absolute path and no home
  /// directory is known either.
  static std::optional<StateFolder> fromEnvironment();

  /// The folder for all that the program remembers: state home / "veskel".
  const std::filesystem::path& location() const { return m_location; }

  /// All that is remembered of one site: location() / "sites" / name. It goes where the site goes.
  std::filesystem::path ofSite(std::string_view siteName) const;

  /// Follows a site that is renamed or deleted. A missing folder is fine; what was left under the new name is
  /// dropped, since a site of that name may have gone without telling.
  platform::FileResult rename(std::string_view from, std::string_view to) const;
  platform::FileResult remove(std::string_view siteName) const;

 private:
  std::filesystem::path m_location;
};

}  // namespace store
