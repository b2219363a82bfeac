// The text of release notes, whatever they are written in.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace update {

/// The text of an HTML page or a piece of one (valid UTF-8), as lines: elements that stand on their own begin
/// new ones, entries of lists begin with "- ", blanks are joined but in preformatted text. The contents of
/// title, style, script and embedded frames are no text. Where no tag is in it at all its line ends stay, as
/// plain text is often given for HTML. Ends without a line feed; what is longer than `maxBytes` is cut off
/// behind a character, and ends with a line of "...".
std::string textOfHtml(std::string_view html, std::size_t maxBytes);

/// The same for plain text: line ends are line feeds, tabs are blanks, other control characters are left out.
std::string textOfPlain(std::string_view text, std::size_t maxBytes);

}  // namespace update
