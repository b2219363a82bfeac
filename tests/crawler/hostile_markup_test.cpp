// Pages made to exhaust whoever reads them. Where the reader goes back in one, a test here runs for minutes
// or hours.
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "crawler/page_contents.h"

namespace crawler {
namespace {

constexpr std::size_t kMegabyte = 1u << 20;

std::string repeated(std::string_view unit, std::size_t times) {
  std::string text;
  text.reserve(unit.size() * times);
  for (; times > 0; --times) text += unit;
  return text;
}

/// `unit` again and again, up to `bytes`.
std::string filledWith(std::string_view unit, std::size_t bytes) {
  return repeated(unit, bytes / unit.size() + 1);
}

std::vector<std::string> hrefs(const PageContents& contents) {
  std::vector<std::string> all;
  for (const Anchor& anchor : contents.anchors) all.push_back(anchor.href.value_or("(none)"));
  return all;
}

TEST(HostileMarkup, IsReadWholeUpToTheBounds) {
  std::string manyAttributes;
  for (int i = 0; i < 100'000; ++i) manyAttributes += " data-" + std::to_string(i) + "=\"v\"";
  const std::string longText = filledWith("long ", kMegabyte);
  struct Case {
    const char* name;
    std::string markup;
    std::string title = "One";  // of the only link, which leads to "1"
  };
  const Case cases[] = {
      {"100,000 attributes", "<a" + manyAttributes + " href=1>One</a>"},
      {"100,000 attributes elsewhere", "<p" + manyAttributes + "><a href=1>One</a>"},
      {"100,000 attributes of an image", "<a href=1><img" + manyAttributes + " alt=One></a>"},
      {"100,000 times the same attribute", "<a " + repeated("b=c ", 100'000) + "href=1>One</a>"},
      {"1 MB attribute", "<a title='" + longText + "' href=1>One</a>"},
      {"1 MB attribute without quotes", "<a title=" + std::string(kMegabyte, 'x') + " href=1>One</a>"},
      {"1 MB name", "<a href=1>" + longText + "</a>", longText},
      {"1 MB image name", "<a href=1><img alt='" + longText + "'></a>", longText},
      {"name of an image beyond all bounds",
       "<a href=1><img alt='" + filledWith("long ", 5 * kMegabyte) + "'></a>", "Could not find link title"},
      {"1 MB comment", "<!--" + longText + "--><a href=1>One</a>"},
      {"link at the bottom", repeated("<div>", 100'000) + "<a href=1>One</a>" + repeated("</div>", 100'000)},
      {"link behind", repeated("<div>", 100'000) + repeated("</div>", 100'000) + "<a href=1>One</a>"},
      {"link behind elements closed all at once",
       "<div>" + repeated("<b>", 100'000) + "</div>" + longText + "<a href=1>One</a>"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const PageContents contents = readPageContents("<title>T</title>" + c.markup);
    EXPECT_EQ(contents.title, "T");
    ASSERT_EQ(hrefs(contents), std::vector<std::string>{"1"});
    EXPECT_TRUE(contents.anchors[0].title == c.title) << contents.anchors[0].title.substr(0, 100);
  }
}

struct Trap {
  const char* name;
  std::string_view once;    // at the start
  std::string_view first;   // by the hundred thousand
  std::string_view second;  // and by the megabyte

  std::string markup() const {
    return std::string(once) + repeated(first, 150'000) + filledWith(second, 2 * kMegabyte);
  }
};

// First those that make a reader keep or search long lists, then those that make it look ahead in vain.
const Trap kTraps[] = {
    {"end tags that fit nothing", "", "<b>", "</i>"},
    {"end tags that fit nothing within an anchor", "<i><a href=2>", "<b>", "</i><i><a href=3>"},
    {"end tags of lower rank", "", "<div>", "</p>"},
    {"cells closed far outside", "<table><td>", "<b>", "</td><td>"},
    {"tables", "", "<table><td>", "</td>"},
    {"objects and buttons", "", "<object><button>", "</button></object></table>"},
    {"drawings", "", "<svg><desc>", "</svg><svg>"},
    {"drawings within", "<svg>", "<svg>", "<g></p>"},
    {"formulas", "<math>", "<mi><math>", "<p>"},
    {"templates", "", "<template>", "<table><td></template>"},
    {"anchors within anchors", "", "<a href=1><b>", "text"},
    {"attributes", "<a", " x", " y=1"},
    {"attributes of an image", "<a href=2><img", " xx", "yyyyy "},
    {"comments", "", "<!--", "<!-- "},
    {"comment of hyphens", "<!--", "-", "-"},
    {"comment of brackets", "<!--", ">", "->"},
    {"quoted values", "", "<a href=\"", "<a href='"},
    {"tags", "", "<a ", "<a"},
    {"values", "", "<a b=", "=\""},
    {"scripts", "", "<script>", "<script><!--"},
    {"script that writes scripts", "<script><!--", "<script>", "</script"},
    {"script of end tags", "<script>", "</", "</b></s"},
    {"styles", "", "<style>", "</"},
    {"declarations", "", "<!", "<!DOCTYPE a \""},
    {"instructions", "", "<?", "<?a "},
    {"sections", "<svg>", "<![CDATA[", "]]"},
    {"references", "<a href=2>", "&", "&#x"},
    {"long references", "<a href=2>", "&CounterClockwiseContourIntegral", "&#000000000000000"},
    {"references in a value", "<a href=\"", "&", "&#"},
    {"brackets", "", "<", "</"},
    {"text areas", "", "<textarea>", "<title>"},
};

TEST(HostileMarkup, NeverTakesLong) {
  const std::string start = "<title>T</title><a href=1>One</a>";
  for (const Trap& trap : kTraps) {
    SCOPED_TRACE(trap.name);
    const PageContents contents = readPageContents(start + trap.markup());
    EXPECT_EQ(contents.title, "T");
    ASSERT_FALSE(contents.anchors.empty());
    EXPECT_EQ(contents.anchors[0].href, "1");
    EXPECT_EQ(contents.anchors[0].title, "One");
    EXPECT_LT(contents.bytes(), 100 * kMegabyte);
  }
}

TEST(HostileMarkup, CannotFillTheMemoryWithAnchors) {
  for (const char* const anchor : {"<a>", "<a href=x>", "<a href=x>text"}) {
    SCOPED_TRACE(anchor);
    const PageContents contents =
        readPageContents("<a href=1>One</a>" + repeated(anchor, 1'000'000) + "</a><title>Behind</title>");
    EXPECT_EQ(contents.anchors[0].title, "One");
    EXPECT_EQ(contents.title, "Behind");
    EXPECT_EQ(contents.anchors.size(), 1u << 18);
    EXPECT_LT(contents.bytes(), 96 * kMegabyte);
  }
}

}  // namespace
}  // namespace crawler
