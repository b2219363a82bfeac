#include <gtest/gtest.h>

#include "html_editor/own_format.h"
#include "html_editor/sample_document.h"
#include "html_editor/table_cells.h"
#include "html_editor/table_rebuild.h"
#include "sitemaps/html_format.h"

namespace html_editor {
namespace {

using samples::blocks;
using samples::document;
using samples::link;
using samples::page;
using samples::with;

std::string inTable(const std::string& rows) {
  return document(3, {}).insert(sitemaps::documentOpening(3).size(), rows);
}

/// "|" behind each cell, its entries in it; "-" for an empty one.
std::string shown(const std::vector<TableCell>& cells) {
  std::string text;
  for (const TableCell& cell : cells) {
    for (const std::string& entry : cell.entries) text += entry;
    text += cell.empty ? "-|" : "|";
  }
  return text;
}

TEST(ReadCells, SpellsEntriesSoThatTheyAreFoundAgain) {
  struct Case {
    const char* name;
    const char* written;
    const char* read;
  };
  const Case cases[] = {
      {"entry as generated",
       "<div class=\"vskPageLink\"><a href=\"u?a=1&b=2---LINKID:7---\">R&amp;D<!-- LINKID: 7 --></a></div>",
       "<div class=\"vskPageLink\"><a href=\"u?a=1&b=2---LINKID:7---\">R&amp;D<!-- LINKID: 7 --></a></div>|"},
      {"letters in a text", "<div class=\"x\">a < b > c &lt;d&gt; &amp;lt; &eacute; \"</div>",
       "<div class=\"x\">a &lt; b > c &lt;d> &amp;lt; \xC3\xA9 \"</div>|"},
      {"entry in an entry", "<div class=\"x\">a<div id=\"y\">b</div></div>",
       "<div class=\"x\">a<div id=\"y\">b</div></div><div id=\"y\">b</div>|"},
      {"entry left open", "<div class=\"x\">a", "<div class=\"x\">a\n\t\t</div>|"},
      {"a comment may count", "<!-- <DIV x -->", "|"},
      {"a comment that would end early", "<div class=\"x\"><!---\x19-><b>--></div>",
       "<div class=\"x\"><!---\xEF\xBF\xBD-><b>--></div>|"},
      {"a style sheet that would end early", "<div class=\"x\"><style>a</s\x05tyle><script></style></div>",
       "<div class=\"x\"><style>a</s\xEF\xBF\xBDtyle><script></style></div>|"},
      {"nothing but a blank", "&nbsp;", "-|"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string text =
        inTable("\n\t<tr valign=\"top\">\n\t\t<td>" + std::string(c.written) + "\n\t\t</td>\n\t</tr>");
    EXPECT_EQ(shown(readCells(text).cells), c.read);
  }
}

/// Only what the parser would read as it stands may be read without it.
TEST(ReadOwnFormat, IsSureOfWhatItReads) {
  for (int columns = 1; columns <= 3; ++columns) {
    for (const int count : {0, 1, 4}) {
      SCOPED_TRACE(std::to_string(count) + " in " + std::to_string(columns) + " columns");
      const std::string text = document(columns, blocks(count));
      const auto own = readOwnFormat(text);
      ASSERT_TRUE(own.has_value());
      const DocumentCells parsed = readCellsByParser(text);
      EXPECT_EQ(shown(own->cells), shown(parsed.cells));
      EXPECT_EQ(own->anchors, parsed.anchors);
      EXPECT_EQ(own->complete, parsed.complete);
      EXPECT_TRUE(readOwnFormat(rebuildSitemaps(text, parsed.cells, columns)).has_value());
    }
  }
  struct Case {
    const char* what;  // of a document
    const char* instead;
    bool isOwn;
  };
  const Case cases[] = {
      {"color: #0000FF", "color: > \xC3\xA9 \" &amp; '", true},
      {"color: #0000FF", "--></style><td><style><!--", false},
      {"<title>Sitemap", "<title>Our map", false},
      {"Link 2<", "\"'`{}%\\ > \xE2\x80\x93 &amp;lt;<", true},
      {"Link 2<", "<b>x</b><", false},
      {"Link 2<", "<!-- x<", false},
      {"Link 2<", "R&D<", false},
      {"Link 2<", "\t<", false},
      {"Link 2<", "\xEF\xBF\xBE<", false},
      {"Link 2<", "\xFF<", false},
      {"Link 2<", "\x7F<", false},
      {"2/link", "?a&b=c;&", true},
      {"2/link", "?a&b;c", false},
      {"2/link", "?&#35;", false},
      {"2/link", "<x>", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.instead);
    EXPECT_EQ(readOwnFormat(with(document(2, blocks(3)), c.what, c.instead)).has_value(), c.isOwn);
  }
}

/// A document of three columns with these cells: "1" has an entry, "0" none.
std::string withCells(const std::string& cells) {
  std::string rows;
  for (const char cell : cells) {
    rows += "\n\t\t<td>";
    if (cell != '0') rows += "\n\t\t\t" + link(1, std::string(1, cell), "T");
    rows += "\n\t\t</td>";
  }
  return inTable("\n\t<tr valign=\"top\">" + rows + "\n\t</tr>");
}

TEST(CheckForEmptyColumn, PassesOverTheCellBehindAnEmptyOne) {
  struct Case {
    const char* cells;
    const char* kept;  // empty: no rebuild
  };
  const Case cases[] = {
      {"abc", ""},      {"0", "-"},       {"a0b", "ab"}, {"a00b", "a0b"},
      {"a000b", "a0b"}, {"a0b0c", "abc"}, {"ab0", "ab"}, {"ab00", "ab0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.cells);
    const auto kept = checkForEmptyColumn(withCells(c.cells));
    std::string letters;
    for (const TableCell& cell : kept.value_or(std::vector<TableCell>())) {
      letters += cell.empty
                     ? '0'
                     : cell.entries[0][std::string_view("<div class=\"vskPageLink\"><a href=\"").size()];
    }
    if (kept && kept->empty()) letters = "-";
    EXPECT_EQ(letters, c.kept);
  }
}

TEST(CheckForEmptyColumn, NeverLosesAnEntry) {
  struct Case {
    const char* name;
    std::string text;
  };
  const std::string three = with(document(3, blocks(4)), blocks(1)[0][0] + "\n\t\t\t" + blocks(1)[0][1], "");
  ASSERT_TRUE(checkForEmptyColumn(three).has_value());
  std::string deep;
  for (int i = 0; i < 20'000; ++i) deep += "<div class=\"vskPageLink\">";
  const Case cases[] = {
      {"one column, with a cell in a title", document(1, {{page(1, "u", "<td>"), link(3, "v", "V")}})},
      {"a title ends its cell", with(three, "Page 3", "</td>")},
      {"entries nested without end", with(three, "Page 3", deep)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_FALSE(checkForEmptyColumn(c.text).has_value());
  }
}

const std::string kHead = std::string(sitemaps::kHtmlHeader);

std::vector<TableCell> cellsOf(int count) {
  std::vector<TableCell> cells;
  for (int i = 1; i <= count; ++i) cells.push_back({{"<div a>" + std::to_string(i) + "</div>"}, false});
  return cells;
}

TEST(RebuildSitemaps, FlowsCellsIntoRows) {
  // R opens a row, r closes it, f is a filler, e an empty cell; digits are cells.
  struct Case {
    int columns;
    int cells;
    const char* rows;
  };
  const Case cases[] = {
      {3, 0, ""},     {3, 1, "R1ffr"}, {3, 2, "R12fr"},    {3, 3, "R123r"},  {3, 4, "R123rR4ffr"},
      {2, 1, "R1fr"}, {2, 2, "R12r"},  {2, 3, "R12rR3fr"}, {1, 2, "R1rR2r"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.cells) + " in " + std::to_string(c.columns));
    const std::string width = c.columns == 3 ? " width=\"32%\"" : c.columns == 2 ? " width=\"49%\"" : "";
    std::string expected = kHead + "<table width=\"100%\" border=\"0\" cellpadding=\"10\">";
    for (const char letter : std::string_view(c.rows)) {
      if (letter == 'R') {
        expected += "\n\t<tr valign=\"top\">";
      } else if (letter == 'r') {
        expected += "\n\t</tr>";
      } else if (letter == 'f') {
        expected += "\n\t\t<td width=\"32%\">\n\t\t\t&nbsp;\n\t\t</td>";
      } else {
        expected += "\n\t\t<td" + width + ">\n\t\t\t<div a>" + letter + "</div>\n\t\t</td>";
      }
    }
    EXPECT_EQ(rebuildSitemaps(kHead, cellsOf(c.cells), c.columns), expected + "\n</table>\n</body>\n</html>");
  }
}

TEST(RebuildSitemaps, DropsARowOfOneEmptyCellInThreeColumns) {
  std::vector<TableCell> cells = cellsOf(3);
  cells.push_back({});
  const std::string full = rebuildSitemaps(kHead, cellsOf(3), 3);
  const std::string dropped = rebuildSitemaps(kHead, cells, 3);
  EXPECT_EQ(dropped, with(full, "\n</table>", "\n\t\n</table>"));
  EXPECT_TRUE(readOwnFormat(rebuildSitemaps(kHead, {{}}, 3)).has_value());
  const std::string two = rebuildSitemaps(kHead, cells, 2);
  EXPECT_NE(two.find("<td width=\"49%\">\n\t\t</td>"), two.npos);
  cells.insert(cells.begin(), TableCell{});  // an empty cell beside a filled one stays
  EXPECT_NE(rebuildSitemaps(kHead, cells, 3).find("<td width=\"32%\">\n\t\t</td>"), two.npos);
}

TEST(RebuildSitemaps, KeepsTheHeadOfTheFile) {
  const std::string table =
      "<table width=\"100%\" border=\"0\" cellpadding=\"10\">\n</table>\n</body>\n</html>";
  const std::string newHead = kHead.substr(0, kHead.find("<body>"));
  struct Case {
    const char* name;
    std::string file;
    std::string head;
  };
  const Case cases[] = {
      {"restyled", with(kHead, "#0000FF", "$1") + "old", with(newHead, "#0000FF", "$1")},
      {"first body", "a<body>b<body>", "a"},
      {"body with attributes", "a<BODY class=\"x\">b", "a"},
      {"no body", "a</table>", newHead},
      {"no file", "", newHead},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(rebuildSitemaps(c.file, {}, 2), c.head + "<body>\n" + table);
  }
}

}  // namespace
}  // namespace html_editor
