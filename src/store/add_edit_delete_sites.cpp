#include "store/add_edit_delete_sites.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "store/site_record.h"
#include "store/working_folder.h"

namespace store {

namespace {

using platform::FileResult;
using platform::FileStatus;

SaveResult failed(const std::filesystem::path& path, FileResult file) {
  return {SaveOutcome::failed, path, std::move(file)};
}

/// Gives the record in `file` another URL.
SaveResult replaceUrl(const std::filesystem::path& file, std::string_view url) {
  const auto record = platform::readFile(file);
  if (!record.result.ok()) return failed(file, record.result);
  auto written = platform::replaceFile(file, withRecordValue(record.text, kSiteUrl, url));
  if (!written.ok()) return failed(file, std::move(written));
  return {};
}

/// Moves that are taken back, the last one first, unless keep() was called.
class UndoableMoves {
 public:
  UndoableMoves() = default;
  ~UndoableMoves() {
    for (auto move = m_done.rbegin(); move != m_done.rend(); ++move) {
      // Nothing more can be done if this fails too; the first failure is the one that gets reported.
      static_cast<void>(platform::moveTo(move->second, move->first));
    }
  }
  UndoableMoves(const UndoableMoves&) = delete;
  UndoableMoves& operator=(const UndoableMoves&) = delete;

  FileResult move(const std::filesystem::path& from, const std::filesystem::path& to) {
    auto moved = platform::moveTo(from, to);
    if (moved.ok()) m_done.emplace_back(from, to);
    return moved;
  }

  void keep() { m_done.clear(); }

 private:
  std::vector<std::pair<std::filesystem::path, std::filesystem::path>> m_done;
};

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
  std::string sentence = "A site with the name \"";
  sentence.append(name).append(
      "\" already exists, please delete this site first or select a different name.");
  return sentence;
}

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
  if (auto named = made.becomes(folder); !named.ok()) {
    if (named.status == FileStatus::exists) return {SaveOutcome::nameTaken, folder};
    return failed(folder, std::move(named));
  }
  if (auto synced = platform::syncFolder(m_controls.homeFolderLocation()); !synced.ok()) {
    return failed(folder, std::move(synced));
  }
  return {};
}

SaveResult AddEditDeleteSites::saveEditedSite(std::string_view originalName, std::string_view newName,
                                              std::string_view newUrl) const {
  const auto newRecord = m_controls.returnFullFileLocation(newName);
  if (newName == originalName) return replaceUrl(newRecord, newUrl);
  if (isNameTaken(originalName, newName)) {
    // Whoever insists on a taken name means the site that has it: that site gets the URL, as a second edit of
    // it would.
    auto result = replaceUrl(newRecord, newUrl);
    result.outcome = SaveOutcome::nameTaken;
    return result;
  }

  // The record is read before anything moves, so that an unreadable one costs nothing to report.
  const auto oldRecord = m_controls.returnFullFileLocation(originalName);
  const auto record = platform::readFile(oldRecord);
  if (!record.result.ok()) return failed(oldRecord, record.result);

  const auto newFolder = m_controls.siteFolder(newName);
  const auto movedRecord = newFolder / oldRecord.filename();
  UndoableMoves moves;
  if (auto moved = moves.move(m_controls.siteFolder(originalName), newFolder); !moved.ok()) {
    return failed(newFolder, std::move(moved));
  }
  if (auto moved = moves.move(movedRecord, newRecord); !moved.ok())
    return failed(newRecord, std::move(moved));

  const std::string renamed = withRecordValue(record.text, kSiteName, newName);
  auto written = platform::replaceFile(newRecord, withRecordValue(renamed, kSiteUrl, newUrl));
  if (!written.ok()) {
    // The new text is in place already when it is the folder that could not be synced.
    if (platform::readFile(newRecord).text != record.text) {
      static_cast<void>(platform::replaceFile(newRecord, record.text));
    }
    return failed(newRecord, std::move(written));
  }
  moves.keep();
  return {};
}

FileResult AddEditDeleteSites::deleteSite(std::string_view name) const {
  if (!staysBelowDataFolder(name)) return {FileStatus::missing, "No site has such a name."};
  const auto folder = m_controls.siteFolder(name);
  const auto record = platform::readFile(m_controls.returnFullFileLocation(name));
  const SetAside aside = setAside(m_controls, folder);
  if (!aside.result.ok()) return aside.result;
  auto removed = platform::removeFolder(aside.path);
  if (removed.ok()) return removed;
  // What could not be removed stays a site, so that its user sees it and can try again.
  if (record.result.ok()) {
    static_cast<void>(
        platform::replaceFile(aside.path / m_controls.returnFullFileLocation(name).filename(), record.text));
  }
  static_cast<void>(platform::moveTo(aside.path, folder));
  return removed;
}

bool AddEditDeleteSites::isNameTaken(std::string_view originalName, std::string_view newName) const {
  return newName != originalName && platform::somethingAt(m_controls.siteFolder(newName));
}

}  // namespace store
