// The frame of a report as a page: policy, style and script.
#pragma once

#include <string>
#include <string_view>

namespace report {

/// Everything up to the page's content. `title` is plain text. The page asks for nothing outside of it: its
/// policy allows this style and this script, by their hashes, and forbids all else to load or run.
std::string pageOpening(std::string_view title);

/// Behind the content: the script, which makes the tables of class "sorts" sort by their headings.
std::string pageClosing();

// What stands between the tags, for those who check the hashes.
std::string pageStyle();
extern const std::string_view kPageScript;
extern const std::string_view kStyleHash;  // SHA-256, in base64
extern const std::string_view kScriptHash;

}  // namespace report
