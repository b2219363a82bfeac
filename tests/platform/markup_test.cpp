// Pages made to exhaust whoever reads them. Where a bound is missing, a test here runs for minutes or hours.
#include "platform/markup.h"

#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace platform {
namespace {

using Links = std::vector<std::string>;

std::string repeated(std::string_view unit, std::size_t times) {
  std::string text;
  for (; times > 0; --times) text += unit;
  return text;
}

/// `prefix`0, `prefix`1 and so on.
std::string numbered(const std::string& prefix, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += prefix + std::to_string(i) + (prefix[0] == ' ' ? "" : ">");
  return text;
}

/// Keeps the targets of anchors, and the text from the first one on, and counts all it is told. Asks for a
/// stop at the first element, if it is to.
class Collector : public MarkupHandler {
 public:
  explicit Collector(std::stop_source* stop = nullptr) : m_stop(stop) {}
  Links links;
  std::string words;
  std::size_t events = 0;

  void startElement(std::string_view, const std::vector<MarkupAttribute>& attributes) override {
    ++events;
    if (m_stop != nullptr) m_stop->request_stop();
    for (const MarkupAttribute& attribute : attributes) {
      if (attribute.name == "href") links.emplace_back(attribute.value);
    }
  }
  void endElement(std::string_view) override { ++events; }
  void text(std::string_view piece) override {
    ++events;
    if (!links.empty()) words += piece;
  }
  void otherNode() override { ++events; }

 private:
  std::stop_source* m_stop;
};

Links linksOf(const std::string& markup, const MarkupLimits& limits = {}) {
  Collector collector;
  readHtml(markup, collector, {}, limits);
  return collector.links;
}

TEST(HostileMarkup, EndsAtTheLimitsAndNoSooner) {
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
      {"attributes of many tags", repeated("<p" + numbered(" n", 100) + ">", 50), fewSteps},
      {"long names", "<p" + numbered(" " + std::string(90, 'x'), 200) + ">", fewSteps},
      {"attributes of one tag", "<p" + numbered(" n", 2'000) + ">", fewStepsInTag},
      {"one of them again and again", "<p" + numbered(" n", 500) + repeated(" n499", 5'000) + ">",
       fewStepsInTag},
      {"depth", repeated("<b>", 5'000), {.depth = 2'000}},
      {"names of elements", numbered("<n", 10'000), fewNames},
      {"names of end tags", numbered("</n", 10'000), fewNames},
      {"names of references", numbered("&n", 10'000), fewNames},
      {"names of instructions", numbered("<?n", 10'000), fewNames},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    // The parser has some thousand bytes in hand when it is given no more.
    const std::string text = "<a href=1></a>" + c.markup + repeated("<p>", 5'000) + "<a href=2></a>";
    EXPECT_EQ(linksOf(text), (Links{"1", "2"}));
    EXPECT_EQ(linksOf(text, c.limits), Links{"1"});
  }
}

struct Trap {
  const char* name;
  std::string_view once;    // at the start
  std::string_view first;   // by the ten thousand
  std::string_view second;  // and by the hundred kilobyte

  std::string markup() const {
    return std::string(once) + repeated(first, 20'000) + repeated(second, (256 << 10) / second.size());
  }
};

// First those that make the parser search long lists, then those that make it look ahead in vain.
const Trap kTraps[] = {
    {"end tags that fit nothing", "", "<b>", "</i>"},
    {"end tags that fit nothing, in turn", "", "<b></i>", "<b></i>"},
    {"end tags of lower rank", "", "<div>", "</p>"},
    {"end tags that outer elements keep from their own", "<span>", "<div>", "</span>"},
    {"cells closed far outside", "<table>", "<b>", "</td>"},
    {"bodies within", "", "<b>", "<body a=b>"},
    {"documents within", "", "<b>", "<html a=b>"},
    {"frames", "", "<frameset>", "<b>"},
    {"nothing but nesting", "", "<x:y>", "<b>"},
    {"anchors within anchors", "", "<a href=1><b>", "text"},
    {"anchors without end", "", "<a>", "<a>"},
    {"comments", "", "<!--", "<!-- "},
    {"comment of hyphens", "<!--", "-", "-"},
    {"quoted values", "", "<a href=\"", "<a href='"},
    {"tags", "", "<a ", "<a"},
    {"values", "", "<a b=", "=\""},
    {"scripts", "", "<script>", "<script><!--"},
    {"script of end tags", "<script>", "</", "</b></s"},
    {"styles", "", "<style>", "</"},
    {"declarations", "", "<!", "<!DOCTYPE a \""},
    {"instructions", "", "<?", "<?a "},
    {"sections", "", "<![CDATA[", "]]"},
    {"references", "", "&", "&#x"},
    {"references in a value", "<a href=\"", "&", "&#"},
    {"reference without end", "&", "x", "\xC3\xA9"},
    {"brackets", "", "<", "</"},
    {"text areas", "", "<textarea>", "<title>"},
};

// For texts of an eighth of the length that would take the parser as long: what it searches grows with both.
constexpr MarkupLimits kLimits = {.steps = MarkupLimits{}.steps / 64,
                                  .stepsInTag = MarkupLimits{}.stepsInTag / 64};

TEST(HostileMarkup, NeverTakesLong) {
  for (const Trap& trap : kTraps) {
    SCOPED_TRACE(trap.name);
    const Links links = linksOf("<a href=1></a>" + trap.markup(), kLimits);
    ASSERT_FALSE(links.empty());
    EXPECT_EQ(links[0], "1");
  }
}

TEST(HostileMarkup, IsLeftSoonAfterAStop) {
  for (const Trap& trap : kTraps) {
    SCOPED_TRACE(trap.name);
    std::stop_source stop;
    Collector collector(&stop);
    readHtml("<p>" + trap.markup(), collector, stop.get_token());
    // What the parser has been given by then is some thousand bytes, and each makes a few events at most.
    EXPECT_LT(collector.events, 20'000u);
  }
}

/// The parser gets a text in pieces of some thousand bytes. Wherever these end, nothing may be lost.
TEST(Markup, IsReadWholeWhereverAPieceEnds) {
  const std::string name = repeated("\xE6\x96\x87", 300);  // longer than what the parser looks ahead
  const std::string cases[] = {
      "<a href='1 2'>one</a>",
      "<a href=1>Tom &amp; J&eacute;r&#x72;y &" + name + " end</a>",
      "<script>var a = '</b><a href=9>';</script><a href=1>\xE6\x96\x87</a>",
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
