#include "web/page_reader.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace web {
namespace {

struct Found : PageHandler {
  void anchor(AnchorElement&& element) override {
    anchors.push_back(element.href.value_or("-") + '|' + element.text + '|' + element.imageMarkup);
  }
  std::vector<std::string> anchors;
};

struct AnchorCase {
  const char* name;
  std::string markup;
  std::vector<std::string> anchors;
};

void expectAnchors(const std::vector<AnchorCase>& cases) {
  for (const AnchorCase& c : cases) {
    SCOPED_TRACE(c.name);
    Found found;
    readPage(c.markup, found);
    EXPECT_EQ(found.anchors, c.anchors);
  }
}

TEST(PageReader, KnowsThePagesTitle) {
  struct Case {
    const char* name;
    std::string markup;
    const char* title;
  };
  using namespace std::string_literals;
  const Case cases[] = {
      {"first of two", "<title>One</title><title>Two</title>", "One"},
      {"first is empty", "<title></title><title>Two</title>", ""},
      {"NUL", "<title>\0</title>"s, "\xEF\xBF\xBD"},
      {"never closed", "<title>Open<p>x", "Open<p>x"},
      {"drawn only", "<svg><title>D<b>r</b>awn</title><text>x</text></svg><svg><title>2</title></svg>",
       "Drawn"},
      {"drawn and not closed", "<svg><title>Drawn</svg>x", "Drawn"},
      {"in a drawing's HTML", "<svg><foreignObject><title>a<b></title></foreignObject></svg>", "a<b>"},
      {"behind a drawing that HTML ends", "<svg><g><p><title>a<b></title>", "a<b>"},
      {"self-closing", "<title/>x</title>", "x"},
      {"in a formula", "<math><title>x</title></math>", "(none)"},
      {"in a template", "<template><title>x</title></template>", "(none)"},
      {"behind a template in a template",
       "<template><template></template><title>x</title></template><title>y</title>", "y"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Found found;
    EXPECT_EQ(readPage(c.markup, found).value_or("(none)"), c.title);
  }
}

TEST(PageReader, KnowsWhereAnAnchorEnds) {
  expectAnchors({
      {"its end tag, behind elements that cross", "<a href=1><b><i>x</b></i>y</a>z", {"1|xy|"}},
      {"the next anchor", "<a href=1>x<b><a href=2>y</b></a>z", {"1|x|", "2|y|"}},
      {"the end of the page", "<a href=1>x<b>y", {"1|xy|"}},
      {"its cell", "<table><tr><td><a href=1>x</td><td>y</table>", {"1|x|"}},
      {"its cell, whose end is implied", "<table><tr><th><a href=1>x<tr><td>y</table>", {"1|x|"}},
      {"its cell, with a table",
       "<table><tr><td><a href=1>x<table><td>y</td></tr></table>z</td>w",
       {"1|xyz|"}},
      {"a table right within one", "<table><tr><td><a href=1>x<table><table></table>y</table>z", {"1|xy|"}},
      {"its caption", "<table><caption><a href=1>x<tbody>y</table>", {"1|x|"}},
      {"its drawing", "<svg><a href=1>x</svg>y", {"1|x|"}},
      {"its list item", "<ul><li>a<li><a href=1>x</li>y</ul>", {"1|x|"}},
      {"ends of what is not open",
       "<a href=1>x</p></td></object></b></table></li></svg>y</br>z</a>",
       {"1|xyz|"}},
      {"ends of what is in it", "<b><p><a href=1><p>x</p><b>y</b>z<br></br></a>", {"1|xyz|"}},
      {"the end of the body", "<body><form><a href=1>x</form></body></html>y", {"1|xy|"}},
      {"ends of what is outside, in a table",
       "<div><a href=1>x<table><td><b></div></b>y</td></tr></table>z</div>w",
       {"1|xyz|"}},
      {"end tag in a cell within", "<a href=1>x<table><td>y</a>z</table>w</a>v", {"1|xyzw|"}},
      {"end tag in a drawing within", "<a href=1>x<svg><g></a>y<![CDATA[<a href=2>]]>", {"1|x|"}},
      {"templates", "<a href=1>x<template>y</a><a href=2>z</template>w</a>v", {"1|xw|"}},
      {"self-closing", "<a href=1 />x</a><svg><a href=2 /><a href=3 />y</svg>", {"1|x|", "2||", "3||"}},
      {"tag cut off", "<a href=1>x<a href=2", {"1|x|"}},
  });
}

TEST(PageReader, KnowsWhatIsMarkup) {
  using namespace std::string_literals;
  const std::string a = "<a href=1>x</a>";
  expectAnchors({
      {"texts", "<style>" + a + "</style><xmp>" + a + "</xmp><iframe>" + a + "</iframe><textarea>" + a, {}},
      {"scripts that write scripts", "<script><!--<script></script>" + a + "</script>" + a, {"1|x|"}},
      {"scripts that do not", "<script><!--<script></script>-->" + a + "</script>", {}},
      {"without scripts and frames", "<noscript>" + a + "</noscript><noframes>" + a, {"1|x|", "1|x|"}},
      {"texts drawn", "<svg><style>" + a + "</style><script/>" + a + "</svg>", {"1|x|", "1|x|"}},
      {"texts behind a drawing", "<svg/><style>" + a + "</style>" + a, {"1|x|"}},
      {"section", "<a href=1><svg><![CDATA[<b>&amp;]]></svg></a>", {"1|<b>&amp;|"}},
      {"section in HTML", "<a href=1>x<![CDATA[<b>]]></a>", {"1|x]]>|"}},
      {"sections in a drawing's texts", "<svg><desc><![CDATA[<a>]]><p><![CDATA[<a>]]></desc>" + a, {"1|x|"}},
      {"formula",
       "<math><mi><![CDATA[<a>]]></mi><annotation-xml encoding='Text/HTML'><style><a></style></math>" + a,
       {"1|x|"}},
      {"font", "<svg><font><style><a href=2></style></font><font size=1><style><a></style>", {"2||"}},
      {"comments", "<!-->" + a + "<!--->" + a + "<!-- --!>" + a + "<!-- > " + a, {"1|x|", "1|x|", "1|x|"}},
      {"odd tags", "</" + a + "<//><a href=2>y</a/ b='>'>z< a href=3><?a>", {"2|y|"}},
      {"odd attributes",
       "<a ='' b='>' HREF=\"1&amp;2&copy2&lt\" href=3>x</a><a href>y",
       {"1&2&copy2<|x|", "|y|"}},
      {"line feeds", "<a href=1><pre>\nx\r\ny</pre><textarea>\r\n\nz</textarea>", {"1|x\ny\nz|"}},
      {"NULs", "<a href=1\0>x\0y<svg>\0"s, {"1\xEF\xBF\xBD|xy\xEF\xBF\xBD|"}},
      {"image",
       "<a href=1><IMG Alt=\"Next >\" src='a\"b' alt=c d='\"&apos;&amp;' e></a>",
       {"1||<img alt=\"Next >\" src='a\"b' d=\"&quot;'&amp;\" e=\"\">"}},
      {"image by its old name",
       "<a href=1><image alt=x></a><svg><a href=2><image alt=x>",
       {"1||<img alt=\"x\">", "2||"}},
      {"image behind a comment",
       "<a href=1><!----><img></a><a href=2><template></template><img></a>",
       {"1||", "2||"}},
  });
}

}  // namespace
}  // namespace web
