// Text as it stands in XML: entities and escapes.
#pragma once

#include <string>
#include <string_view>

namespace sitemaps {

/// Adds `text`, taken literally, to `escaped`: with "&", "<" and ">" escaped, blanks of every kind as a
/// space, and U+FFFD for the control characters that XML does not know.
void appendEscaped(std::string& escaped, std::string_view text);

/// The same for `text` as it stands in a document: the five predefined entities and character references are
/// decoded first. Every other "&" is text.
void appendNormalised(std::string& escaped, std::string_view text);

}  // namespace sitemaps
