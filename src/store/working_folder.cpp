#include "store/working_folder.h"

#include <system_error>

namespace store {

namespace {

using platform::FileResult;
using platform::FileStatus;

/// No site can have such a name, since names hold no dots.
constexpr std::string_view kPrefix = ".veskel-";
/// So many are never worked in at a time.
constexpr int kMaxFolders = 1000;

std::filesystem::path numbered(const GlobalControls& controls, int number) {
  return controls.homeFolderLocation() / (std::string(kPrefix) + std::to_string(number));
}

}  // namespace

bool isWorkingFolder(std::string_view name) {
  return name.starts_with(kPrefix);
}

std::vector<std::string> siteFiles(const GlobalControls& controls) {
  auto files = platform::filesBelow(controls.homeFolderLocation());
  std::erase_if(files, [](const std::string& file) { return isWorkingFolder(file); });
  return files;
}

void removeLeftWorkingFolders(const GlobalControls& controls) {
  std::vector<std::filesystem::path> folders;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(controls.homeFolderLocation(), error), end;
       !error && entry != end; entry.increment(error)) {
    if (isWorkingFolder(entry->path().filename().native())) folders.push_back(entry->path());
  }
  for (const auto& folder : folders) {
    const platform::FolderLock lock(folder);
    // What cannot be removed is in nobody's way, and is tried again the next time.
    if (lock.result().ok()) static_cast<void>(platform::removeFolder(folder));
  }
}

SetAside setAside(const GlobalControls& controls, const std::filesystem::path& folder) {
  SetAside aside;
  for (int number = 0; number < kMaxFolders; ++number) {
    aside.path = numbered(controls, number);
    aside.result = platform::moveTo(folder, aside.path);
    if (aside.result.status != FileStatus::exists) break;
  }
  return aside;
}

WorkingFolder::WorkingFolder(const GlobalControls& controls) {
  for (int number = 0; number < kMaxFolders; ++number) {
    const auto folder = numbered(controls, number);
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
  m_result = {FileStatus::failed, "Too many folders were left unfinished."};
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
