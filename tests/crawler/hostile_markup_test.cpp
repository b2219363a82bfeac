// Pages made to exhaust whoever reads them. Where the reader goes back in one, a test here runs for minutes
// or hours.
#include <string>

#include <gtest/gtest.h>

#include "crawler/page_contents.h"
#include "support/repeated.h"

namespace crawler {
namespace {

using support::repeated;

constexpr std::size_t kMegabyte = 1u << 20;

TEST(HostileMarkup, IsReadWholeInOnePass) {
  const std::string link = "<a href=1>One</a>";
  std::string attributes;
  for (int i = 0; i < 150'000; ++i) attributes += " data-" + std::to_string(i) + "=v";
  struct Case {
    const char* name;
    std::string markup;
  };
  const Case cases[] = {
      // What is kept, and searched for what comes next.
      {"attributes of an image", "<a href=1><img" + attributes + " alt=One></a>"},
      {"elements left open", repeated("<div>") + link},
      {"end tags of what is outside", link + repeated("<i>") + repeated("<a><b></i>")},
      {"tables", link + repeated("<table><td><object><button>") + repeated("</button></object></td>")},
      {"drawings", link + repeated("<svg><desc>") + repeated("</svg><svg>")},
      {"templates", link + repeated("<template>") + repeated("<table><td></template>")},
      // What makes a reader look ahead in vain.
      {"comment of brackets", "<!--" + repeated("->") + "-->" + link},
      {"comments", link + repeated("<!--")},
      {"script that writes scripts", link + "<script><!--" + repeated("<script>") + repeated("</script")},
      {"script of end tags", "<script>" + repeated("</b></s") + "</script>" + link},
      {"sections", link + "<svg>" + repeated("<![CDATA[") + repeated("]]")},
      {"quoted values", link + repeated("<a href=\"") + repeated("<a href='")},
      {"tags", link + repeated("<a ") + repeated("<a")},
      {"references", link + "<a href=2>" + repeated("&#x") + repeated("&CounterClockwiseContourIntegral")},
      {"references in a value", link + "<a href=\"" + repeated("&") + repeated("&#") + "\">"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const PageContents contents = readPageContents("<title>T</title>" + c.markup);
    EXPECT_EQ(contents.title, "T");
    ASSERT_FALSE(contents.anchors.empty());
    EXPECT_EQ(contents.anchors[0].href, "1");
    EXPECT_EQ(contents.anchors[0].title, "One");
    EXPECT_LT(contents.bytes(), 100 * kMegabyte);
  }
}

TEST(HostileMarkup, GivesLongNamesWholeOrNotAtAll) {
  const std::string name = repeated("long ");
  EXPECT_TRUE(readPageContents("<a href=1><img alt='" + name + "'></a>").anchors[0].title == name);
  const std::string beyond(5 * kMegabyte, 'x');
  EXPECT_EQ(readPageContents("<a href=1><img alt='" + beyond + "'></a>").anchors[0].title,
            "Could not find link title");
}

TEST(HostileMarkup, CannotFillTheMemoryWithAnchors) {
  const PageContents contents = readPageContents("<a href=1>One</a>" + repeated("<a href=x>text", 300'000) +
                                                 "</a><title>Behind</title>");
  EXPECT_EQ(contents.anchors[0].title, "One");
  EXPECT_EQ(contents.title, "Behind");
  EXPECT_EQ(contents.anchors.size(), 1u << 18);
  EXPECT_LT(contents.bytes(), 96 * kMegabyte);
}

}  // namespace
}  // namespace crawler
