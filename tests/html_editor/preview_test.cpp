#include "html_editor/preview.h"

#include <gtest/gtest.h>

#include "html_editor/sample_document.h"

namespace html_editor {
namespace {

TEST(WithoutMarkers, IsWhatOneNumberAfterTheOtherLeaves) {
  struct Case {
    const char* name;
    const char* text;
    std::size_t count;
    const char* expected;
  };
  const Case cases[] = {
      {"last number", "<a href=\"u---LINKID:4---\">", 5, "<a href=\"u\">"},
      {"number too high", "u---LINKID:5---\"", 5, "u---LINKID:5---\""},
      {"digits in front and behind", "u-12---LINKID:0---34", 1, "u-1234"},
      {"other spellings", "---LINKID:01------LINKID:-1------LINKID:---LINKID:99999999999999999999---", 100,
       "---LINKID:01------LINKID:-1------LINKID:---LINKID:99999999999999999999---"},
      {"shared dashes, rising", "---LINKID:1---LINKID:2---", 9, "LINKID:2---"},
      {"one made by a smaller one", "---LIN---LINKID:0---KID:5---", 9, ""},
      {"one made by a larger one", "---LIN---LINKID:5---KID:0---", 9, "---LINKID:0---"},
      {"same number within itself", "---LINKID:3---LINKID:3------", 9, "LINKID:3------"},
      {"end of the text", "---LINKID:", 9, "---LINKID:"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(withoutMarkers(c.text, c.count), c.expected);
  }
}

TEST(PreviewText, CountsTheAnchorsOfTheDocument) {
  using samples::link;
  struct Case {
    const char* name;
    std::string text;
    std::string expected;
  };
  const std::string head = samples::document(3, {});
  const Case cases[] = {
      {"two anchors", link(0, "u", "T") + link(1, "v", "---LINKID:0---"),
       samples::with(samples::with(link(0, "u", "T"), "---LINKID:0---", "") + link(1, "v", ""),
                     "---LINKID:1---", "")},
      {"high number stays", link(1, "v", "T"), link(1, "v", "T")},
      {"anchors in titles count", link(1, "v", "<a>x</a>"),
       samples::with(link(1, "v", "<a>x</a>"), "---LINKID:1---", "")},
      {"anchors in comments do not", link(1, "v", "<!-- <a> -->"), link(1, "v", "<!-- <a> -->")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(previewText(samples::with(head, "</table>", c.text + "</table>")),
              samples::with(head, "</table>", c.expected + "</table>"));
  }
}

}  // namespace
}  // namespace html_editor
