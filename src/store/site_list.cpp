#include "store/site_list.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <system_error>
#include <utility>

#include "store/site_record.h"
#include "store/text_lines.h"
#include "store/working_folder.h"

namespace store {

namespace {

constexpr std::string_view kOlderExtension = ".qzvsk";

/// Documents of the layout that came with the older records. Nothing writes or reads them any more.
constexpr std::array<std::string_view, 6> kOlderDocuments = {
    "sitemap.html", "sitemap2.html", "sitemap3.html", "sitemap4.html", "sitemap5.html", "sitemap6.html"};

/// Whether the file's extension is exactly this one; ".qzVSK" alone is a hidden file without extension.
bool hasExtension(const std::string& file, std::string_view extension) {
  return std::filesystem::path(file).extension() == extension;
}

std::string problem(std::string_view what, const std::filesystem::path& path, std::string_view why) {
  std::string sentence(what);
  sentence.append(" ").append(path.native()).append(": ").append(why);
  return sentence;
}

/// The new record is in place before the old one goes, so a failure or a crash in between loses neither.
std::optional<std::string> upgradeRecord(const std::filesystem::path& olderFile) {
  const auto older = platform::readFile(olderFile);
  if (older.result.status == platform::FileStatus::missing) return {};  // somebody else was faster
  if (!older.result.ok()) return problem("Could not read the older record", olderFile, older.result.error);

  const auto record = upgradedRecord(older.text);
  if (!record) return problem("Could not upgrade", olderFile, "It is not a site record.");

  auto newFile = olderFile;
  newFile.replace_extension(kRecordExtension);
  if (const auto written = platform::replaceFile(newFile, *record); !written.ok()) {
    return problem("Could not write the upgraded record", newFile, written.error);
  }
  const auto removeIfThere = [](const std::filesystem::path& file) -> std::optional<std::string> {
    const auto removed = platform::removeFile(file);
    if (removed.ok() || removed.status == platform::FileStatus::missing) return {};
    return problem("Could not delete", file, removed.error);
  };
  auto firstProblem = removeIfThere(olderFile);
  for (const std::string_view document : kOlderDocuments) {
    auto next = removeIfThere(olderFile.parent_path() / document);
    if (!firstProblem) firstProblem = std::move(next);
  }
  return firstProblem;
}

/// The site folder whose one record still bears another name: a rename, which moves the folder first and then
/// the record in it, was cut off in between. `records` are all below the data folder, sorted.
struct CutOffRename {
  std::string folder;
  std::string record;  // its file name in the folder
};

std::vector<CutOffRename> cutOffRenames(const std::vector<std::string>& records) {
  std::map<std::string, std::vector<std::string>> recordsByFolder;
  for (const std::string& file : records) {
    const auto slash = file.find('/');
    if (slash == std::string::npos || file.find('/', slash + 1) != std::string::npos) continue;
    recordsByFolder[file.substr(0, slash)].push_back(file.substr(slash + 1));
  }
  std::vector<CutOffRename> renames;
  for (const auto& [folder, names] : recordsByFolder) {
    // With several nobody can tell which one is the site's.
    if (names.size() == 1 && names[0] != folder + std::string(kRecordExtension)) {
      renames.push_back({folder, names[0]});
    }
  }
  return renames;
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
    if (!entry->is_directory(ignored) || isWorkingFolder(name)) continue;
    if (std::binary_search(listed.begin(), listed.end(), name)) continue;
    const auto record = platform::readFile(controls.returnFullFileLocation(name));
    if (record.result.status != platform::FileStatus::missing) names.push_back(name);
  }
  return names;
}

/// Goes on where the rename was cut off, so that the site can be used again.
std::optional<std::string> finishRename(const GlobalControls& controls, const CutOffRename& rename) {
  // A rename that is under way holds the lock, and needs no help.
  const auto folder = controls.siteFolder(rename.folder);
  const platform::FolderLock lock(folder);
  if (!lock.result().ok()) return {};
  const auto content = platform::readFile(folder / rename.record);
  // A record that does not name itself either was never a site's.
  const auto name = recordValue(content.text, kSiteName);
  if (!name || *name + std::string(kRecordExtension) != rename.record) return {};

  const auto record = controls.returnFullFileLocation(rename.folder);
  if (const auto moved = platform::moveTo(folder / rename.record, record); !moved.ok()) {
    return problem("Could not finish the renaming to", record, moved.error);
  }
  const auto written = platform::replaceFile(record, withRecordValue(content.text, kSiteName, rename.folder));
  if (!written.ok()) return problem("Could not write", record, written.error);
  return {};
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
  const auto badLinks = platform::readFile(badLinksFile);
  if (badLinks.result.ok()) {
    details.badLinks = nonEmptyLines(badLinks.text);
  } else if (badLinks.result.status !=
             platform::FileStatus::missing) {  // before the first scan there is none
    site.result = badLinks.result;
    site.path = badLinksFile;
  }
  return site;
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

SiteList siteTableRows(const GlobalControls& controls) {
  const auto dataFolder = controls.homeFolderLocation();
  SiteList list;
  removeLeftWorkingFolders(controls);
  auto files = siteFiles(controls);
  for (const std::string& file : files) {
    if (!hasExtension(file, kOlderExtension)) continue;
    list.updatedOldFile = true;
    if (auto sentence = upgradeRecord(dataFolder / file)) list.problems.push_back(*std::move(sentence));
  }
  if (list.updatedOldFile) files = siteFiles(controls);
  std::erase_if(files, [](const std::string& file) { return !hasExtension(file, kRecordExtension); });

  for (const CutOffRename& rename : cutOffRenames(files)) {
    if (auto sentence = finishRename(controls, rename)) list.problems.push_back(*std::move(sentence));
  }
  for (const std::string& file : files) {
    const auto folderEnd = file.rfind('/');
    if (folderEnd != std::string::npos) list.names.push_back(file.substr(0, folderEnd));
  }
  // By name, not by path: in paths "a b/" comes before "a/".
  std::sort(list.names.begin(), list.names.end());
  const auto unreadable = unreadableSites(controls, list.names);
  list.names.insert(list.names.end(), unreadable.begin(), unreadable.end());
  std::sort(list.names.begin(), list.names.end());
  return list;
}

SelectedSite selectSite(const GlobalControls& controls, std::string_view name) {
  const auto file = controls.returnFullFileLocation(name);
  const auto record = platform::readFile(file);
  if (!record.result.ok()) return {record.result, file, {}};

  const std::string complete = withMissingCounters(record.text);
  SelectedSite site = siteFromRecord(controls, name, complete);
  if (complete == record.text) return site;
  if (auto written = platform::replaceFile(file, complete); !written.ok()) {
    site.result = std::move(written);
    site.path = file;
  }
  return site;
}

SelectedSite readSite(const GlobalControls& controls, std::string_view name) {
  const auto file = controls.returnFullFileLocation(name);
  const auto record = platform::readFile(file);
  if (!record.result.ok()) return {record.result, file, {}};
  return siteFromRecord(controls, name, record.text);
}

platform::FileResult setIgnoreRobots(const GlobalControls& controls, std::string_view name, bool ignore) {
  const auto file = controls.returnFullFileLocation(name);
  const auto record = platform::readFile(file);
  if (!record.result.ok()) return record.result;

  const std::string changed = withIgnoreRobots(record.text, ignore);
  if (ignoresRobots(changed) != ignore) {
    return {platform::FileStatus::failed, "The record has no robots switch."};
  }
  if (changed == record.text) return {};
  return platform::replaceFile(file, changed);
}

}  // namespace store
