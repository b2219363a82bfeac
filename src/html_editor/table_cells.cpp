#include "html_editor/table_cells.h"

#include <utility>

#include "html_editor/entry_markup.h"
#include "html_editor/own_format.h"
#include "platform/ascii.h"
#include "platform/markup.h"
#include "platform/text.h"

namespace html_editor {

namespace {

/// The name as a query sees it: without the part in front of a colon.
std::string_view localName(std::string_view name) {
  const std::size_t colon = name.find(':');
  return colon == 0 || colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool isEntry(const std::vector<platform::MarkupAttribute>& attributes) {
  for (const platform::MarkupAttribute& attribute : attributes) {
    if (attribute.name == "class" && attribute.value.starts_with("vskPage")) return true;
  }
  return false;
}

/// What is no character to the parser is dropped by it, and what stood on both sides would come together:
/// such as the end of a comment, and what was text in it would be markup. So U+FFFD stands there instead.
std::string withoutNonCharacters(std::string_view utf8) {
  constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
  std::string text;
  text.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    const std::string_view character = utf8.substr(i, 3);
    if (byte == '\f') {
      text += ' ';
    } else if (character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF") {
      text += kReplacement;
      i += 2;
    } else if (byte < ' ' && byte != '\t' && byte != '\n' && byte != '\r') {
      text += kReplacement;
    } else {
      text += utf8[i];
    }
  }
  return text;
}

class CellReader : public platform::MarkupHandler {
 public:
  /// Entries within entries are written once for each that they are in, together at most `maxBytes`.
  explicit CellReader(std::size_t maxBytes) : m_maxBytes(maxBytes) {}

  void startElement(std::string_view name,
                    const std::vector<platform::MarkupAttribute>& attributes) override {
    const std::string_view local = localName(name);
    if (local == "a") ++m_found.anchors;
    if (local == "td") openCell();
    if (local == "div") openDiv(attributes);
    if (!m_openCells.empty()) m_markup.startElement(name, attributes);
    m_open.emplace_back(name);
  }

  /// A tree goes up by one element, whichever is named: for a tag that is cut off by the end of the document
  /// there is a start and no end.
  void endElement(std::string_view) override {
    if (!m_open.empty()) closeInnermost();
  }

  void text(std::string_view piece) override {
    if (!m_openCells.empty()) m_markup.text(piece);
  }

  void comment(std::string_view text) override {
    if (m_openCells.empty()) return;
    m_markup.comment(text);
    if (platform::lowerAscii(text).find("<div ") != std::string::npos) ++m_divStarts;
  }

  void otherNode() override {}

  /// Once, at the end of the document, with whatever is open there.
  DocumentCells take() {
    while (!m_open.empty()) closeInnermost();
    return std::move(m_found);
  }

 private:
  struct OpenCell {
    std::size_t index;      // in the cells found
    std::size_t firstDiv;   // in m_divs
    std::size_t divStarts;  // m_divStarts when it was opened
  };

  /// Where an element's markup begins and ends in what was written.
  struct Div {
    std::size_t begin;
    std::size_t end;
  };

  void closeInnermost() {
    const std::string name = std::move(m_open.back());
    m_open.pop_back();
    if (m_openCells.empty()) return;
    m_markup.endElement(name);
    const std::string_view local = localName(name);
    if (local == "div") closeDiv();
    if (local == "td") closeCell();
  }

  void openCell() {
    m_openCells.push_back({m_found.cells.size(), m_divs.size(), m_divStarts});
    m_found.cells.emplace_back();
  }

  void openDiv(const std::vector<platform::MarkupAttribute>& attributes) {
    if (m_openCells.empty()) {
      if (isEntry(attributes)) m_found.complete = false;
      return;
    }
    if (!attributes.empty()) ++m_divStarts;
    m_openDivs.push_back(m_divs.size());
    m_divs.push_back({m_markup.written().size(), 0});
  }

  void closeDiv() {
    m_divs[m_openDivs.back()].end = m_markup.written().size();
    m_openDivs.pop_back();
  }

  void closeCell() {
    const OpenCell open = m_openCells.back();
    m_openCells.pop_back();
    TableCell& cell = m_found.cells[open.index];
    cell.empty = open.divStarts == m_divStarts;
    const std::string_view markup = m_markup.written();
    for (std::size_t i = open.firstDiv; i < m_divs.size() && !m_tooMuch; ++i) {
      const std::size_t size = m_divs[i].end - m_divs[i].begin;
      if (size > m_maxBytes) {
        m_found.complete = false;
        m_tooMuch = true;
        break;
      }
      m_maxBytes -= size;
      cell.entries.emplace_back(markup.substr(m_divs[i].begin, size));
    }
    if (!m_openCells.empty()) return;
    m_markup.clear();
    m_divs.clear();
  }

  std::size_t m_maxBytes;
  bool m_tooMuch = false;
  DocumentCells m_found;
  EntryMarkup m_markup;                 // of the outermost open cell
  std::vector<std::string> m_open;      // elements, the innermost last
  std::vector<OpenCell> m_openCells;    // the innermost last
  std::vector<Div> m_divs;              // of the outermost open cell, in document order
  std::vector<std::size_t> m_openDivs;  // in m_divs, the innermost last
  std::size_t m_divStarts = 0;          // how often "<div " was written
};

}  // namespace

DocumentCells readCellsByParser(std::string_view document) {
  constexpr std::size_t kTimesDocument = 4;
  constexpr std::size_t kSmall = 1U << 20;
  CellReader reader(document.size() * kTimesDocument + kSmall);
  platform::readHtml(withoutNonCharacters(platform::decodeUtf8(std::string(document))), reader);
  return reader.take();
}

DocumentCells readCells(std::string_view document) {
  if (auto cells = readOwnFormat(document)) return std::move(*cells);
  return readCellsByParser(document);
}

std::optional<std::vector<TableCell>> checkForEmptyColumn(std::string_view document) {
  DocumentCells found = readCells(document);
  if (!found.complete) return std::nullopt;
  std::vector<TableCell> kept;
  for (std::size_t i = 0; i < found.cells.size(); ++i) {
    // The one behind an empty cell moves into its place, which the count has passed.
    if (found.cells[i].empty && ++i == found.cells.size()) break;
    kept.push_back(std::move(found.cells[i]));
  }
  if (kept.size() == found.cells.size()) return std::nullopt;
  return kept;
}

}  // namespace html_editor
