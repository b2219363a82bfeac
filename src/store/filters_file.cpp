#include "store/filters_file.h"

#include <algorithm>
#include <array>
#include <cstddef>

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
  const auto content = platform::readFile(file);
  return {content.result, nonEmptyLines(content.text)};
}

platform::FileResult addFilter(const GlobalControls& controls, std::string_view siteName,
                               std::string_view text) {
  if (text.empty()) return {};
  const auto file = filtersFile(controls, siteName);
  auto content = platform::readFile(file);
  if (!content.result.ok()) return content.result;
  // A file written by hand may lack its last line end; the new filter must not become part of its last one.
  if (!content.text.empty() && !content.text.ends_with('\n')) content.text += '\n';
  content.text.append(filterText(text)).append("\n");
  return platform::replaceFile(file, content.text);
}

platform::FileResult saveFilters(const GlobalControls& controls, std::string_view siteName,
                                 const std::vector<std::string>& entries) {
  std::string text;
  for (const std::string& entry : entries) text.append(entry).append("\n");
  return platform::replaceFile(filtersFile(controls, siteName), text);
}

}  // namespace store
