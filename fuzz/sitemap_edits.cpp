// Edits of HTML sitemaps: what goes and what stays.
// Input: href and label of a click, what is typed into the two fields, then what follows the document's
// header.
#include <algorithm>
#include <string>

#include "fuzz_target.h"
#include "html_editor/anchor_edit.h"
#include "html_editor/link_deletion.h"
#include "html_editor/own_format.h"
#include "html_editor/preview.h"
#include "html_editor/table_rebuild.h"
#include "platform/regex.h"
#include "sitemaps/html_format.h"
#include "sitemaps/script_text.h"

namespace {

using fuzz::require;
using platform::Regex;
using platform::replaceText;

constexpr int kTotal = 40;  // numbers tried for a new heading

void checkEdit(const std::string& document, const html_editor::LinkSelection& selection,
               const std::string& typed) {
  const auto edit = html_editor::editLinkAndTitle(document, selection, typed + "!", selection.titleEditInput);
  require(edit.found || edit.document == document, "nothing is edited that was not found");
}

void checkDeletion(const std::string& document, const html_editor::LinkSelection& selection) {
  const auto deletion = html_editor::linkDeletion(document, selection, kTotal);
  require(deletion.document.size() <= 2 * document.size(),
          "a deletion adds nothing but the look of headings");
  require(deletion.removed != html_editor::Removed::nothing || deletion.document == document,
          "nothing goes that was not found");
}

void requireSame(const html_editor::DocumentCells& a, const html_editor::DocumentCells& b) {
  require(a.anchors == b.anchors && a.complete == b.complete, "anchors and places are those of the parser");
  require(
      std::equal(a.cells.begin(), a.cells.end(), b.cells.begin(), b.cells.end(),
                 [](const auto& x, const auto& y) { return x.entries == y.entries && x.empty == y.empty; }),
      "the cells are those of the parser");
}

void checkCells(const std::string& document) {
  const auto own = html_editor::readOwnFormat(document);
  const auto parsed = html_editor::readCellsByParser(document);
  if (own) requireSame(*own, parsed);
  const auto cells = html_editor::checkForEmptyColumn(document);
  require(!cells || cells->size() < parsed.cells.size(), "a rebuild is made of fewer cells");
  if (!cells) return;
  for (int columns = 1; columns <= 3; ++columns) {
    const std::string rebuilt = html_editor::rebuildSitemaps(document, *cells, columns);
    require(!own || html_editor::readOwnFormat(rebuilt).has_value(),
            "a rebuilt document is of our own format");
    for (const auto& cell : *cells) {
      for (const std::string& entry : cell.entries) {
        require(rebuilt.find("\n\t\t\t" + entry) != std::string::npos, "no entry is lost");
      }
    }
  }
}

void checkPreview(const std::string& document) {
  std::string expected = document;
  for (int n = 0; n < kTotal; ++n)
    expected = replaceText(expected, "---LINKID:" + std::to_string(n) + "---", "");
  // Longer runs of fragments are read from left to right.
  const bool isOdd = Regex("[-LINKD:0-9]{1025}").find(document).has_value();
  require(isOdd || html_editor::withoutMarkers(document, kTotal) == expected,
          "markers go in the order of numbers");
  require(html_editor::previewText(document).size() <= document.size(), "a preview only lacks something");
  require(sitemaps::holdsScriptText(document) || document.find("<script") == std::string::npos,
          "every script element is told");
}

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string_view href = fuzz::takeLine(rest);
  const std::string_view label = fuzz::takeLine(rest);
  const std::string typed(fuzz::takeLine(rest));
  const auto selection = html_editor::selectLink(href, label);

  for (const std::string& document : {std::string(rest), std::string(sitemaps::kHtmlHeader).append(rest)}) {
    checkCells(document);
    checkPreview(document);
    if (!selection) continue;
    checkEdit(document, *selection, typed);
    checkDeletion(document, *selection);
  }
}
