// Adding, editing and deleting sites on disk, for the window and the command line alike. Input comes from
// checkSiteInput().
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/phrases.h"
#include "store/global_controls.h"
#include "store/state_folder.h"

namespace store {

/// The sentences a user sees when a name is taken.
inline constexpr std::string_view kCreateNameTaken = platform::Phrases::noop(
    "The site you are trying to create already exists, please select a different name.");
std::string renameNameTaken(std::string_view name);

enum class SaveOutcome {
  saved,      // done; `state` says whether the state folder followed
  nameTaken,  // nothing was done, but see NameClash
  busy,       // the site is being scanned, nothing was done
  failed,     // `path` and `file` say what and why; nothing changed, but see replaceFile() for new content
};

struct [[nodiscard]] SaveResult {
  SaveOutcome outcome = SaveOutcome::saved;
  std::filesystem::path path = {};  // what could not be made, moved, read, written or removed
  platform::FileResult file = {};   // of that operation
  platform::FileResult state = {};  // of having what is remembered of the site follow
};

/// What is not given stays as it is.
struct SiteEdit {
  std::optional<std::string> name = {};
  std::optional<std::string> url = {};
  std::optional<bool> ignoreRobots = {};
};

/// What becomes of an edit whose name belongs to another site.
enum class NameClash {
  refuse,
  overwriteUrl,  // the other site gets the URL and the edited one stays as it is; when that fails, `path` and
                 // `file` say so beside the outcome `nameTaken`
};

/// The file operations behind the site editor. Each takes the site's lock for itself, and the site's state
/// folder follows. Holds no state but the paths; the data folder has to exist.
class AddEditDeleteSites {
 public:
  AddEditDeleteSites(GlobalControls controls, StateFolder state);

  /// Makes the site's folder and its record, both or none.
  SaveResult createNewSite(std::string_view name, std::string_view url) const;

  /// Changes a site's record, and renames the site. A rename that fails half way is undone, and at no moment
  /// of one that is cut off is a folder without a record that names it.
  SaveResult saveEditedSite(std::string_view originalName, const SiteEdit& edit, NameClash clash) const;

  /// Removes the site's folder with everything in it. The site is gone from the start, however the removal
  /// ends; only after a failure it is back, with what is left of it. `missing` when there is none.
  SaveResult deleteSite(std::string_view name) const;

 private:
  SaveResult rename(std::string_view from, std::string_view to, std::string_view record) const;

  GlobalControls m_controls;
  StateFolder m_state;
};

}  // namespace store
