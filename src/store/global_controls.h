// Where things lie: the data folder and the files of a site.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

namespace store {

/// Names of the files in a site's folder, besides the site record.
inline constexpr std::string_view kFiltersFile = "filters.vskp";
inline constexpr std::string_view kBadLinksFile = "badLinks.txt";

inline constexpr std::string_view kRecordExtension = ".qzVSK";

/// The home directory that HOME names, else the user database; nothing when neither knows one.
std::optional<std::filesystem::path> homeFolder();

/// Paths only; nothing here touches the disk. A value, made once from the user's home directory.
class GlobalControls {
 public:
  explicit GlobalControls(std::filesystem::path home) : m_home(std::move(home)) {}

  /// For the user's homeFolder(); nothing when there is none.
  static std::optional<GlobalControls> fromEnvironment();

  /// The data folder: HOME/Library/Application Support/Quillfern/Veskel, without a trailing slash.
  /// The path of folders from HOME on is the same on every system, so that a copied home brings its sites
  /// along.
  std::filesystem::path homeFolderLocation() const;

  /// A site's record: data folder / name / name + ".qzVSK".
  std::filesystem::path returnFullFileLocation(std::string_view siteName) const;

  /// A site's folder: data folder / name.
  std::filesystem::path siteFolder(std::string_view siteName) const;

 private:
  std::filesystem::path m_home;
};

}  // namespace store
