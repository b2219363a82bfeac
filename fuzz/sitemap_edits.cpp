// Edits of HTML sitemaps: what goes and what stays.
// Input: href and label of a click, what is typed into the two fields, then what follows the document's
// header.
#include <algorithm>
#include <optional>
#include <string>

#include "fuzz_target.h"
#include "html_editor/anchor_edit.h"
#include "html_editor/link_deletion.h"
#include "html_editor/own_format.h"
#include "html_editor/preview.h"
#include "html_editor/table_rebuild.h"
#include "platform/regex.h"
#include "platform/text.h"
#include "sitemaps/html_format.h"
#include "sitemaps/script_text.h"

namespace {

using fuzz::require;
using html_editor::anchorMarkup;
using platform::Regex;
using platform::replaceText;

constexpr int kTotal = 40;  // numbers tried for a new heading

std::string found(const std::string& pattern, const std::string& text) {
  const auto regex = Regex::compile(pattern);
  const auto match = regex ? regex->find(text) : std::nullopt;
  return match ? std::string(match->whole) : std::string();
}

void checkEdit(const std::string& document, const html_editor::LinkSelection& selection,
               const std::string& typed) {
  const auto edit = html_editor::editLinkAndTitle(document, selection, typed + "!", selection.titleEditInput);
  require(edit.found || edit.document == document, "nothing is edited that was not found");
}

/// The entry as it was clicked, or as the pattern finds it.
std::string entryOf(const std::string& document, const html_editor::LinkSelection& selection) {
  const std::string kTitle = "<div class=\"vskPageTitle\">";
  const std::string kLink = "<div class=\"vskPageLink\">";
  for (const std::string& text : html_editor::spellingsOf(selection.titleEditInput)) {
    const std::string anchor = anchorMarkup(selection.target, text, selection.linkNumber) + "</div>";
    const std::size_t asTitle = document.find("\n\t\t\t" + kTitle + anchor);
    const std::size_t asLink = document.find("\n\t\t\t" + kLink + anchor);
    if (asTitle != asLink) return (asTitle < asLink ? kTitle : kLink) + anchor;
  }
  const std::string entry = found(
      replaceText("<div .*><a href=\"" + selection.delLink + "---LINKID:" + selection.linkNumber + "---\">" +
                      selection.delTitle + "<!-- LINKID: " + selection.linkNumber + " --></a></div>",
                  "?", "\\?"),
      document);
  return entry.starts_with("<div ") && entry.ends_with("</div>") ? entry : std::string();
}

/// The deletion as it is defined, without a care for time.
std::string deleted(std::string document, const html_editor::LinkSelection& selection) {
  const std::string entry = entryOf(document, selection);
  if (entry.empty()) return document;
  const std::string rest = replaceText(document, "\n\t\t\t" + entry, "");
  const bool heading = entry.starts_with("<div class=\"vskPageTitle\">") ||
                       (!entry.starts_with("<div class=\"vskPageLink\">") &&
                        platform::foldCase(entry).find("vskpagetitle") != std::string::npos);
  if (rest == document || !heading) return rest;
  int number = std::stoi(selection.linkNumber) + 1;
  std::string next =
      found("<div .*><a .*---\">.*<!-- LINKID: " + std::to_string(number) + " --></a></div>", rest);
  while (next.empty() && number < kTotal) {
    ++number;
    next = found("<div .*---LINKID:" + std::to_string(number) + "---\">.*</div>", rest);
  }
  const std::string start = "<div class=\"vskPageLink\"";
  if (!next.starts_with(start)) return rest;
  return replaceText(rest, next, "<div class=\"vskPageTitle\"" + next.substr(start.size()));
}

void checkDeletion(const std::string& document, const html_editor::LinkSelection& selection) {
  const auto deletion = html_editor::linkDeletion(document, selection, kTotal);
  require(deletion.document.size() <= 2 * document.size(),
          "a deletion adds nothing but the look of headings");
  // Where a pattern repeats groups, a search of the whole document may give up when one of a line does not.
  if ((selection.delLink + selection.delTitle).find_first_of("*+{") != std::string::npos) return;
  const std::string& number = selection.linkNumber;
  const bool isSmall =
      !number.empty() && number.size() < 7 && number.find_first_not_of("0123456789") == number.npos;
  // A document that is no text has lines in which no pattern's dots match, and no heading is made of those.
  if (!isSmall || !fuzz::isUtf8(document)) return;
  require(deletion.document == deleted(document, selection), "the entry goes, the next is promoted");
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
