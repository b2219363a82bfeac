#include "store/filters_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <utility>

#include "store/site_lock.h"
#include "store/text_lines.h"

namespace store {

namespace {

/// Line feed, vertical tab, form feed, carriage return, next line, line and paragraph separator.
constexpr std::array<std::string_view, 7> kLineEnds = {"\n",       "\v",           "\f",          "\r",
                                                       "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"};

std::filesystem::path filtersFile(const GlobalControls& controls, std::string_view siteName) {
  return controls.siteFolder(siteName) / kFiltersFile;
}

}  // namespace

std::string_view filterText(std::string_view typed) {
  const auto lineEndIf = [](auto condition) {
    const auto found = std::find_if(kLineEnds.begin(), kLineEnds.end(), condition);
    return found == kLineEnds.end() ? std::size_t{0} : found->size();
  };
  while (const auto length = lineEndIf([&](auto lineEnd) { return typed.starts_with(lineEnd); })) {
    typed.remove_prefix(length);
  }
  while (const auto length = lineEndIf([&](auto lineEnd) { return typed.ends_with(lineEnd); })) {
    typed.remove_suffix(length);
  }
  return typed;
}

Filters loadFilterFile(const GlobalControls& controls, std::string_view siteName) {
  const auto file = filtersFile(controls, siteName);
  const auto made = platform::makeEmptyFile(file);
  if (!made.ok() && made.status != platform::FileStatus::exists) return {made};
  const auto content = platform::readFile(file, platform::kMaxListBytes);
  return {content.result, nonEmptyLines(content.text)};
}

platform::FileResult addFilter(const GlobalControls& controls, std::string_view siteName,
                               std::string_view text) {
  if (text.empty()) return {};
  const SiteLock lock(controls, siteName);
  if (!lock.result().ok()) return lock.result();
  const auto file = filtersFile(controls, siteName);
  auto content = platform::readFile(file, platform::kMaxListBytes);
  if (!content.result.ok()) return content.result;
  // A file written by hand may lack its last line end; the new filter must not become part of its last one.
  if (!content.text.empty() && !content.text.ends_with('\n')) content.text += '\n';
  content.text.append(filterText(text)).append("\n");
  return platform::replaceFile(file, content.text);
}

Filters changeFilters(const GlobalControls& controls, std::string_view siteName, const FilterChange& change) {
  const SiteLock lock(controls, siteName);
  if (!lock.result().ok()) return {lock.result()};
  Filters filters = loadFilterFile(controls, siteName);
  if (!filters.result.ok() || !change(filters.entries)) return filters;
  std::string text;
  for (const std::string& entry : filters.entries) text.append(entry).append("\n");
  filters.result = platform::replaceFile(filtersFile(controls, siteName), text);
  return filters;
}

std::vector<std::string> withoutFilters(const std::vector<std::string>& present,
                                        const std::vector<std::string>& shown,
                                        const std::vector<std::size_t>& rows) {
  using Numbered = std::pair<std::string_view, std::size_t>;  // a filter, and how many equal ones come before
  const auto numbered = [](const std::vector<std::string>& filters) {
    std::map<std::string_view, std::size_t> counts;
    std::vector<Numbered> result;
    for (const std::string& filter : filters) result.emplace_back(filter, counts[filter]++);
    return result;
  };
  const std::vector<Numbered> seen = numbered(shown);
  std::set<Numbered> gone;
  for (const std::size_t row : rows) gone.insert(seen[row]);
  std::vector<std::string> remaining;
  for (const Numbered& filter : numbered(present)) {
    if (!gone.contains(filter)) remaining.emplace_back(filter.first);
  }
  return remaining;
}

}  // namespace store
