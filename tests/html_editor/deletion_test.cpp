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

LinkDeletion deleteClicked(const std::string& text, const std::string& href, const std::string& label) {
  return linkDeletion(text, *selectLink(href, label), 100);
}

TEST(LinkDeletion, TakesTheEntryWithItsLine) {
  struct Case {
    const char* name;
    const char* url;
    const char* title;  // as in the document
    const char* label;  // as a click reports it
  };
  const Case cases[] = {
      {"ampersand", "u", "R&amp;D", "R&D"},
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
  const std::string byHand = "\n" + page(7, "u", "T");
  struct Case {
    const char* name;
    std::string text;
    std::string expected;
    const char* label = "T";
  };
  const Case cases[] = {
      {"line ends of another system", "a\r" + line + "\r\nb", "a\r\r\nb"},
      {"broken bytes in another line", "\xFF" + line, "\xFF"},
      {"alternatives match pieces", with(line, "<!-- LINKID: 7 -->", ""), "", ".*|x"},
      {"indented by hand", byHand, byHand},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(deleteClicked(c.text, "u---LINKID:7---", c.label).document, c.expected);
  }
}

TEST(LinkDeletion, MakesTheNextLinkTheHeading) {
  struct Case {
    const char* name;
    std::string next;
    const char* number;  // selected then
    bool promoted;
  };
  const Case cases[] = {
      {"number behind it", link(5, "l", "L"), "4", true},
      {"across a gap", link(7, "l", "L") + "\n\t\t\t" + link(99, "m", "M"), "7", true},
      {"past a number spelled otherwise",
       with(page(7, "l", "L"), "---LINKID:7", "---LINKID:07") + "\n\t\t\t" + link(9, "m", "M"), "9", true},
      {"gap beyond the total", link(101, "l", "L"), "100", false},
      {"a heading follows", page(9, "q", "Q") + "\n\t\t\t" + link(11, "m", "M"), "9", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string next = "\n\t\t\t" + c.next;
    const LinkDeletion deletion =
        deleteClicked("\n\t\t\t" + page(4, "p", "P") + next, "p---LINKID:4---", "P");
    EXPECT_EQ(deletion.removed, Removed::pageEntry);
    EXPECT_EQ(deletion.document, c.promoted ? with(next, "vskPageLink", "vskPageTitle") : next);
    EXPECT_EQ(deletion.linkNumber, c.number);
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
