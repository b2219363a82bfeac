// Records that are not as they should be: in the older format, under another folder's name, or left by a
// change that was cut off. Reading the list of sites puts them right.
#pragma once

#include <string>
#include <vector>

#include "store/global_controls.h"
#include "store/state_folder.h"

namespace store {

/// What of it failed, one sentence each.
using Problems = std::vector<std::string>;

/// Whether the file's extension is exactly this one; ".qzVSK" alone is a hidden file without extension.
bool hasExtension(const std::string& file, std::string_view extension);

/// Upgrades every record in the older format ("NAME.qzvsk") and finishes upgrades that were cut off. The
/// older record goes before the new one comes, since the two names are the same to a file system that ignores
/// case; between the two the new text has a name of its own. Records whose upgrade fails stay as they were.
/// `files` are all below the data folder. Returns whether there were any.
bool upgradeRecords(const GlobalControls& controls, const std::vector<std::string>& files,
                    Problems& problems);

/// Sees to it that a site's record is named after its folder and says so itself: a folder may have been
/// copied or renamed by hand. Of a cut-off renaming it drops the second record, and has the state follow.
/// Nothing else in a record is touched, and no site that is being scanned. `records` are all below the data
/// folder, sorted.
void mendRecords(const GlobalControls& controls, const StateFolder& state,
                 const std::vector<std::string>& records, Problems& problems);

}  // namespace store
