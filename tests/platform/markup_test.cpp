#include "platform/markup.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/repeated.h"

namespace platform {
namespace {

using Links = std::vector<std::string>;

using support::repeated;

/// `prefix`0, `prefix`1 and so on.
std::string numbered(const std::string& prefix, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += prefix + std::to_string(i) + (prefix[0] == ' ' ? "" : ">");
  return text;
}

/// Keeps the targets of anchors, and the text from the first one on.
struct Collector : MarkupHandler {
  void startElement(std::string_view, const std::vector<MarkupAttribute>& attributes) override {
    for (const MarkupAttribute& attribute : attributes) {
      if (attribute.name == "href") links.emplace_back(attribute.value);
    }
  }
  void endElement(std::string_view) override {}
  void text(std::string_view piece) override {
    if (!links.empty()) words += piece;
  }
  void otherNode() override {}

  Links links;
  std::string words;
};

Links linksOf(const std::string& markup, const MarkupLimits& limits = {}) {
  Collector collector;
  readHtml(markup, collector, limits);
  return collector.links;
}

/// What makes the parser search long lists again and again, or keep more and more.
TEST(Markup, EndsAtTheLimitsAndNoSooner) {
  struct Case {
    const char* name;
    std::string markup;
    MarkupLimits limits;
  };
  const MarkupLimits fewSteps = {.steps = 300'000};
  const MarkupLimits fewStepsInTag = {.stepsInTag = 3'000'000};
  const MarkupLimits fewNames = {.nameBytes = 20'000};
  const Case cases[] = {
      {"end tags that fit nothing", repeated("<b>", 500) + repeated("</i>", 500), fewSteps},
      {"end tags that fit nothing, in turn", repeated("<b></i>", 1'000), fewSteps},
      {"end tags that outer elements keep from their own",
       "<span>" + repeated("<div>", 500) + repeated("</span>", 500), fewSteps},
      {"bodies within", repeated("<b>", 500) + repeated("<body a=b>", 500), fewSteps},
      {"attributes of many tags", repeated("<p" + numbered(" n", 100) + ">", 50), fewSteps},
      {"long names", "<p" + numbered(" " + std::string(90, 'x'), 200) + ">", fewSteps},
      {"attributes of one tag", "<p" + numbered(" n", 2'000) + ">", fewStepsInTag},
      {"one of them again and again", "<p" + numbered(" n", 500) + repeated(" n499", 5'000) + ">",
       fewStepsInTag},
      {"depth", repeated("<b>", 5'000), {.depth = 2'000}},
      {"names of elements", numbered("<n", 10'000), fewNames},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    // The parser has some thousand bytes in hand when it is given no more.
    const std::string text = "<a href=1></a>" + c.markup + repeated("<p>", 5'000) + "<a href=2></a>";
    EXPECT_EQ(linksOf(text), (Links{"1", "2"}));
    EXPECT_EQ(linksOf(text, c.limits), Links{"1"});
  }
}

/// The parser gets a text in pieces of some thousand bytes. Wherever these end, nothing may be lost.
TEST(Markup, IsReadWholeWhereverAPieceEnds) {
  const std::string name = repeated("\xE6\x96\x87", 300);  // longer than what the parser looks ahead
  const std::string cases[] = {
      "<a href='1 2'>one</a>",
      "<a href=1>Tom &amp; J&eacute;r&#x72;y &" + name + " end</a>",
      "<!-- a -- b --!><a href=1>--></a><?pi x ?><!DOCTYPE html><a href=2>two</a>",
      "<a href=\"&" + name + "\" name='&lt;'><img alt='&gt;'></a>",
  };
  for (const std::string& markup : cases) {
    Collector expected;
    readHtml("<p>" + markup, expected);
    ASSERT_FALSE(expected.links.empty());
    for (const std::string filler : {"x", "x y\n", "<b></b>"}) {
      // Within the first piece and up to the end of the second one.
      for (std::size_t length = 3'000; length < 8'100; length += 40) {
        Collector actual;
        readHtml(repeated(filler, length / filler.size()) + " " + markup, actual);
        ASSERT_EQ(actual.links, expected.links) << filler << length;
        ASSERT_EQ(actual.words, expected.words) << filler << length;
      }
    }
  }
}

}  // namespace
}  // namespace platform
