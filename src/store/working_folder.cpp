#include "store/working_folder.h"

#include <system_error>

#include "platform/phrases.h"

namespace store {

namespace {

using platform::FileResult;
using platform::FileStatus;

/// A name is taken by chance alone.
constexpr int kMaxAttempts = 20;

/// A place in the data folder that no site can have, since names hold no dots.
std::filesystem::path newPlace(const GlobalControls& controls) {
  return controls.homeFolderLocation() / platform::temporaryName();
}

}  // namespace

std::vector<std::string> siteFiles(const GlobalControls& controls) {
  auto files = platform::filesBelow(controls.homeFolderLocation());
  std::erase_if(files, [](const std::string& file) {
    const auto folderEnd = file.find('/');
    return folderEnd != std::string::npos &&
           platform::isTemporaryName(std::string_view(file).substr(0, folderEnd));
  });
  return files;
}

void removeLeftWorkingFolders(const GlobalControls& controls) {
  std::vector<std::filesystem::path> folders;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(controls.homeFolderLocation(), error), end;
       !error && entry != end; entry.increment(error)) {
    if (platform::isTemporaryName(entry->path().filename().native())) folders.push_back(entry->path());
  }
  for (const auto& folder : folders) {
    const platform::FolderLock lock(folder);
    // What cannot be removed is in nobody's way, and is tried again the next time.
    if (lock.result().ok()) static_cast<void>(platform::removeFolder(folder));
  }
}

SetAside setAside(const GlobalControls& controls, const std::filesystem::path& folder) {
  SetAside aside;
  for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
    aside.path = newPlace(controls);
    aside.result = platform::moveTo(folder, aside.path);
    if (aside.result.status != FileStatus::exists) break;
  }
  return aside;
}

WorkingFolder::WorkingFolder(const GlobalControls& controls) {
  for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
    const auto folder = newPlace(controls);
    m_result = platform::makeFolder(folder);
    if (m_result.status == FileStatus::exists) continue;
    if (!m_result.ok()) return;
    m_lock.emplace(folder);
    // Until it is locked, somebody may take the folder for one that was left behind, and remove it.
    m_result = m_lock->result();
    if (m_result.ok() && platform::somethingAt(folder)) {
      m_path = folder;
      return;
    }
    if (m_result.status == FileStatus::failed) {
      static_cast<void>(platform::removeFolder(folder));
      return;
    }
  }
  m_result = {FileStatus::failed, platform::Phrases::tr("No new folder could be made.")};
}

WorkingFolder::~WorkingFolder() {
  if (!m_path.empty()) static_cast<void>(platform::removeFolder(m_path));
}

FileResult WorkingFolder::becomes(const std::filesystem::path& path) {
  auto moved = platform::moveTo(m_path, path);
  if (moved.ok()) m_path.clear();
  return moved;
}

}  // namespace store
