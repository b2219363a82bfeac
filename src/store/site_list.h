// The list of sites: whatever records the data folder holds.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "store/global_controls.h"
#include "store/state_folder.h"

namespace store {

/// Makes sure the data folder exists and can be read, with every folder on the way to it from the home
/// directory on. The home directory itself is never made.
platform::FileResult checkNeededFoldersExist(const GlobalControls& controls);

struct SiteList {
  std::vector<std::string> names;          // folder names relative to the data folder, sorted by byte order
  bool updatedOldFile = false;             // records in the older format were upgraded on the way
  std::vector<std::string> problems = {};  // what of this failed, one sentence each
};

/// Puts right what is not as it should be, see record_upkeep.h, removes what was left of a site whose making
/// or deletion was cut off, then lists the folders that hold a record, each once. A folder that hides its
/// record because it cannot be read is listed too: reading that site tells why. A record lying directly in
/// the data folder is passed over.
SiteList siteTableRows(const GlobalControls& controls, const StateFolder& state);

/// The names of the sites that have a record, sorted, without changing anything on the disk: for a glance.
std::vector<std::string> recordedSites(const GlobalControls& controls);

/// What is known of one site: its record's values, empty or 0 where the record lacks them.
struct SiteDetails {
  std::string name;
  std::string url;
  bool ignoreRobots = false;
  int pagesFound = 0;
  int totalLinks = 0;
  int pagesUsed = 0;
  std::vector<std::string> badLinks;  // broken pages of the last scan, in the order found
};

struct [[nodiscard]] SelectedSite {
  platform::FileResult
      result;  // of reading record and broken links, and of writing counters that were missing
  std::filesystem::path path = {};  // what could not be read or written
  SiteDetails details = {};
};

/// Reads a site and gives its record the counters it lacks, as selecting it does. While it is being scanned
/// its record belongs to the scan, and is left as it is.
SelectedSite selectSite(const GlobalControls& controls, std::string_view name);

/// Reads a site without changing anything.
SelectedSite readSite(const GlobalControls& controls, std::string_view name);

}  // namespace store
