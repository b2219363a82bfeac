// The text of the HTML sitemaps: header, entries with their LINKID markers, table cells, closings.
//
// The editors and the export find their way in these documents by the exact text, so every byte here counts:
// indentation, line feeds and the order of the style blocks included.
#pragma once

#include <string>
#include <string_view>

namespace sitemaps {

/// Everything before the first cell, from the doctype to the line feed behind "<body>".
extern const std::string_view kHtmlHeader;

/// Follows the header at once in documents of two and three columns.
extern const std::string_view kTableStart;

/// A document's text before the first page.
std::string documentOpening(int columns);

/// The entry of a page. `number` is its LINKID, written behind the address and again as a comment behind the
/// title. Both come from strangers: the title is written as asMarkupText(), the address as asMarkupAddress().
std::string pageEntry(std::string_view url, int number, std::string_view title);

/// Adds the entry of a link on a page to its page's block; otherwise as pageEntry().
void appendLinkEntry(std::string& block, std::string_view url, int number, std::string_view title);

/// `text` with every "&" written as "&amp;", existing entities included.
std::string withAmpersandsEscaped(std::string_view text);

/// `text` as it is read back from markup: "&" as "&amp;" and then "<" as "&lt;". So it can neither open an
/// element nor a comment.
std::string asMarkupText(std::string_view text);

/// An address that can leave neither the quotes around it nor its tag: the double quote, "<" and ">" are
/// percent-encoded. Nothing else is, "&" included.
std::string asMarkupAddress(std::string_view url);

/// A cell's text as it goes into a document, and how full the document's last row is then.
struct Cell {
  std::string text;
  int cellsInRow;  // 0: no row is open
};

/// Places `block`, a page's entry or entries, behind `cellsInRow` cells of the row that is open.
Cell wrapCell(std::string_view block, int columns, int cellsInRow);

/// What ends a document whose last row holds `cellsInRow` cells.
std::string documentClosing(int columns, int cellsInRow);

}  // namespace sitemaps
