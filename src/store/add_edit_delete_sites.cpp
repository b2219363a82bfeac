#include "store/add_edit_delete_sites.h"

#include <algorithm>
#include <utility>

#include "platform/phrases.h"
#include "store/site_lock.h"
#include "store/site_record.h"
#include "store/working_folder.h"

namespace store {

namespace {

using platform::FileResult;
using platform::FileStatus;
using platform::Phrases;

SaveResult failed(const std::filesystem::path& path, FileResult file) {
  return {SaveOutcome::failed, path, std::move(file)};
}

SaveResult notLocked(const std::filesystem::path& folder, const FileResult& lock) {
  return {lock.status == FileStatus::busy ? SaveOutcome::busy : SaveOutcome::failed, folder, lock};
}

/// The record after the edit; instead of it `problem`, when it has no place for something.
struct EditedRecord {
  std::string text;
  std::string problem = {};
};

EditedRecord edited(std::string text, const SiteEdit& edit) {
  if (edit.name) text = withRecordValue(text, kSiteName, *edit.name);
  if (edit.url) text = withRecordValue(text, kSiteUrl, *edit.url);
  if (edit.url && recordValue(text, kSiteUrl) != *edit.url)
    return {{}, Phrases::tr("The record has no URL.")};
  if (edit.ignoreRobots) text = withIgnoreRobots(text, *edit.ignoreRobots);
  if (edit.ignoreRobots && ignoresRobots(text) != *edit.ignoreRobots)
    return {{}, Phrases::tr("The record has no robots switch.")};
  return {std::move(text)};
}

/// Edits the record in `file` and hands the new text to `save`.
template <typename Save>
SaveResult editRecord(const std::filesystem::path& file, const SiteEdit& edit, Save save) {
  const auto record = platform::readFile(file, platform::kMaxListBytes);
  if (!record.result.ok()) return failed(file, record.result);
  const EditedRecord changed = edited(record.text, edit);
  if (!changed.problem.empty()) return failed(file, {FileStatus::failed, changed.problem});
  return save(changed.text);
}

SaveResult replaceRecord(const std::filesystem::path& file, const SiteEdit& edit) {
  return editRecord(file, edit, [&](const std::string& record) -> SaveResult {
    auto written = platform::replaceFile(file, record);
    if (!written.ok()) return failed(file, std::move(written));
    return {};
  });
}

/// Whether the name leads to a folder below the data folder. Names that come from a record may be anything:
/// without this an empty one would mean the data folder itself, and ".." what lies around it.
bool staysBelowDataFolder(std::string_view name) {
  const std::filesystem::path path(name);
  return !name.empty() && path.is_relative() && std::none_of(path.begin(), path.end(), [](const auto& part) {
    return part.empty() || part == "." || part == "..";
  });
}

}  // namespace

std::string renameNameTaken(std::string_view name) {
  return Phrases::tr(
      "A site with the name \"%1\" already exists, please delete this site first or select a different name.",
      {name});
}

AddEditDeleteSites::AddEditDeleteSites(GlobalControls controls, StateFolder state)
    : m_controls(std::move(controls)), m_state(std::move(state)) {}

SaveResult AddEditDeleteSites::createNewSite(std::string_view name, std::string_view url) const {
  const auto folder = m_controls.siteFolder(name);
  if (platform::somethingAt(folder)) return {SaveOutcome::nameTaken, folder};
  // The folder gets its name once all is in it: an empty one would only keep the name taken.
  WorkingFolder made(m_controls);
  if (!made.result().ok()) return failed(folder, made.result());
  const auto record = m_controls.returnFullFileLocation(name);
  if (auto written = platform::replaceFile(made.path() / record.filename(), newSiteRecord(name, url));
      !written.ok()) {
    return failed(record, std::move(written));
  }
  // A site of this name may have gone without telling.
  SaveResult result;
  result.state = m_state.remove(name);
  if (auto named = made.becomes(folder); !named.ok()) {
    if (named.status == FileStatus::exists) return {SaveOutcome::nameTaken, folder};
    return failed(folder, std::move(named));
  }
  if (auto synced = platform::syncFolder(m_controls.homeFolderLocation()); !synced.ok()) {
    return failed(folder, std::move(synced));
  }
  return result;
}

SaveResult AddEditDeleteSites::saveEditedSite(std::string_view originalName, const SiteEdit& edit,
                                              NameClash clash) const {
  const std::string newName = edit.name.value_or(std::string(originalName));
  if (newName != originalName && platform::somethingAt(m_controls.siteFolder(newName))) {
    if (clash == NameClash::refuse) return {SaveOutcome::nameTaken};
    // Whoever insists on a taken name means the site that has it: that site gets the URL, as a second edit of
    // it would.
    auto result = saveEditedSite(newName, {.url = edit.url}, clash);
    result.outcome = SaveOutcome::nameTaken;
    return result;
  }
  const SiteLock lock(m_controls, originalName);
  if (!lock.result().ok()) return notLocked(m_controls.siteFolder(originalName), lock.result());
  const auto record = m_controls.returnFullFileLocation(originalName);
  if (newName == originalName) return replaceRecord(record, edit);
  return editRecord(record, edit,
                    [&](const std::string& text) { return rename(originalName, newName, text); });
}

/// The new record is written beside the old one, then the folder is renamed, then the old record goes. So
/// each folder holds its own record all the time, and the second one tells where this was cut off.
SaveResult AddEditDeleteSites::rename(std::string_view from, std::string_view to,
                                      std::string_view record) const {
  const auto folder = m_controls.siteFolder(from);
  const auto newFolder = m_controls.siteFolder(to);
  const auto oldRecord = m_controls.returnFullFileLocation(from).filename();
  const auto newRecord = m_controls.returnFullFileLocation(to).filename();
  if (platform::somethingAt(folder / newRecord)) {
    return failed(folder / newRecord,
                  {FileStatus::exists, Phrases::tr("A file of this name is in the way.")});
  }
  SaveResult result;
  result.state = m_state.remove(to);  // left by a former site of the name
  // Whatever fails below leaves the first failure to tell. Nothing more can be done if the way back fails
  // too.
  const auto undone = [&](const std::filesystem::path& path, FileResult why) {
    static_cast<void>(platform::removeFile(folder / newRecord));
    return failed(path, std::move(why));
  };
  if (auto written = platform::replaceFile(folder / newRecord, record); !written.ok())
    return undone(newFolder / newRecord, std::move(written));
  if (auto moved = platform::moveTo(folder, newFolder); !moved.ok())
    return undone(newFolder, std::move(moved));
  if (auto synced = platform::syncFolder(m_controls.homeFolderLocation()); !synced.ok()) {
    static_cast<void>(platform::moveTo(newFolder, folder));
    return undone(newFolder, std::move(synced));
  }
  if (result.state.ok()) result.state = m_state.rename(from, to);
  // Should this fail, the next reading of the list does it.
  static_cast<void>(platform::removeFile(newFolder / oldRecord));
  return result;
}

SaveResult AddEditDeleteSites::deleteSite(std::string_view name) const {
  const auto folder = m_controls.siteFolder(name);
  if (!staysBelowDataFolder(name))
    return failed(folder, {FileStatus::missing, Phrases::tr("No site has such a name.")});
  const SiteLock lock(m_controls, name);
  if (!lock.result().ok()) return notLocked(folder, lock.result());
  const auto recordFile = m_controls.returnFullFileLocation(name);
  const auto record = platform::readFile(recordFile, platform::kMaxListBytes);
  const SetAside aside = setAside(m_controls, folder);
  if (!aside.result.ok()) return failed(folder, aside.result);
  if (auto removed = platform::removeFolder(aside.path); !removed.ok()) {
    // What could not be removed stays a site, so that its user sees it and can try again.
    if (record.result.ok())
      static_cast<void>(platform::replaceFile(aside.path / recordFile.filename(), record.text));
    static_cast<void>(platform::moveTo(aside.path, folder));
    return failed(folder, std::move(removed));
  }
  SaveResult result;
  result.state = m_state.remove(name);
  return result;
}

}  // namespace store
