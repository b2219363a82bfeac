// A document's table cells, as the forgiving parser sees them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace html_editor {

/// A cell's entries, in order: its "div" elements, those inside others too, each as markup. Spelled as
/// entries are generated: attributes in double quotes, "&" in texts as "&amp;", comments kept. In attributes
/// "&" stays bare where it cannot be misread, so that the entry is still found by the target that a click
/// reports.
struct TableCell {
  std::vector<std::string> entries;
  bool empty = true;  // holds nothing that begins with "<div "
};

struct DocumentCells {
  std::vector<TableCell> cells;  // of "//td", in document order
  std::size_t anchors = 0;       // of "//a", in and out of cells
  /// Whether the cells hold all entries. Not so when an entry stands in no cell, or when elements nest so
  /// deep that to write each one out would take many times the document.
  bool complete = true;
};

/// Reads any document; never fails.
DocumentCells readCells(std::string_view document);

/// The same, always by the parser: what readCells() does with documents that are not quite of our own format,
/// which it reads faster.
DocumentCells readCellsByParser(std::string_view document);

/// The cells to rebuild the table from when some are empty; nothing when none is. The cell behind one that is
/// removed is not looked at, so of two empty neighbours the second one stays. Nothing as well when the cells
/// are not complete: no rebuild shall lose an entry.
std::optional<std::vector<TableCell>> checkForEmptyColumn(std::string_view document);

}  // namespace html_editor
