// The one-pass reader against the same parser's tree: what it tells of a page has to be what a tree would
// tell.
#include <random>

#include <gtest/gtest.h>

#include "crawler/page_contents.h"
#include "platform/text.h"
#include "support/tree_contents.h"

namespace crawler {
namespace {

void expectSameAsTree(const std::string& bytes) {
  const std::string markup = platform::decodePage(bytes, "text/html; charset=utf-8");
  const PageContents expected = support::contentsOfTree(markup);
  const PageContents actual = readPageContents(markup);
  EXPECT_EQ(actual.title, expected.title) << markup;
  ASSERT_EQ(actual.anchors.size(), expected.anchors.size()) << markup;
  for (std::size_t i = 0; i < expected.anchors.size(); ++i) {
    EXPECT_EQ(actual.anchors[i].href, expected.anchors[i].href) << markup;
    EXPECT_EQ(actual.anchors[i].title, expected.anchors[i].title) << markup;
  }
}

TEST(OnePassAgainstTree, OddMarkup) {
  const char* const cases[] = {
      "",
      "<a href=1><b>x<a href=2>y</b>z</a>",
      "<a href=1><table><tr><td><a href=2>inner</a></table>outer</a>",
      "<p><a href=1>open<p>next<a href=2>more",
      "<a href=1> <img alt=x> </a>\n<a href=2>\n\n<img alt=y></a>",
      "<a href=1><!-- c -->t</a><a href=2><?pi?><img alt=z></a>",
      "<a href=1><script>var a = '<a href=9>';</script></a>",
      "<a href=1><style>a{}</style><title>t</title></a>",
      "<title>a<b>c</b>d</title><title>e</title>",
      "<title><a href=1>in a title</a></title>",
      "<a href='a' href='b' HREF='c'>twice</a>",
      "<a href=1><img alt='\"' title='x'></a><a href=2><img alt=\"'\"></a>",
      "<a href=3><img alt=\"'&quot;\"></a>",
      "<a href=1><img src='a b\" alt=\"q' alt=w></a><a href=1><img alt='&lt;&eacute;\xC3\xA9>'></a>",
      "<a href=1><img alt></a><a href=2><img alt=''></a><a href=3><img checked alt=x></a>",
      "<html><body><a href=1>x</body></html><a href=2>after</a>",
      "<head><a href=1>in the head</a><title>late</title></head>",
      "<frameset><frame src=x><noframes><a href=1>x</a></noframes></frameset>",
      "<select><option><a href=1>x</a></select>",
      "<a href=1&copy=2&amp;x&#x41;&#0;&bogus;>&bogus; &amp &#x1F600; &#xD800;</a>",
      "<![CDATA[<a href=1>x</a>]]><a href=2><![CDATA[y]]></a>",
      "<a href=1 <b>x</a><a/href=2>y</a><a\thref\n=\r3>z</a>",
      "</a></p><a href=1></p></a></div></a>",
      "<a href=\"never closed>x</a><a href=2>y</a>",
      "<svg><a xlink:href=1 href=2><title>drawn</title></a></svg>",
      "<a href=1>\xEF\xBF\xBD\xC2\x85\x01\x02</a>",
      "<p>a</p>text<a href=1></a><br/><a href=2/>x",
      "<svg:a href=1>x<a href=2>y</svg:a>z</a><x:title>t</x:title><title>u</title>",
      "<a href=1><v:img alt=t></v:img></a><:a href=2>x</:a><a: href=3>y</a:><b:c:a href=4>z<a:a",
      "<!DOCTYPE html [<!ENTITY x 'y'>]><a href=1>&x;</a>",
      "<?xml version='1.0' encoding='utf-16'?><html><title>t</title><a href='1'/></html>",
  };
  for (const char* markup : cases) expectSameAsTree(markup);
}

TEST(OnePassAgainstTree, DeepNesting) {
  std::string markup;
  for (int i = 0; i < 2000; ++i) markup += "<div><a href=" + std::to_string(i) + "><b>";
  expectSameAsTree(markup + "deep");
}

/// Pieces put together at random reach states that nobody thinks of; the seed is fixed, so a failure stays.
TEST(OnePassAgainstTree, RandomMarkup) {
  const char* const pieces[] = {"<a href=x>",
                                "</a>",
                                "<b>",
                                "</b>",
                                "<p>",
                                "</p>",
                                "<table>",
                                "<tr>",
                                "<td>",
                                "</table>",
                                "<img alt=i>",
                                "<img title='t'>",
                                "text",
                                " ",
                                "\n",
                                "&amp;",
                                "<!-- c -->",
                                "<title>",
                                "</title>",
                                "<head>",
                                "<body>",
                                "</body>",
                                "</html>",
                                "<html lang=x>",
                                "<a name=n>",
                                "<div>",
                                "</div>",
                                "<li>",
                                "<ul>",
                                "</ul>",
                                "<script>",
                                "</script>",
                                "<span>",
                                "</span>",
                                "<a href='",
                                "'>",
                                "<br>",
                                "<form>",
                                "</form>",
                                "<option>",
                                "<h1>",
                                "<dl><dt>",
                                "<frameset>",
                                "<style>",
                                "</style>",
                                "<",
                                ">",
                                "</",
                                "<textarea>",
                                "<object><param name=a>",
                                "<center>",
                                "<font>",
                                "<input checked name=q>"};
  std::mt19937 random(20101);
  std::uniform_int_distribution<std::size_t> pick(0, std::size(pieces) - 1);
  std::uniform_int_distribution<int> length(1, 40);
  for (int round = 0; round < 4000 && !testing::Test::HasFailure(); ++round) {
    std::string markup;
    for (int i = length(random); i > 0; --i) markup += pieces[pick(random)];
    expectSameAsTree(markup);
  }
}

}  // namespace
}  // namespace crawler
