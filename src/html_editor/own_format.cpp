#include "html_editor/own_format.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "html_editor/entry_markup.h"
#include "platform/utf8.h"
#include "sitemaps/html_format.h"

namespace html_editor {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

/// Takes known pieces off the front of a text.
class Pieces {
 public:
  explicit Pieces(std::string_view text) : m_rest(text) {}

  bool take(std::string_view piece) {
    if (!m_rest.starts_with(piece)) return false;
    m_rest.remove_prefix(piece.size());
    return true;
  }

  /// What stands in front of `end`, which is taken too; nothing without it.
  std::optional<std::string_view> takeUntil(std::string_view end) {
    const std::size_t at = m_rest.find(end);
    if (at == kNowhere) return std::nullopt;
    const std::string_view piece = m_rest.substr(0, at);
    m_rest.remove_prefix(at + end.size());
    return piece;
  }

  std::string_view rest() const { return m_rest; }

 private:
  std::string_view m_rest;
};

/// Letters that a parser copies and a serialiser writes as they are. Control characters are not among them:
/// each program has its own way with those. ">" is in text, not in a target.
bool isPlain(std::string_view text) {
  const bool hasOddByte = std::any_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < ' ' || byte == 0x7F || c == '<';
  });
  // U+FFFE and U+FFFF are no characters to some parsers.
  return !hasOddByte && text.find("\xEF\xBF\xBE") == kNowhere && text.find("\xEF\xBF\xBF") == kNowhere;
}

/// Whether each "&" begins one of the references that are written.
bool hasOnlyWrittenReferences(std::string_view text) {
  for (std::size_t at = 0; (at = text.find('&', at)) != kNowhere; ++at) {
    const std::string_view rest = text.substr(at);
    if (!rest.starts_with("&amp;") && !rest.starts_with("&lt;")) return false;
  }
  return true;
}

/// Whether each "&" is one that is written bare.
bool hasOnlyBareAmpersands(std::string_view text) {
  for (std::size_t at = 0; (at = text.find('&', at)) != kNowhere; ++at) {
    if (beginsReference(text.substr(at))) return false;
  }
  return true;
}

/// The header may differ in its style sheet, which is the one thing that this program changes there.
bool takeHeader(Pieces& pieces) {
  constexpr std::string_view kStyleStart = "<style type=\"text/css\">\n";
  constexpr std::string_view kStyleEnd = "</style>\n";
  const std::string_view header = sitemaps::kHtmlHeader;
  const std::size_t start = header.find(kStyleStart) + kStyleStart.size();
  const std::size_t end = header.find(kStyleEnd, start);
  if (!pieces.take(header.substr(0, start)) || !pieces.take("\t<!--\n")) return false;
  const auto sheet = pieces.takeUntil("-->\n");
  return sheet && sheet->find('<') == kNowhere && sheet->find('\0') == kNowhere &&
         pieces.take(header.substr(end));
}

/// Whether a parser reads the three parts of an entry as they stand, and they are written back the same.
bool isCertain(std::string_view target, std::string_view text, std::string_view number) {
  return isPlain(target) && target.find_first_of("\">") == kNowhere && hasOnlyBareAmpersands(target) &&
         isPlain(text) && hasOnlyWrittenReferences(text) && !number.empty() &&
         number.find_first_not_of("0123456789") == kNowhere;
}

/// "\n\t\t\t<div class="vskPageLink"><a href="TARGET">TEXT<!-- LINKID: N --></a></div>"; the part from
/// "<div". Takes nothing unless it takes the whole.
std::optional<std::string_view> takeEntry(Pieces& pieces) {
  Pieces ahead = pieces;
  if (!ahead.take("\n\t\t\t")) return std::nullopt;
  const std::string_view start = ahead.rest();
  if (!ahead.take(R"(<div class="vskPageTitle"><a href=")") &&
      !ahead.take(R"(<div class="vskPageLink"><a href=")")) {
    return std::nullopt;
  }
  const auto target = ahead.takeUntil("\">");
  const auto text = target ? ahead.takeUntil("<!-- LINKID: ") : std::nullopt;
  const auto number = text ? ahead.takeUntil(" --></a></div>") : std::nullopt;
  if (!number || !isCertain(*target, *text, *number)) return std::nullopt;
  pieces = ahead;
  return start.substr(0, start.size() - ahead.rest().size());
}

bool takeCellStart(Pieces& pieces) {
  if (!pieces.take("\n\t\t<td")) return false;
  return pieces.take(">") || pieces.take(" width=\"32%\">") || pieces.take(" width=\"49%\">");
}

bool takeCellEnd(Pieces& pieces) {
  return pieces.take("\n\t\t</td>") || pieces.take("&nbsp;</td>") || pieces.take("\n\t\t\t&nbsp;\n\t\t</td>");
}

bool takeCell(Pieces& pieces, DocumentCells& found) {
  if (!takeCellStart(pieces)) return false;
  TableCell cell;
  while (const auto entry = takeEntry(pieces)) cell.entries.emplace_back(*entry);
  cell.empty = cell.entries.empty();
  found.anchors += cell.entries.size();
  found.cells.push_back(std::move(cell));
  return takeCellEnd(pieces);
}

bool takeTable(Pieces& pieces, DocumentCells& found) {
  // The start of a table is followed by a line feed in rebuilt documents too: that of its first row.
  while (pieces.take("\n\t<tr valign=\"top\">")) {
    do {
      if (!takeCell(pieces, found)) return false;
    } while (!pieces.take("\n\t</tr>"));
  }
  // A row of nothing but empty cells that a rebuild has dropped leaves its indentation.
  static_cast<void>(pieces.take("\n\t\n") || pieces.take("\n"));
  return pieces.take("</table>");
}

bool takeSingleColumn(Pieces& pieces, DocumentCells& found) {
  while (pieces.rest().starts_with("\n\n")) {
    pieces.take("\n");
    while (takeEntry(pieces)) ++found.anchors;
    if (!pieces.take("\n<div class=\"clearer\">&nbsp;</div>")) return false;
  }
  found.complete = found.anchors == 0;  // a document of one column has no cells until it is rebuilt
  return true;
}

}  // namespace

std::optional<DocumentCells> readOwnFormat(std::string_view document) {
  Pieces pieces(document);
  DocumentCells found;
  if (!takeHeader(pieces)) return std::nullopt;
  const bool isRead =
      pieces.take(sitemaps::kTableStart) ? takeTable(pieces, found) : takeSingleColumn(pieces, found);
  if (!isRead || pieces.rest() != "\n</body>\n</html>" || !platform::isUtf8(document)) return std::nullopt;
  return found;
}

}  // namespace html_editor
