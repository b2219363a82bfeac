#include "html_editor/preview.h"

#include <gtest/gtest.h>

#include "html_editor/sample_document.h"

namespace html_editor {
namespace {

/// Numbers from 0 on are taken for markers, as many as there are anchors.
TEST(PreviewText, CountsTheAnchorsOfTheDocument) {
  using samples::link;
  struct Case {
    const char* name;
    std::string text;
    bool lacksItsMarker;
  };
  const Case cases[] = {
      {"two anchors", "<a>T</a>" + link(1, "v", "V"), true},
      {"high number stays", link(1, "v", "T"), false},
      {"anchors in titles count", link(1, "v", "<a>x</a>"), true},
      {"anchors in comments do not", link(1, "v", "<!-- <a> -->"), false},
  };
  const std::string document = samples::document(3, {});
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string whole = samples::with(document, "</table>", c.text + "</table>");
    EXPECT_EQ(previewText(whole), c.lacksItsMarker ? samples::with(whole, "---LINKID:1---", "") : whole);
  }
}

}  // namespace
}  // namespace html_editor
