// Adding, editing and deleting sites on disk. Input comes from checkSiteInput().
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "store/global_controls.h"

namespace store {

/// The sentences a user sees when a name is taken.
inline constexpr std::string_view kCreateNameTaken =
    "The site you are trying to create already exists, please select a different name.";
std::string renameNameTaken(std::string_view name);

enum class SaveOutcome {
  saved,
  nameTaken,  // create: nothing was written. Edit: the other site's URL was overwritten, see saveEditedSite()
  failed,     // `path` and `file` say what and why; nothing changed, but see replaceFile() for new content
};

struct [[nodiscard]] SaveResult {
  SaveOutcome outcome = SaveOutcome::saved;
  std::filesystem::path path = {};  // what could not be made, moved, read or written
  platform::FileResult file = {};   // of that operation
};

/// The file operations behind the site editor. Holds no state but the paths; the data folder has to exist.
class AddEditDeleteSites {
 public:
  explicit AddEditDeleteSites(const GlobalControls& controls) : m_controls(controls) {}

  /// Makes the site's folder and its record, both or none.
  SaveResult createNewSite(std::string_view name, std::string_view url) const;

  /// Renames the site and/or gives it another URL. When `newName` belongs to another site, that site's URL is
  /// overwritten with `newUrl`, the edited site stays as it is, and the outcome is `nameTaken`: callers that
  /// must not do that ask isNameTaken() first. When overwriting fails, `file` says so beside that outcome. A
  /// rename that fails half way is undone.
  SaveResult saveEditedSite(std::string_view originalName, std::string_view newName,
                            std::string_view newUrl) const;

  /// Removes the site's folder with everything in it. The site is gone from the start, however the removal
  /// ends; only after a failure it is back, with what is left of it. `missing` when there is none.
  platform::FileResult deleteSite(std::string_view name) const;

  /// Whether `newName` differs from `originalName` and something stands at its folder's path.
  bool isNameTaken(std::string_view originalName, std::string_view newName) const;

 private:
  GlobalControls m_controls;
};

}  // namespace store
