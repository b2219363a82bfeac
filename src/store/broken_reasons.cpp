#include "store/broken_reasons.h"

#include <cstddef>
#include <functional>
#include <map>
#include <system_error>

#include "store/text_lines.h"

namespace store {

namespace {

using platform::FileResult;

}  // namespace

FileResult BrokenReasons::save(std::string_view siteName, const std::vector<BrokenPage>& pages) const {
  std::string text;
  for (const BrokenPage& page : pages) {
    text.append(escapedField(page.url)).append("\t").append(escapedField(page.reason)).append("\n");
  }
  const auto target = file(siteName);
  if (auto made = platform::makeFolders(target.parent_path()); !made.ok()) return made;
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
  const auto content = platform::readFile(file(siteName), platform::kMaxListBytes);
  for (const std::string& line : nonEmptyLines(content.text)) {
    const auto tab = line.find('\t');
    if (tab == std::string::npos) continue;
    const std::string_view view = line;
    reasons.try_emplace(unescapedField(view.substr(0, tab)), unescapedField(view.substr(tab + 1)));
  }
  std::vector<BrokenPage> pages;
  for (const std::string& url : urls) {
    const auto reason = reasons.find(url);
    pages.push_back({url, reason == reasons.end() ? std::string() : reason->second});
  }
  return pages;
}

void BrokenReasons::takeFormer(const std::vector<std::string>& siteNames) const {
  const auto former = m_state.location() / "broken";
  if (!platform::somethingAt(former)) return;
  for (const std::string& name : siteNames) {
    const auto source = former / (name + ".tsv");
    const auto target = file(name);
    if (!platform::somethingAt(source) || !platform::makeFolders(target.parent_path()).ok()) continue;
    // What a scan has kept since is newer.
    if (platform::moveTo(source, target).status == platform::FileStatus::exists)
      static_cast<void>(platform::removeFile(source));
  }
  std::error_code error;
  std::filesystem::remove(former, error);  // unless it holds something still
}

std::filesystem::path BrokenReasons::file(std::string_view siteName) const {
  return m_state.ofSite(siteName) / "reasons.tsv";
}

}  // namespace store
