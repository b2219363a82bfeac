// The document as it is shown in the user's browser.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace html_editor {

/// The document without the markers "---LINKID:" n "---" for every n below the number of its anchors. The
/// comments with the numbers stay.
std::string previewText(std::string_view document);

/// `document` without the markers for n = 0, 1, ... `count` - 1, removed one number after the other. Takes
/// one pass; a run of more than 1024 characters of nothing but markers and their fragments, as no document
/// has that was not made to have it, is read from left to right instead.
std::string withoutMarkers(std::string_view document, std::size_t count);

}  // namespace html_editor
