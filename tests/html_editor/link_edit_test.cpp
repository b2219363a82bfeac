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
      {"dashes in the address go with the marker", "http://a.test/b---c---LINKID:7---", "7",
       "---c---LINKID:7---", "http://a.test/b"},
      {"a mark of the site's own", "x---LINKID:1---y---LINKID:2---", "2", "---LINKID:1---y---LINKID:2---",
       "x"},
      {"a marker in front of the end", "x---LINKID:2---y", "2", "---LINKID:2---", "xy"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto selection = selectLink(c.href, "Tom & <Jerry> &amp;");
    ASSERT_TRUE(selection.has_value());
    EXPECT_EQ(selection->linkNumber, c.number);
    EXPECT_EQ(selection->linkIdentifier, c.marker);
    EXPECT_EQ(selection->delLink, c.link);
    EXPECT_EQ(selection->linkEditInput, c.link);
    EXPECT_EQ(selection->titleEditInput, "Tom & <Jerry> &amp;");
    EXPECT_EQ(selection->delTitle, "Tom &amp; &lt;Jerry> &amp;amp;");
    EXPECT_EQ(selection->originalLinkValue, "<a href=\"" + std::string(c.href) +
                                                "\">Tom &amp; &lt;Jerry> &amp;amp;<!-- LINKID: " + c.number +
                                                " --></a>");
  }
  EXPECT_FALSE(selectLink("", "text"));
  EXPECT_FALSE(selectLink("http://a.test/---LINKID:1---", ""));
}

TEST(CommitFields, AsksForWhatIsMissing) {
  const LinkSelection selection = *selectLink("u---LINKID:1---", "T");
  EXPECT_EQ(commitFields(selection, "u", "T"), FieldCommit::nothing);
  EXPECT_EQ(commitFields(selection, "v", "T"), FieldCommit::edit);
  EXPECT_EQ(commitFields(selection, "v", ""), FieldCommit::titleBlank);
  EXPECT_EQ(commitFields(selection, "", "S"), FieldCommit::linkBlank);
  EXPECT_EQ(commitFields(selection, "", ""), FieldCommit::nothing);
  EXPECT_EQ(commitFields(*selectLink("---LINKID:1---", "T"), "", "S"), FieldCommit::edit);
}

/// Clicks the entry with this href and label, and commits `link` and `title`.
std::string edited(const std::string& document, const std::string& href, const std::string& label,
                   const std::string& link, const std::string& title) {
  return editLinkAndTitle(document, *selectLink(href, label), link, title).document;
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
  const std::string rewritten = link(7, "http://b.test/?$1&x=\\1", "A &amp; <b>B</b> $0 \\0");
  const Case cases[] = {
      {"bare text", link(7, "u?a&b", "Tom & Jerry"), "u?a&b---LINKID:7---", "Tom & Jerry", rewritten},
      {"forged marks", link(7, "u---LINKID:5---v", "---LINKID:5---"), "u---LINKID:5---v---LINKID:7---",
       "---LINKID:5---", rewritten},
      {"text of two spellings", link(7, "u", "A & B &amp; C"), "u---LINKID:7---", "A & B & C",
       link(7, "u", "A & B &amp; C")},
      {"escaped spelling in another case", link(7, "u", "a &amp; B") + link(7, "u", "A & B"),
       "u---LINKID:7---", "A & B", link(7, "u", "a &amp; B") + link(7, "u", "A & B")},
      {"twice", link(7, "u", "T") + link(7, "u", "T"), "u---LINKID:7---", "T", rewritten + rewritten},
      {"shared number", link(7, "u", "T") + link(7, "v", "T"), "u---LINKID:7---", "T",
       rewritten + link(7, "v", "T")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const AnchorEdit edit = editLinkAndTitle(c.entry, *selectLink(c.href, c.label), "http://b.test/?$1&x=\\1",
                                             "A & <b>B</b> $0 \\0");
    EXPECT_EQ(edit.document, c.expected);
    EXPECT_EQ(edit.found, c.expected != c.entry);
  }
}

TEST(EditLinkAndTitle, LeavesWhatWasNotChanged) {
  using samples::link;
  EXPECT_EQ(edited(link(7, "u", "1 < 2 &amp; 3"), "u---LINKID:7---", "1 < 2 & 3", "v", "1 < 2 & 3"),
            link(7, "v", "1 < 2 &amp; 3"));
  // An address of which a part is shown.
  EXPECT_EQ(edited(link(7, "u---v", "T"), "u---v---LINKID:7---", "T", "u", "S"), link(7, "u---v", "S"));
  // Tags that were text.
  EXPECT_EQ(edited(link(7, "u", "&lt;Script>x"), "u---LINKID:7---", "<Script>x", "u", "<script>x & <i>y</i>"),
            link(7, "u", "&lt;script>x &amp; <i>y</i>"));
}

}  // namespace
}  // namespace html_editor
