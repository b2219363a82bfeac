#include "html_editor/preview.h"

#include <random>

#include <gtest/gtest.h>

#include "html_editor/sample_document.h"
#include "platform/regex.h"

namespace html_editor {
namespace {

std::string oneAfterTheOther(std::string text, std::size_t count) {
  for (std::size_t n = 0; n < count; ++n)
    text = platform::replaceText(text, "---LINKID:" + std::to_string(n) + "---", "");
  return text;
}

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
      {"none", "u---LINKID:0---", 0, "u---LINKID:0---"},
      {"digits in front and behind", "u-12---LINKID:0---34", 1, "u-1234"},
      {"other spellings", "---LINKID:01------LINKID:-1------LINKID:---LINKID:99999999999999999999---", 100,
       "---LINKID:01------LINKID:-1------LINKID:---LINKID:99999999999999999999---"},
      {"comment stays", "T<!-- LINKID: 0 -->", 9, "T<!-- LINKID: 0 -->"},
      {"shared dashes, rising", "---LINKID:1---LINKID:2---", 9, "LINKID:2---"},
      {"shared dashes, falling", "---LINKID:2---LINKID:1---", 9, "---LINKID:2"},
      {"one made by a smaller one", "---LIN---LINKID:0---KID:5---", 9, ""},
      {"one made by a larger one", "---LIN---LINKID:5---KID:0---", 9, "---LINKID:0---"},
      {"one made of two that stay", "---LINKID:1---LINKID:0---2---", 9, "---LINKID:12---"},
      {"same number within itself", "---LINKID:3---LINKID:3------", 9, "LINKID:3------"},
      {"end of the text", "---LINKID:", 9, "---LINKID:"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(withoutMarkers(c.text, c.count), c.expected);
    EXPECT_EQ(oneAfterTheOther(c.text, c.count), c.expected);
  }
}

TEST(WithoutMarkers, AgreesOnTextsOfFragments) {
  const char* fragments[] = {"---", "-", "LINKID:",    "LIN",  "KID:", "0",
                             "1",   "2", "---LINKID:", "0---", "1---", "x"};
  std::mt19937 random(5);  // NOLINT: the same texts in each run
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (int j = 0; j < 12; ++j) text += fragments[random() % std::size(fragments)];
    ASSERT_EQ(withoutMarkers(text, 12), oneAfterTheOther(text, 12)) << text;
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
      {"two anchors", link(0, "u", "T") + link(1, "v", "T") + link(2, "w", "---LINKID:0---"),
       samples::with(samples::with(samples::with(link(0, "u", "T") + link(1, "v", "T") + link(2, "w", ""),
                                                 "---LINKID:0---", ""),
                                   "---LINKID:1---", ""),
                     "---LINKID:2---", "")},
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
  const std::string own =
      samples::document(2, {{samples::page(0, "u", "P"), link(2, "v", "L"), link(1, "w", "M")}});
  EXPECT_EQ(previewText(own), oneAfterTheOther(own, 3));
}

}  // namespace
}  // namespace html_editor
