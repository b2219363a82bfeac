// When entries are underlined: four rules of the style sheet, one for each state of a link.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "html_editor/style.h"

namespace html_editor {

/// The values are the tags of the radio buttons.
enum class Underline { onHover = 0, none = 1, all = 2 };

/// Told by the rules for "hover" and "visited"; nothing when they are none of the three pairs.
std::optional<Underline> readUnderline(std::string_view document, EntryClass entries);

/// The document with the class's four rules written anew; a rule that is missing stays so.
std::string withUnderline(std::string_view document, EntryClass entries, Underline mode);

}  // namespace html_editor
