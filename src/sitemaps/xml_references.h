// References in XML text: "&amp;", "&#38;", "&#x26;"; and the sections that hold none.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace sitemaps {

struct XmlReference {
  std::size_t length = 0;      // as written, from "&" to ";"
  std::string character = {};  // what it stands for, in UTF-8
};

/// The reference that `text` begins with: to one of the five predefined entities, or to a character by its
/// number. Nothing where an "&" is no more than that, or the number is that of no character of XML.
std::optional<XmlReference> referenceAt(std::string_view text);

/// The place behind the comment or section of characters that starts at `at`, the end of the text for one
/// that does not end; `at` itself where none starts.
std::size_t behindSection(std::string_view text, std::size_t at);

}  // namespace sitemaps
