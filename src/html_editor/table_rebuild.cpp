#include "html_editor/table_rebuild.h"

#include <cstddef>

#include "platform/ascii.h"
#include "platform/regex.h"
#include "sitemaps/html_format.h"

namespace html_editor {

namespace {

constexpr std::string_view kRowStart = "\n\t<tr valign=\"top\">";
constexpr std::string_view kRowEnd = "\n\t</tr>";
constexpr std::string_view kCellEnd = "\n\t\t</td>";
constexpr std::string_view kClosing = "\n</table>\n</body>\n</html>";
// Its width is that of three columns in documents of two columns as well: as it was in every sitemap so far.
constexpr std::string_view kFiller = "\n\t\t<td width=\"32%\">\n\t\t\t&nbsp;\n\t\t</td>";
// What an empty cell that stayed looks like when it begins a row of its own.
constexpr std::string_view kEmptyRow =
    "<tr valign=\"top\">\n\t\t<td width=\"32%\">\n\t\t</td>\n\t\t<td width=\"32%\">\n\t\t\t&nbsp;\n\t\t</td>"
    "\n\t\t<td width=\"32%\">\n\t\t\t&nbsp;\n\t\t</td>\n\t</tr>";

std::string_view headOf(std::string_view fileText) {
  constexpr std::string_view kBody = "<body>";
  std::size_t end = fileText.find(kBody);
  if (end == std::string_view::npos) end = platform::lowerAscii(fileText).find("<body");
  if (end != std::string_view::npos) return fileText.substr(0, end);
  return sitemaps::kHtmlHeader.substr(0, sitemaps::kHtmlHeader.find(kBody));
}

void appendEntries(std::string& text, const TableCell& cell) {
  for (const std::string& entry : cell.entries) text.append("\n\t\t\t").append(entry);
}

/// The columns of a table share its width, but for a rest that keeps them apart.
std::string cellStartOf(int columns) {
  if (columns == 1) return "\n\t\t<td>";
  return "\n\t\t<td width=\"" + std::to_string(98 / columns) + "%\">";
}

/// Rows of `columns` cells; fillers complete the last one.
void appendColumns(std::string& text, const std::vector<TableCell>& cells, std::string_view cellStart,
                   std::size_t columns) {
  std::size_t inRow = 0;
  for (const TableCell& cell : cells) {
    if (inRow == 0) text.append(kRowStart);
    text.append(cellStart);
    appendEntries(text, cell);
    text.append(kCellEnd);
    if (++inRow < columns) continue;
    text.append(kRowEnd);
    inRow = 0;
  }
  if (inRow == 0) {
    text.append(kClosing);
    return;
  }
  for (; inRow < columns; ++inRow) text.append(kFiller);
  text.append(kRowEnd).append(kClosing);
}

}  // namespace

std::string rebuildSitemaps(std::string_view fileText, const std::vector<TableCell>& cells, int columns) {
  std::string text(headOf(fileText));
  text.append("<body>\n").append(sitemaps::kTableStart);
  appendColumns(text, cells, cellStartOf(columns), static_cast<std::size_t>(columns));
  return columns == 3 ? platform::replaceText(text, kEmptyRow, "") : text;
}

}  // namespace html_editor
