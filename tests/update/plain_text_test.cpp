// Release notes as lines.
#include "update/plain_text.h"

#include <string>

#include <gtest/gtest.h>

namespace update {
namespace {

constexpr std::size_t kPlenty = 1000;

TEST(TextOfHtml, DropsTagsAndKeepsLines) {
  struct Case {
    const char* name;
    std::string html;
    std::string text;
  };
  const Case cases[] = {
      {"nothing", "", ""},
      {"only tags", "<p><br></p><img src=a>", ""},
      {"no tag at all", "Fixes:\r\n- 1 &lt; 2\n\n- R&amp;D\n", "Fixes:\n- 1 < 2\n\n- R&D"},
      {"blanks", "<b> One\n\t two </b>  three", "One two three"},
      {"paragraphs", "<h2>New</h2><p>One<p>Two<div>Three</div>Four", "New\n\nOne\n\nTwo\nThree\nFour"},
      {"a list", "<p>New:</p><ul><li>One <li><p>Two</p></li><li></li></ul><p>End",
       "New:\n\n- One\n- Two\n\nEnd"},
      {"a table", "<table><tr><td>a<td>b<tr><td>c", "a b\nc"},
      {"preformatted", "<pre>a \tb\n  c\n</pre>d  e", "a  b\n  c\nd e"},
      {"what is no text",
       "<head><title>T</title><style>p{}</style></head><script>'<p>x'</script><!-- c "
       "--><iframe><p>f</iframe>y",
       "y"},
      {"what is text all the same", "<xmp><b></xmp><textarea><i></textarea>", "<b><i>"},
      {"a tag that goes on for ever", "a<p class='", "a<p class='"},
      {"control characters", "<b>a\x1B[31m\x07z", "a[31mz"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(textOfHtml(c.html, kPlenty), c.text);
  }
}

TEST(TextOfHtml, IsBounded) {
  EXPECT_EQ(textOfHtml("<b>abc", 3), "abc");
  EXPECT_EQ(textOfHtml("<b>abcd", 3), "abc\n...");
  EXPECT_EQ(textOfHtml("<b>ab\xC3\xA4z", 3), "ab\n...");
  std::string nested;
  for (int i = 0; i < 100'000; ++i) nested += "<li>x";
  EXPECT_LE(textOfHtml(nested, kPlenty).size(), kPlenty + 10);
}

TEST(TextOfPlain, LeavesMarkupAlone) {
  EXPECT_EQ(textOfPlain("\n<b>a</b> &amp;\r\tb\x1B\r\n", kPlenty), "<b>a</b> &amp;\n b");
  EXPECT_EQ(textOfPlain("abcd", 3), "abc\n...");
}

}  // namespace
}  // namespace update
