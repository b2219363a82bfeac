// Pages made to exhaust whoever holds what they contain.
#include <stop_token>
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
  for (int i = 0; i < 4'000; ++i) manyAttributes += " data-" + std::to_string(i) + "=\"v\"";
  const std::string longText = filledWith("long ", kMegabyte);
  struct Case {
    const char* name;
    std::string markup;
    std::string title = "One";  // of the only link, which leads to "1"
  };
  const Case cases[] = {
      {"4,000 attributes", "<a" + manyAttributes + " href=1>One</a>"},
      {"4,000 attributes elsewhere", "<p" + manyAttributes + "><a href=1>One</a>"},
      {"4,000 attributes of an image", "<a href=1><img" + manyAttributes + " alt=One></a>"},
      {"4,000 times the same attribute", "<a " + repeated("b=c ", 4'000) + "href=1>One</a>"},
      {"1 MB attribute", "<a title='" + longText + "' href=1>One</a>"},
      {"1 MB attribute without quotes", "<a title=" + std::string(kMegabyte, 'x') + " href=1>One</a>"},
      {"1 MB name", "<a href=1>" + longText + "</a>", longText},
      {"1 MB image name", "<a href=1><img alt='" + longText + "'></a>", longText},
      {"name of an image beyond all bounds",
       "<a href=1><img alt='" + filledWith("long ", 5 * kMegabyte) + "'></a>", "Could not find link title"},
      {"1 MB comment", "<!--" + longText + "--><a href=1>One</a>"},
      {"link at the bottom", repeated("<div>", 20'000) + "<a href=1>One</a>" + repeated("</div>", 20'000)},
      {"link behind", repeated("<div>", 20'000) + repeated("</div>", 20'000) + "<a href=1>One</a>"},
      {"link behind elements closed all at once",
       "<div>" + repeated("<b>", 20'000) + "</div>" + longText + "<a href=1>One</a>"},
      {"paragraphs never closed", repeated("<p>text", 40'000) + "<a href=1>One</a>"},
      {"many faults", repeated("<b><i></b>", 500) + repeated("</u></x>", 500) + "<a href=1>One</a>"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const PageContents contents = readPageContents("<title>T</title>" + c.markup);
    EXPECT_EQ(contents.title, "T");
    ASSERT_EQ(hrefs(contents), std::vector<std::string>{"1"});
    EXPECT_TRUE(contents.anchors[0].title == c.title) << contents.anchors[0].title.substr(0, 100);
  }
}

TEST(HostileMarkup, HoldsManyLinks) {
  std::string markup = "<a href=\"" + std::string(kMegabyte, 'x') + "\">far</a>";
  for (int i = 0; i < 30'000; ++i) {
    markup += "<a href=\"" + std::to_string(i) + ".html\">Link " + std::to_string(i) + "</a>\n";
  }
  const PageContents contents = readPageContents(markup);
  ASSERT_EQ(contents.anchors.size(), 30'001u);
  EXPECT_TRUE(contents.anchors[0].href == std::string(kMegabyte, 'x'));
  for (std::size_t i = 0; i < 30'000; ++i) {
    ASSERT_EQ(contents.anchors[i + 1].href, std::to_string(i) + ".html");
    ASSERT_EQ(contents.anchors[i + 1].title, "Link " + std::to_string(i));
  }
}

TEST(HostileMarkup, CannotFillTheMemoryWithAnchors) {
  struct Case {
    const char* name;
    std::string markup;
  };
  const std::string text = filledWith("text ", kMegabyte / 4);
  const Case cases[] = {
      {"without targets", repeated("<a>", 600'000)},
      {"with targets", repeated("<a href=x>", 400'000)},
      {"nested", repeated("<a href=x><b>", 1'000) + text},
      {"nested and closed", repeated("<a href=x><b>", 1'000) + text + repeated("</b></a>", 1'000)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const PageContents contents =
        readPageContents("<a href=1>One</a>" + c.markup + "</a><title>Behind</title>");
    EXPECT_EQ(contents.anchors[0].title, "One");
    EXPECT_EQ(contents.title, "Behind");
    EXPECT_GT(contents.anchors.size(), 1'000u);
    EXPECT_LT(contents.bytes(), 96 * kMegabyte);
  }
}

TEST(HostileMarkup, HoldsWhatEachAnchorHasWhereTooManyAreOpen) {
  // The last anchor that is held has one within that is not, whose end is not its own.
  const PageContents contents = readPageContents(repeated("<a></a>", (1u << 18) - 1) +
                                                 "<a href=1><b>one <a href=2>two</a> three</b></a>four");
  ASSERT_EQ(contents.anchors.size(), 1u << 18);
  EXPECT_EQ(contents.anchors.back().href, "1");
  EXPECT_EQ(contents.anchors.back().title, "one two three");
}

TEST(HostileMarkup, IsNotReadAtAllAfterAStop) {
  std::stop_source stop;
  stop.request_stop();
  EXPECT_TRUE(readPageContents("<a href=1>One</a>", stop.get_token()).anchors.empty());
}

}  // namespace
}  // namespace crawler
