// Why pages of a site's last scan were broken. The site's folder holds only their addresses, so the reasons
// are kept in the user's state folder: XDG_STATE_HOME, else HOME/.local/state, then "veskel/broken/" + site
// name + ".tsv". A line of the file is the URL, a tab and the reason; tabs, line ends and backslashes inside
// the two are escaped, so that a hostile URL cannot pass for another line.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace store {

struct BrokenPage {
  std::string url;
  std::string reason;  // "404 - Not Found"; "0 - " and the cause when no answer came; empty where unknown
};

/// The reasons of all sites of one user. A value; the folder is made when something is first saved.
class BrokenReasons {
 public:
  explicit BrokenReasons(std::filesystem::path stateFolder) : m_folder(std::move(stateFolder)) {}

  /// Nothing when XDG_STATE_HOME names no absolute path and no home directory is known either.
  static std::optional<BrokenReasons> fromEnvironment();

  /// Replaces what was kept of the site.
  /// The folder for all that the program remembers and that is no data of a site: state folder / "veskel".
  std::filesystem::path stateFolder() const { return m_folder / "veskel"; }

  /// Remembers the broken pages of a scan that has just ended, also when there are none.
  platform::FileResult save(std::string_view siteName, const std::vector<BrokenPage>& pages) const;

  /// When save() was last called for the site, which is when it was last scanned; nothing when never.
  std::optional<std::filesystem::file_time_type> savedAt(std::string_view siteName) const;

  /// `urls` with the reasons known for them. A file that is missing or cannot be read knows none.
  std::vector<BrokenPage> lookUp(std::string_view siteName, const std::vector<std::string>& urls) const;

  /// Follows a site that is renamed or deleted. A missing file is fine; what was left under the new name is
  /// dropped.
  platform::FileResult rename(std::string_view from, std::string_view to) const;
  platform::FileResult remove(std::string_view siteName) const;

 private:
  std::filesystem::path file(std::string_view siteName) const;

  std::filesystem::path m_folder;
};

}  // namespace store
