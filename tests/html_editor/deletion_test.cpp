#include <gtest/gtest.h>

#include "html_editor/link_deletion.h"
#include "html_editor/sample_document.h"

namespace html_editor {
namespace {

using samples::Block;
using samples::document;
using samples::link;
using samples::page;
using samples::with;

constexpr int kTotal = 1000;

LinkDeletion deleteClicked(const std::string& text, const std::string& href, const std::string& label,
                           int total = kTotal) {
  return linkDeletion(text, *selectLink(href, label), total);
}

TEST(LinkDeletion, TakesTheEntryWithItsLine) {
  struct Case {
    const char* name;
    const char* url;
    const char* title;  // as in the document
    const char* label;  // as a click reports it
  };
  const Case cases[] = {
      {"plain", "http://a.test/b", "Text", "Text"},
      {"ampersand", "u", "R&amp;D", "R&D"},
      {"letters beyond ASCII", "\xC3\xA9", "\xE6\x97\xA5", "\xE6\x97\xA5"},
      {"what is a pattern", "wiki/C_(x)+$[1]", "C++ | *2 (EU) [PDF] $5 C:\\temp",
       "C++ | *2 (EU) [PDF] $5 C:\\temp"},
      {"reference as text", "u", "&amp;lt;b>", "&lt;b>"},
      {"several lines", "u\nv", "two\nlines", "two\nlines"},
      {"line ends of another system", "u", "a\r\n&lt;b>", "a\n<b>"},
      {"forged marks", "u---LINKID:8---v---LINKID:5---", "---LINKID:8---&lt;!-- LINKID: 8 -->",
       "---LINKID:8---<!-- LINKID: 8 -->"},
      {"forged class", "u?vskPageTitle", "vskPageTitle", "vskPageTitle"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::vector<Block> whole = {{page(5, "p", "P"), link(7, c.url, c.title), link(8, "v", "V")}};
    const std::vector<Block> rest = {{page(5, "p", "P"), link(8, "v", "V")}};
    const LinkDeletion deletion =
        deleteClicked(document(3, whole), std::string(c.url) + "---LINKID:7---", c.label);
    EXPECT_EQ(deletion.removed, Removed::linkEntry);
    EXPECT_EQ(deletion.document, document(3, rest));
    EXPECT_EQ(deletion.linkNumber, "7");
  }
}

TEST(LinkDeletion, FindsTheEntryInOddDocuments) {
  const std::string line = "\n\t\t\t" + link(7, "u", "T");
  struct Case {
    const char* name;
    std::string text;
    std::string expected;
    const char* target = "u";
    const char* label = "T";
  };
  const Case cases[] = {
      {"the same entry twice", line + "y" + line, "y"},
      {"line ends of another system", "a\r" + line + "\r\nb", "a\r\r\nb"},
      {"same number on a page entry in front", "\n\t\t\t" + page(7, "v", "T") + line,
       "\n\t\t\t" + page(7, "v", "T")},
      {"two on a line: from the first one's div", "\n\t\t\t" + link(6, "v", "S") + link(7, "u", "T") + "z",
       "z"},
      {"broken bytes in another line", "\xFF" + line, "\xFF"},
      // Where the letters happen to match something else, that is what goes.
      {"address taken as a pattern", "\n\t\t\t" + link(7, "aXb", "T"), "", "a.b"},
      {"text taken as a pattern", "\n\t\t\t" + link(7, "u", "f x"), "", "u", "f (x)"},
      {"alternatives match pieces", with(line, "<!-- LINKID: 7 -->", ""), "", "u", ".*|x"},
      {"a faulty pattern", line, line, "u(", "T"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(deleteClicked(c.text, c.target + std::string("---LINKID:7---"), c.label).document, c.expected);
  }
}

TEST(LinkDeletion, MakesTheNextLinkTheHeading) {
  struct Case {
    const char* name;
    std::vector<Block> before;
    std::vector<Block> after;
    int total;
    const char* number;  // selected then
  };
  const Block heading = {page(4, "p", "P")};
  const auto block = [](int first, bool promoted) {
    return Block{promoted ? page(first, "l", "L") : link(first, "l", "L"), link(99, "m", "M")};
  };
  const auto under = [](Block entries) {
    entries.insert(entries.begin(), page(4, "p", "P"));
    return entries;
  };
  const Case cases[] = {
      {"number behind it", {under(block(5, false))}, {block(5, true)}, 100, "4"},
      {"across a gap", {under(block(6, false))}, {block(6, true)}, 100, "6"},
      {"gap beyond the total", {under(block(50, false))}, {block(50, false)}, 49, "49"},
      {"a heading follows",
       {heading, {page(9, "q", "Q"), link(11, "m", "M")}},
       {{}, {page(9, "q", "Q"), link(11, "m", "M")}},
       100,
       "9"},
      {"smallest number, not nearest line",
       {under({link(9, "m", "M"), link(7, "l", "L")})},
       {{link(9, "m", "M"), page(7, "l", "L")}},
       100,
       "7"},
      {"shared by a link and the next heading",
       {under({link(7, "l", "L")}), {page(7, "q", "Q")}},
       {{page(7, "l", "L")}, {page(7, "q", "Q")}},
       100,
       "7"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const LinkDeletion deletion = deleteClicked(document(3, c.before), "p---LINKID:4---", "P", c.total);
    EXPECT_EQ(deletion.removed, Removed::pageEntry);
    EXPECT_EQ(deletion.document, document(3, c.after));
    EXPECT_EQ(deletion.linkNumber, c.number);
  }
}

TEST(LinkDeletion, PromotesOnlyWhatFollowsARemovedHeading) {
  const std::vector<Block> blocks = {{page(4, "p", "P"), link(5, "l", "L"), link(6, "m", "M")}};
  const LinkDeletion ofLink = deleteClicked(document(3, blocks), "l---LINKID:5---", "L");
  EXPECT_EQ(ofLink.document, document(3, {{page(4, "p", "P"), link(6, "m", "M")}}));
  EXPECT_EQ(ofLink.linkNumber, "5");
  const std::string byHand = with(document(3, blocks), "\t" + page(4, "p", "P"), " " + page(4, "p", "P"));
  EXPECT_EQ(deleteClicked(byHand, "p---LINKID:4---", "P").document, byHand);
}

TEST(LinkDeletion, LooksForTheNumberBehindByTheCommentAndFurtherOnesByTheMarker) {
  const std::string heading = "\n\t\t\t" + page(4, "p", "P");
  struct Case {
    const char* name;
    std::string next;
    bool promoted;
  };
  const Case cases[] = {
      {"number behind, marker gone", with(link(5, "l", "L"), "---LINKID:5---", ""), false},
      {"number behind, comment gone", with(link(5, "l", "L"), "<!-- LINKID: 5 -->", ""), false},
      {"further number, comment gone", with(link(6, "l", "L"), "<!-- LINKID: 6 -->", ""), true},
      {"too large", with(link(6, "l", "L"), "---LINKID:6---", "---LINKID:99999999999999999999---"), false},
      {"a site's own mark", link(90, "l---LINKID:6---", "L"), true},
      {"end of the entry on the next line", with(link(6, "l", "L"), "</div>", "\n</div>"), false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string next = "\n\t\t\t" + c.next;
    EXPECT_EQ(deleteClicked(heading + next, "p---LINKID:4---", "P").document,
              c.promoted ? with(next, "vskPageLink", "vskPageTitle") : next);
  }
}

TEST(LinkDeletion, StaysQuickOnHostileTexts) {
  std::string oneLine(200'000, 'x');
  for (std::size_t i = 0; i < oneLine.size(); i += 20)
    oneLine.replace(i, 16, "---LINKID:" + std::to_string(100'000 + i));
  EXPECT_EQ(
      deleteClicked("\n\t\t\t" + page(4, "p", "P") + "\n<div " + oneLine + "</div>", "p---LINKID:4---", "P")
          .removed,
      Removed::pageEntry);
  const std::string nested = "((((a*)*)*)*)*b|c";
  EXPECT_EQ(deleteClicked(std::string(200'000, 'a'), "u---LINKID:4---", nested).removed, Removed::nothing);
}

}  // namespace
}  // namespace html_editor
