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
      {"spelled by hand", "<DIV class=vskPageLink><A HREF='u'>T</A></DIV>",
       "<div class=\"vskPageLink\"><a href=\"u\">T</a></div>|"},
      {"targets keep blanks and letters", "<div class=\"x\"><a href=\"a b\xC3\xA9\">T</a></div>",
       "<div class=\"x\"><a href=\"a b\xC3\xA9\">T</a></div>|"},
      {"references in a target", "<div class=\"x\"><a href=\"?a&amp;b&amp;lt;c&#38;#x&quot;\">T</a></div>",
       "<div class=\"x\"><a href=\"?a&b&amp;lt;c&amp;#x&quot;\">T</a></div>|"},
      {"letters in a text", "<div class=\"x\">a < b > c &lt;d&gt; &amp;lt; &eacute; \"</div>",
       "<div class=\"x\">a &lt; b > c &lt;d> &amp;lt; \xC3\xA9 \"</div>|"},
      {"elements without an end", "<div class=\"x\">a<br>b<img src=i></div>",
       "<div class=\"x\">a<br>b<img src=\"i\"></div>|"},
      {"entry in an entry", "<div class=\"x\">a<div id=\"y\">b</div></div>",
       "<div class=\"x\">a<div id=\"y\">b</div></div><div id=\"y\">b</div>|"},
      {"entry left open", "<div class=\"x\">a", "<div class=\"x\">a\n\t\t</div>|"},
      {"an entry needs a class to count", "<div>a</div>", "<div>a</div>-|"},
      {"a comment may count", "<!-- <DIV x -->", "|"},
      {"a text does not", "&lt;div x>", "-|"},
      {"cell in a cell", "a<table><td><div id=\"y\">b</div></td></table>",
       "<div id=\"y\">b</div>|<div id=\"y\">b</div>|"},
      {"nothing but a blank", "&nbsp;", "-|"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string text =
        inTable("\n\t<tr valign=\"top\">\n\t\t<td>" + std::string(c.written) + "\n\t\t</td>\n\t</tr>");
    EXPECT_EQ(shown(readCells(text).cells), c.read);
  }
}

TEST(ReadOwnFormat, GivesWhatTheParserGives) {
  struct Case {
    std::string name;
    std::string text;
    bool isOwn;
  };
  std::vector<Case> cases;
  for (int columns = 1; columns <= 3; ++columns) {
    for (int count = 0; count <= 7; ++count) {
      const std::string text = document(columns, blocks(count));
      const std::string name = std::to_string(count) + " in " + std::to_string(columns) + " columns";
      cases.push_back({name, text, true});
      const std::vector<TableCell> cells = readCellsByParser(document(3, blocks(count))).cells;
      cases.push_back({name + ", rebuilt", rebuildSitemaps(text, cells, columns), true});
    }
  }
  const std::string two = document(2, blocks(3));
  cases.push_back({"another style", with(two, "color: #0000FF", "color: > \xC3\xA9 <!- &amp;"), false});
  cases.push_back(
      {"another style, no markup", with(two, "color: #0000FF", "color: > \xC3\xA9 \" &amp; '"), true});
  cases.push_back({"style ended early", with(two, "color: #0000FF", "--></style><td><style><!--"), false});
  cases.push_back({"another title", with(two, "<title>Sitemap", "<title>Our map"), false});
  cases.push_back(
      {"cells emptied", with(two, "\n\t\t\t" + blocks(1)[0][0] + "\n\t\t\t" + blocks(1)[0][1], ""), true});
  for (const auto& [title, isOwn] : {std::pair{"\"'`{}%\\ \xE2\x80\x93 \xF0\x9F\x98\x80", true},
                                     {"a > b", true},
                                     {"&lt;b>x&lt;/b>", true},
                                     {"a < b", false},
                                     {"<b>x</b>", false},
                                     {"</td>", false},
                                     {"<td>", false},
                                     {"<!-- x", false},
                                     {"&amp;amp;", true},
                                     {"R&D", false},
                                     {"&nbsp;", false},
                                     {"\t", false},
                                     {" ", true},
                                     {"", true},
                                     {" x ", true},
                                     {"\xEF\xBF\xBE", false},
                                     {"\xFF", false},
                                     {"\xC2\x85", true},
                                     {"\x7F", false},
                                     {"a\r\nb", false}}) {
    cases.push_back({std::string("title ") + title, with(two, "Link 2<", std::string(title) + "<"), isOwn});
  }
  for (const auto& [url, isOwn] : {std::pair{"?a&b=c;", true},
                                   {"?a&b;c", false},
                                   {"?&#35;", false},
                                   {"?a&", true},
                                   {"<x>", false},
                                   {"' '", true},
                                   {"&&&", true},
                                   {"?x&\xC3\xA9;", true}}) {
    cases.push_back({std::string("target ") + url, with(two, "2/link", std::string("2/") + url), isOwn});
  }
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto own = readOwnFormat(c.text);
    EXPECT_EQ(own.has_value(), c.isOwn);
    if (!own) continue;
    const DocumentCells parsed = readCellsByParser(c.text);
    EXPECT_EQ(shown(own->cells), shown(parsed.cells));
    EXPECT_EQ(own->anchors, parsed.anchors);
    EXPECT_EQ(own->complete, parsed.complete);
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
      {"abc", ""},     {"0", "-"},       {"a0b", "ab"}, {"a00b", "a0b"}, {"a000b", "a0b"}, {"a0000b", "a00b"},
      {"00ab", "0ab"}, {"a0b0c", "abc"}, {"ab0", "ab"}, {"ab00", "ab0"}, {"0a0", "a"},
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
      {3, 0, ""},
      {3, 1, "R1ffr"},
      {3, 2, "R12fr"},
      {3, 3, "R123r"},
      {3, 4, "R123rR4ffr"},
      {3, 5, "R123rR45fr"},
      {3, 6, "R123rR456r"},
      {3, 7, "R123rR456rR7ffr"},
      {2, 0, ""},
      {2, 1, "R1fr"},
      {2, 2, "R12r"},
      {2, 3, "R12rR3fr"},
      {2, 7, "R12rR34rR56rR7fr"},
      {1, 0, ""},
      {1, 1, "R1r"},
      {1, 2, "R1rR2r"},
      {1, 7, "R1rR2rR3rR4rR5rR6rR7r"},
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

TEST(Rebuild, AfterADeletionKeepsEveryOtherEntryAsItWas) {
  std::vector<samples::Block> before = blocks(5);
  before[1] = {page(20, "http://a.test/?a=1&b=2", "\"Tom\" &amp; 'Jerry'")};
  std::string text = document(3, before);
  text = with(text, "\n\t\t\t" + before[0][0] + "\n\t\t\t" + before[0][1], "");
  const auto cells = checkForEmptyColumn(text);
  ASSERT_TRUE(cells.has_value());
  const std::string rebuilt = rebuildSitemaps(text, *cells, 3);
  std::size_t at = 0;
  for (std::size_t i = 1; i < before.size(); ++i) {
    for (const std::string& entry : before[i]) {
      at = rebuilt.find("\n\t\t\t" + entry, at);
      EXPECT_NE(at, std::string::npos) << entry;
    }
  }
  EXPECT_EQ(rebuilt.find("a.test/1"), std::string::npos);
}

}  // namespace
}  // namespace html_editor
