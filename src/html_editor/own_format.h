// Documents of exactly the format that this program writes, read without a parser. Within this folder only.
#pragma once

#include <optional>
#include <string_view>

#include "html_editor/table_cells.h"

namespace html_editor {

/// What readCellsByParser() says of the document; nothing when it has anything in it of which that is not
/// certain: markup in a title, a table out of balance, an edit by hand.
std::optional<DocumentCells> readOwnFormat(std::string_view document);

}  // namespace html_editor
