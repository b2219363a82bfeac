// Fields of tables for spreadsheets (RFC 4180).
#pragma once

#include <string>
#include <string_view>

namespace sitemaps {

/// `text` as a field: one that would break the line, or be taken for several, stands in quotes. What a
/// spreadsheet would take for a formula ("=...", "+...", "-...", "@...") begins with an apostrophe: texts
/// come from strangers.
std::string csvField(std::string_view text);

}  // namespace sitemaps
