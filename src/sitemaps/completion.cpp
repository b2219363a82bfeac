#include "sitemaps/completion.h"

#include "platform/phrases.h"

namespace sitemaps {

std::string badLinksText(const std::vector<std::string>& badLinks) {
  std::string text;
  for (const std::string& url : badLinks) {
    text += url;
    text += '\n';
  }
  return text;
}

platform::FileResult writeBadLinks(const store::GlobalControls& controls, std::string_view siteName,
                                   const std::vector<std::string>& badLinks) {
  const std::filesystem::path file = controls.siteFolder(siteName) / store::kBadLinksFile;
  if (badLinks.empty() && !platform::somethingAt(file)) return {};
  return platform::replaceFile(file, badLinksText(badLinks));
}

platform::FileResult writeStatistics(const store::GlobalControls& controls, std::string_view siteName,
                                     const store::ScanStatistics& statistics) {
  const std::filesystem::path file = controls.returnFullFileLocation(siteName);
  const platform::FileContent record = platform::readFile(file, platform::kMaxListBytes);
  if (!record.result.ok()) return record.result;
  const std::optional<std::string> updated = store::withStatistics(record.text, statistics);
  if (!updated) return {platform::FileStatus::failed, platform::Phrases::tr("the record lacks a counter")};
  return platform::replaceFile(file, *updated);
}

}  // namespace sitemaps
