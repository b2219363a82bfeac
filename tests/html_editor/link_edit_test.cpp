#include <gtest/gtest.h>

#include "html_editor/anchor_edit.h"
#include "html_editor/link_selection.h"
#include "html_editor/sample_document.h"

namespace html_editor {
namespace {

using samples::with;

TEST(SelectLink, ReadsTheMarkerFromTheTarget) {
  struct Case {
    const char* name;
    const char* href;
    const char* number;
    const char* marker;
    const char* link;
  };
  const Case cases[] = {
      {"plain", "http://a.test/---LINKID:12---", "12", "---LINKID:12---", "http://a.test/"},
      {"fragment", "#x---LINKID:0---", "0", "---LINKID:0---", "#x"},
      {"script", "javascript:alert(1)---LINKID:7---", "7", "---LINKID:7---", "javascript:alert(1)"},
      {"dashes in the address go with the marker", "http://a.test/b---c---LINKID:7---", "7",
       "---c---LINKID:7---", "http://a.test/b"},
      {"a marker of the site's own", "x---LINKID:1---y---LINKID:2---", "1---y---LINKID:2",
       "---LINKID:1---y---LINKID:2---", "x"},
      {"no marker", "http://a.test/", "", "", "http://a.test/"},
      {"dashes only", "a---b---c", "", "---b---", "ac"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto selection = selectLink(c.href, "Tom & Jerry &amp;");
    ASSERT_TRUE(selection.has_value());
    EXPECT_EQ(selection->linkNumber, c.number);
    EXPECT_EQ(selection->linkIdentifier, c.marker);
    EXPECT_EQ(selection->delLink, c.link);
    EXPECT_EQ(selection->linkEditInput, c.link);
    EXPECT_EQ(selection->titleEditInput, "Tom & Jerry &amp;");
    EXPECT_EQ(selection->delTitle, "Tom &amp; Jerry &amp;amp;");
    EXPECT_EQ(selection->originalLinkValue, "<a href=\"" + std::string(c.href) +
                                                "\">Tom &amp; Jerry &amp;amp;<!-- LINKID: " + c.number +
                                                " --></a>");
  }
  EXPECT_FALSE(selectLink("", "text"));
  EXPECT_FALSE(selectLink("http://a.test/---LINKID:1---", ""));
}

TEST(CommitField, AsksForWhatIsMissing) {
  EXPECT_EQ(commitTitleField("t", "l"), FieldCommit::edit);
  EXPECT_EQ(commitTitleField("t", ""), FieldCommit::edit);
  EXPECT_EQ(commitTitleField("", "l"), FieldCommit::titleBlank);
  EXPECT_EQ(commitTitleField("", ""), FieldCommit::nothing);
  EXPECT_EQ(commitLinkField("t", "l"), FieldCommit::edit);
  EXPECT_EQ(commitLinkField("", "l"), FieldCommit::edit);
  EXPECT_EQ(commitLinkField("t", ""), FieldCommit::linkBlank);
  EXPECT_EQ(commitLinkField("", ""), FieldCommit::nothing);
}

/// Clicks the entry with this href and label, and commits `link` and `title`.
std::string edited(const std::string& document, const std::string& href, const std::string& label,
                   const std::string& link, const std::string& title) {
  const auto selection = selectLink(href, label);
  return editLinkAndTitle(document, selection->originalLinkValue, selection->linkNumber, link, title)
      .document;
}

TEST(EditLinkAndTitle, RewritesTheAnchorAndNothingElse) {
  using samples::link;
  struct Case {
    const char* name;
    std::string entry;
    const char* href;
    const char* label;
    std::string expected;
  };
  const std::string rewritten = link(7, "http://b.test/?$1&x=\\1", "A &amp; B $0 \\0");
  const Case cases[] = {
      {"plain", link(7, "http://a.test/", "Text"), "http://a.test/---LINKID:7---", "Text", rewritten},
      {"escaped text", link(7, "u?a&b", "Tom &amp; Jerry"), "u?a&b---LINKID:7---", "Tom & Jerry", rewritten},
      {"bare text", link(7, "u?a&b", "Tom & Jerry"), "u?a&b---LINKID:7---", "Tom & Jerry", rewritten},
      {"text of two spellings", link(7, "u", "A & B &amp; C"), "u---LINKID:7---", "A & B & C",
       link(7, "u", "A & B &amp; C")},
      {"in another case", with(link(7, "u", "Tom &amp; J"), "<a ", "<A "), "u---LINKID:7---", "Tom & J",
       with(link(7, "u", "Tom &amp; J"), "<a ", "<A ")},
      {"gone", link(7, "u", "other"), "u---LINKID:7---", "Text", link(7, "u", "other")},
      {"twice", link(7, "u", "T") + link(7, "u", "T"), "u---LINKID:7---", "T", rewritten + rewritten},
      {"shared number", link(7, "u", "T") + link(7, "v", "T"), "u---LINKID:7---", "T",
       rewritten + link(7, "v", "T")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(edited(c.entry, c.href, c.label, "http://b.test/?$1&x=\\1", "A & B $0 \\0"), c.expected);
  }
}

TEST(EditLinkAndTitle, PassesABareSpellingOverWhenTheEscapedOneStandsInAnotherCase) {
  const std::string document = samples::link(7, "u", "a &amp; B") + samples::link(7, "u", "A & B");
  EXPECT_EQ(edited(document, "u---LINKID:7---", "A & B", "v", "T"), document);
}

TEST(EditLinkAndTitle, ASecondEditFindsTheEntry) {
  const std::string document = samples::document(3, samples::blocks(2));
  const auto selection = selectLink("http://a.test/2/link---LINKID:22---", "Link 2");
  const AnchorEdit first =
      editLinkAndTitle(document, selection->originalLinkValue, selection->linkNumber, "", "R&D");
  EXPECT_EQ(first.document, with(document, samples::link(22, "http://a.test/2/link", "Link 2"),
                                 samples::link(22, "", "R&amp;D")));
  const AnchorEdit second = editLinkAndTitle(first.document, first.originalLinkValue, selection->linkNumber,
                                             "http://a.test/2/link", "Link 2");
  EXPECT_EQ(second.document, document);
}

}  // namespace

}  // namespace html_editor
