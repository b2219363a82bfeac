#include "store/broken_reasons.h"

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <map>

#include "store/global_controls.h"
#include "store/text_lines.h"

namespace store {

namespace {

using platform::FileResult;
using platform::FileStatus;

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '\\':
        result += "\\\\";
        break;
      case '\t':
        result += "\\t";
        break;
      case '\n':
        result += "\\n";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string unescaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const char code = text[++i];
    result += code == 't' ? '\t' : code == 'n' ? '\n' : code;
  }
  return result;
}

/// Makes `folder` and those above it where they are missing.
FileResult makeFolders(const std::filesystem::path& folder) {
  if (platform::somethingAt(folder)) return {};
  if (folder.has_parent_path()) {
    if (auto parent = makeFolders(folder.parent_path()); !parent.ok()) return parent;
  }
  auto made = platform::makeFolder(folder);
  if (made.status == FileStatus::exists) return {};  // made by somebody else in between
  return made;
}

FileResult fineWhenMissing(FileResult result) {
  if (result.status == FileStatus::missing) return {};
  return result;
}

}  // namespace

std::optional<BrokenReasons> BrokenReasons::fromEnvironment() {
  // A relative path in XDG_STATE_HOME is invalid and to be ignored, by the rules for such folders.
  const char* stateHome = std::getenv("XDG_STATE_HOME");
  if (stateHome != nullptr && *stateHome == '/') return BrokenReasons(stateHome);
  const auto home = homeFolder();
  if (!home) return {};
  return BrokenReasons(*home / ".local" / "state");
}

FileResult BrokenReasons::save(std::string_view siteName, const std::vector<BrokenPage>& pages) const {
  std::string text;
  for (const BrokenPage& page : pages) {
    text.append(escaped(page.url)).append("\t").append(escaped(page.reason)).append("\n");
  }
  const auto target = file(siteName);
  if (auto made = makeFolders(target.parent_path()); !made.ok()) return made;
  return platform::replaceFile(target, text);
}

std::optional<std::filesystem::file_time_type> BrokenReasons::savedAt(std::string_view siteName) const {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(file(siteName), error);
  if (error) return {};
  return time;
}

std::vector<BrokenPage> BrokenReasons::lookUp(std::string_view siteName,
                                              const std::vector<std::string>& urls) const {
  std::map<std::string, std::string, std::less<>> reasons;
  const auto content = platform::readFile(file(siteName));
  for (const std::string& line : nonEmptyLines(content.text)) {
    const auto tab = line.find('\t');
    if (tab == std::string::npos) continue;
    const std::string_view view = line;
    reasons.try_emplace(unescaped(view.substr(0, tab)), unescaped(view.substr(tab + 1)));
  }
  std::vector<BrokenPage> pages;
  for (const std::string& url : urls) {
    const auto reason = reasons.find(url);
    pages.push_back({url, reason == reasons.end() ? std::string() : reason->second});
  }
  return pages;
}

FileResult BrokenReasons::rename(std::string_view from, std::string_view to) const {
  // A site of the new name may have gone without telling; its reasons are not those of the renamed one.
  if (auto removed = remove(to); !removed.ok()) return removed;
  return fineWhenMissing(platform::moveTo(file(from), file(to)));
}

FileResult BrokenReasons::remove(std::string_view siteName) const {
  return fineWhenMissing(platform::removeFile(file(siteName)));
}

std::filesystem::path BrokenReasons::file(std::string_view siteName) const {
  auto path = m_folder / "veskel" / "broken";
  path += '/';  // as text: with operator/ a name that begins with a slash would lead out of the folder
  path += siteName;
  path += ".tsv";
  return path;
}

}  // namespace store
