// A document's table written anew.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "html_editor/table_cells.h"

namespace html_editor {

/// The text of a document with `columns` (1 or more) from the head of `fileText`, which is the layout's file
/// as it is on disk, and the cells. A file without "<body>" gives its text up to a body tag spelled
/// otherwise, else the head of a new document is taken.
std::string rebuildSitemaps(std::string_view fileText, const std::vector<TableCell>& cells, int columns);

}  // namespace html_editor
