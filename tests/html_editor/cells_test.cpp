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
    SCOPED_TRACE(columns);
    const auto own = readOwnFormat(document(columns, blocks(4)));
    ASSERT_TRUE(own.has_value());
    EXPECT_EQ(shown(own->cells), shown(readCellsByParser(document(columns, blocks(4))).cells));
    EXPECT_TRUE(readOwnFormat(rebuildSitemaps("", own->cells, columns)).has_value());
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

/// A document of three columns whose cells have a letter for an entry each; "0" is an empty one.
std::string withCells(const std::string& cells) {
  std::string rows;
  for (const char cell : cells) {
    const std::string entry = "<div class=\"x\">" + std::string(1, cell) + "</div>";
    rows += "\n\t\t<td>" + (cell == '0' ? "" : entry) + "\n\t\t</td>";
  }
  return inTable("\n\t<tr valign=\"top\">" + rows + "\n\t</tr>");
}

TEST(CheckForEmptyColumn, PassesOverTheCellBehindAnEmptyOne) {
  struct Case {
    const char* cells;
    const char* kept;  // null: no rebuild
  };
  const Case cases[] = {
      {"abc", nullptr}, {"0", ""},        {"a0b", "ab"}, {"a00b", "a0b"},
      {"a000b", "a0b"}, {"a0b0c", "abc"}, {"ab0", "ab"}, {"ab00", "ab0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.cells);
    const auto kept = checkForEmptyColumn(withCells(c.cells));
    ASSERT_EQ(kept.has_value(), c.kept != nullptr);
    if (kept) {
      EXPECT_EQ(shown(*kept), shown(readCells(withCells(c.kept)).cells));
    }
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
  // "R" opens a row, "r" closes it, "f" is a filler; digits are cells.
  struct Case {
    int columns;
    int cells;
    const char* rows;
  };
  const Case cases[] = {
      {3, 0, ""},           {3, 1, "R1ffr"}, {3, 2, "R12fr"},    {3, 3, "R123r"},
      {3, 4, "R123rR4ffr"}, {2, 1, "R1fr"},  {2, 3, "R12rR3fr"}, {1, 2, "R1rR2r"},
  };
  const char* const widths[] = {"", " width=\"49%\"", " width=\"32%\""};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.cells) + " in " + std::to_string(c.columns));
    std::string expected = kHead + "<table width=\"100%\" border=\"0\" cellpadding=\"10\">";
    for (const char letter : std::string_view(c.rows)) {
      const std::string cell = std::string(widths[c.columns - 1]) + ">\n\t\t\t<div a>" + letter + "</div>";
      const std::string content = letter == 'f' ? " width=\"32%\">\n\t\t\t&nbsp;" : cell;
      if (letter == 'R') expected += "\n\t<tr valign=\"top\">";
      if (letter == 'r') expected += "\n\t</tr>";
      if (letter != 'R' && letter != 'r') expected += "\n\t\t<td" + content + "\n\t\t</td>";
    }
    EXPECT_EQ(rebuildSitemaps(kHead, cellsOf(c.cells), c.columns), expected + "\n</table>\n</body>\n</html>");
  }
}

TEST(RebuildSitemaps, DropsARowOfOneEmptyCellInThreeColumns) {
  std::vector<TableCell> cells = cellsOf(3);
  cells.push_back({});
  const std::string full = rebuildSitemaps(kHead, cellsOf(3), 3);
  EXPECT_EQ(rebuildSitemaps(kHead, cells, 3), with(full, "\n</table>", "\n\t\n</table>"));
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
