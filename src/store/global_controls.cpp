#include "store/global_controls.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace store {

namespace {

std::optional<std::filesystem::path> homeFromUserDatabase() {
  constexpr std::size_t kMaxEntry = 1u << 20;
  std::vector<char> buffer(1024);
  while (buffer.size() <= kMaxEntry) {
    passwd entry{};
    passwd* found = nullptr;
    const int error = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    if (error == ERANGE) {
      buffer.resize(buffer.size() * 4);
      continue;
    }
    if (error != 0 || found == nullptr || found->pw_dir == nullptr || *found->pw_dir == '\0') return {};
    return found->pw_dir;
  }
  return {};
}

/// Appends as text: with operator/ a name that begins with a slash would lead out of the folder.
std::filesystem::path below(std::filesystem::path folder, std::string_view name) {
  folder += '/';
  folder += name;
  return folder;
}

}  // namespace

std::optional<std::filesystem::path> homeFolder() {
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home != '\0') return home;
  return homeFromUserDatabase();
}

std::optional<GlobalControls> GlobalControls::fromEnvironment() {
  auto home = homeFolder();
  if (!home) return {};
  return GlobalControls(*std::move(home));
}

std::filesystem::path GlobalControls::homeFolderLocation() const {
  return m_home / "Library" / "Application Support" / "Quillfern" / "Veskel";
}

std::filesystem::path GlobalControls::returnFullFileLocation(std::string_view siteName) const {
  return below(siteFolder(siteName), std::string(siteName) + std::string(kRecordExtension));
}

std::filesystem::path GlobalControls::siteFolder(std::string_view siteName) const {
  return below(homeFolderLocation(), siteName);
}

}  // namespace store
