// Finding the rules of the style sheet in a document of any size. Within this folder only.
#pragma once

#include <optional>
#include <string_view>

#include "html_editor/style.h"
#include "platform/regex.h"

namespace html_editor {

/// "vskPageTitle" or "vskPageLink".
constexpr std::string_view className(EntryClass entries) {
  return entries == EntryClass::pageTitle ? "vskPageTitle" : "vskPageLink";
}

/// The first match of `pattern`, which is "." and then `literal` and more. A document without the literal is
/// not searched by the pattern at all: that would take long in the ten megabytes of a large sitemap.
inline std::optional<std::string_view> findRule(std::string_view document, std::string_view literal,
                                                const platform::Regex& pattern) {
  constexpr std::size_t kLongestCharacter = 4;  // what "." may match, in bytes
  std::size_t start = platform::findText(document, literal);
  if (start == std::string_view::npos) return std::nullopt;
  // From the start of a character; a few bytes too early do no harm.
  for (std::size_t back = 0; back < kLongestCharacter && start > 0; ++back) {
    --start;
    if ((static_cast<unsigned char>(document[start]) & 0xC0) != 0x80) break;
  }
  const auto match = pattern.find(document, start);
  if (!match) return std::nullopt;
  return match->whole;
}

}  // namespace html_editor
