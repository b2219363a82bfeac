#include "store/site_list.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

#include "store/broken_reasons.h"
#include "store/record_upkeep.h"
#include "store/site_lock.h"
#include "store/site_record.h"
#include "store/text_lines.h"
#include "store/working_folder.h"

namespace store {

namespace {

/// The folders that these records lie in, sorted, each once.
std::vector<std::string> foldersOf(const std::vector<std::string>& records) {
  std::vector<std::string> names;
  for (const std::string& file : records) {
    const auto folderEnd = file.rfind('/');
    if (folderEnd != std::string::npos) names.push_back(file.substr(0, folderEnd));
  }
  // By name, not by path: in paths "a b/" comes before "a/".
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

/// The folders whose record was not seen, but is not known to be missing either, as when the folder cannot be
/// read. `listed` are the folders with a record, sorted.
std::vector<std::string> unreadableSites(const GlobalControls& controls,
                                         const std::vector<std::string>& listed) {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(controls.homeFolderLocation(), error), end;
       !error && entry != end; entry.increment(error)) {
    std::error_code ignored;
    const std::string name = entry->path().filename().string();
    if (!entry->is_directory(ignored) || platform::isTemporaryName(name)) continue;
    if (std::binary_search(listed.begin(), listed.end(), name)) continue;
    const auto record = platform::readFile(controls.returnFullFileLocation(name), platform::kMaxListBytes);
    if (record.result.status != platform::FileStatus::missing) names.push_back(name);
  }
  return names;
}

SelectedSite siteFromRecord(const GlobalControls& controls, std::string_view name, std::string_view record) {
  SelectedSite site;
  SiteDetails& details = site.details;
  details.name = recordValue(record, kSiteName).value_or("");
  details.url = recordValue(record, kSiteUrl).value_or("");
  details.ignoreRobots = ignoresRobots(record);
  details.pagesFound = recordCount(record, kPagesFound).value_or(0);
  details.totalLinks = recordCount(record, kTotalLinks).value_or(0);
  details.pagesUsed = recordCount(record, kPagesUsed).value_or(0);

  const auto badLinksFile = controls.siteFolder(name) / kBadLinksFile;
  const auto badLinks = platform::readFile(badLinksFile, platform::kMaxListBytes);
  if (badLinks.result.ok()) {
    details.badLinks = nonEmptyLines(badLinks.text);
  } else if (badLinks.result.status !=
             platform::FileStatus::missing) {  // before the first scan there is none
    site.result = badLinks.result;
    site.path = badLinksFile;
  }
  return site;
}

platform::FileResult addMissingCounters(const GlobalControls& controls, std::string_view name) {
  const auto file = controls.returnFullFileLocation(name);
  const std::string seen = platform::readFile(file, platform::kMaxListBytes).text;
  if (withMissingCounters(seen) == seen) return {};
  const SiteLock lock(controls, name);
  if (!lock.result().ok()) return lock.result();
  const auto record = platform::readFile(file, platform::kMaxListBytes);
  if (!record.result.ok()) return record.result;
  return platform::replaceFile(file, withMissingCounters(record.text));
}

}  // namespace

platform::FileResult checkNeededFoldersExist(const GlobalControls& controls) {
  const auto dataFolder = controls.homeFolderLocation();
  // HOME, "Library", "Application Support", "Quillfern", "Veskel": the four below HOME are made where
  // missing.
  std::array<std::filesystem::path, 4> folders;
  auto folder = dataFolder;
  for (auto place = folders.rbegin(); place != folders.rend(); ++place) {
    *place = folder;
    folder = folder.parent_path();
  }
  for (const auto& needed : folders) {
    auto made = platform::makeFolder(needed);
    if (!made.ok() && made.status != platform::FileStatus::exists) return made;
  }
  // A folder that cannot be read would look like one without sites.
  std::error_code error;
  if (const std::filesystem::directory_iterator entries(dataFolder, error); error) {
    return {platform::FileStatus::failed, error.message()};
  }
  return {};
}

SiteList siteTableRows(const GlobalControls& controls, const StateFolder& state) {
  SiteList list;
  removeLeftWorkingFolders(controls);
  auto files = siteFiles(controls);
  list.updatedOldFile = upgradeRecords(controls, files, list.problems);
  if (list.updatedOldFile) files = siteFiles(controls);
  std::erase_if(files, [](const std::string& file) { return !hasExtension(file, kRecordExtension); });
  mendRecords(controls, state, files, list.problems);
  list.names = foldersOf(files);
  const auto unreadable = unreadableSites(controls, list.names);
  list.names.insert(list.names.end(), unreadable.begin(), unreadable.end());
  std::sort(list.names.begin(), list.names.end());
  BrokenReasons(state).takeFormer(list.names);
  return list;
}

std::vector<std::string> recordedSites(const GlobalControls& controls) {
  auto files = siteFiles(controls);
  std::erase_if(files, [](const std::string& file) { return !hasExtension(file, kRecordExtension); });
  return foldersOf(files);
}

SelectedSite selectSite(const GlobalControls& controls, std::string_view name) {
  const auto added = addMissingCounters(controls, name);
  SelectedSite site = readSite(controls, name);
  if (!site.result.ok() || added.ok() || added.status == platform::FileStatus::busy) return site;
  site.result = added;
  site.path = controls.returnFullFileLocation(name);
  return site;
}

SelectedSite readSite(const GlobalControls& controls, std::string_view name) {
  const auto file = controls.returnFullFileLocation(name);
  const auto record = platform::readFile(file, platform::kMaxListBytes);
  if (!record.result.ok()) return {record.result, file, {}};
  return siteFromRecord(controls, name, record.text);
}

}  // namespace store
