// Pages made to exhaust whoever reads them. Where a bound is missing, a test here runs for minutes or hours.
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "crawler/page_contents.h"
#include "platform/markup.h"
#include "support/tree_contents.h"

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
  for (int i = 0; i < 20'000; ++i) manyAttributes += " data-" + std::to_string(i) + "=\"v\"";
  const std::string longText = filledWith("long ", kMegabyte);
  struct Case {
    const char* name;
    std::string markup;
    std::string title = "One";  // of the only link, which leads to "1"
  };
  const Case cases[] = {
      {"20,000 attributes", "<a" + manyAttributes + " href=1>One</a>"},
      {"20,000 attributes elsewhere", "<p" + manyAttributes + "><a href=1>One</a>"},
      {"20,000 attributes of an image", "<a href=1><img" + manyAttributes + " alt=One></a>"},
      {"20,000 times the same attribute", "<a " + repeated("b=c ", 20'000) + "href=1>One</a>"},
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
      {"paragraphs never closed", repeated("<p>text", 200'000) + "<a href=1>One</a>"},
      {"thousands of faults",
       repeated("<b><i></b>", 2'000) + repeated("</u></x>", 2'000) + "<a href=1>One</a>"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const PageContents contents = readPageContents("<title>T</title>" + c.markup);
    EXPECT_EQ(contents.title, "T");
    ASSERT_EQ(hrefs(contents), std::vector<std::string>{"1"});
    EXPECT_TRUE(contents.anchors[0].title == c.title) << contents.anchors[0].title.substr(0, 100);
  }
}

TEST(HostileMarkup, HoldsAHundredThousandLinks) {
  std::string markup = "<a href=\"" + std::string(kMegabyte, 'x') + "\">far</a>";
  for (int i = 0; i < 100'000; ++i) {
    markup += "<a href=\"" + std::to_string(i) + ".html\">Link " + std::to_string(i) + "</a>\n";
  }
  const PageContents contents = readPageContents(markup);
  ASSERT_EQ(contents.anchors.size(), 100'001u);
  EXPECT_TRUE(contents.anchors[0].href == std::string(kMegabyte, 'x'));
  for (std::size_t i = 0; i < 100'000; ++i) {
    ASSERT_EQ(contents.anchors[i + 1].href, std::to_string(i) + ".html");
    ASSERT_EQ(contents.anchors[i + 1].title, "Link " + std::to_string(i));
  }
}

/// Counts what it is told, and asks for a stop at the first element, if it is to.
class Counter : public platform::MarkupHandler {
 public:
  explicit Counter(std::stop_source* stop = nullptr) : m_stop(stop) {}
  std::size_t events = 0;

  void startElement(std::string_view, const std::vector<platform::MarkupAttribute>&) override {
    ++events;
    if (m_stop != nullptr) m_stop->request_stop();
  }
  void endElement(std::string_view) override { ++events; }
  void text(std::string_view) override { ++events; }
  void otherNode() override { ++events; }

 private:
  std::stop_source* m_stop;
};

struct Trap {
  const char* name;
  std::string_view once;    // at the start
  std::string_view first;   // by the hundred thousand
  std::string_view second;  // and by the megabyte

  std::string markup() const {
    return std::string(once) + repeated(first, 150'000) + filledWith(second, 2 * kMegabyte);
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

TEST(HostileMarkup, ComparesABoundedNumberOfAttributes) {
  const auto attributes = [](const std::string& prefix, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += " " + prefix + std::to_string(i);
    return text;
  };
  const std::string cases[] = {
      "<p" + attributes("n", 100'000) + ">",
      "<p" + attributes(std::string(90, 'x'), 20'000) + ">",  // compared letter by letter up to the last ones
      repeated("<p" + attributes("n", 5'000) + ">", 100),
      "<p" + attributes("n", 10'000) + repeated(" n9999", 1'000'000) + ">",
  };
  for (const std::string& markup : cases) {
    SCOPED_TRACE(markup.substr(0, 100));
    const std::string links = "<a href=1>One</a>" + markup + filledWith("<p>", 10'000) + "<a href=2>Two</a>";
    EXPECT_EQ(hrefs(readPageContents(links)), std::vector<std::string>{"1"});
  }
}

TEST(HostileMarkup, KeepsABoundedNumberOfNames) {
  for (const char* const opening : {"<", "</", "&", "<?"}) {
    SCOPED_TRACE(opening);
    std::string markup = "<a href=1>One</a>";
    for (int i = 0; i < 1'000'000; ++i) markup += opening + ("n" + std::to_string(i)) + ">";
    EXPECT_EQ(hrefs(readPageContents(markup + "<a href=2>Two</a>")), std::vector<std::string>{"1"});
  }
}

TEST(HostileMarkup, CannotFillTheMemoryWithAnchors) {
  struct Case {
    const char* name;
    std::string markup;
  };
  const std::string megabyte = filledWith("text ", kMegabyte);
  const Case cases[] = {
      {"without targets", repeated("<a>", 2'000'000)},
      {"with targets", repeated("<a href=x>", 1'000'000)},
      {"nested", repeated("<a href=x><b>", 1'000) + megabyte},
      {"nested and closed", repeated("<a href=x><b>", 1'000) + megabyte + repeated("</b></a>", 1'000)},
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

TEST(HostileMarkup, IsReadTheSameEachTime) {
  std::string manyAttributes = "<p";
  for (int i = 0; i < 60'000; ++i) manyAttributes += " n" + std::to_string(i);
  const std::string link = "><a href=1>One</a>";
  // Each reaches another bound somewhere within its links.
  const std::pair<std::string, std::size_t> cases[] = {
      {repeated("<b>", 100'000) + repeated("</i>" + link, 100'000), 100'000},
      {repeated(manyAttributes + link, 10), 10},
      {repeated("<b><b><b>" + link, 100'000), 100'000},
  };
  for (const auto& [markup, links] : cases) {
    const std::vector<std::string> first = hrefs(readPageContents(markup));
    EXPECT_LT(first.size(), links);
    EXPECT_EQ(hrefs(readPageContents(markup)), first);
  }
}

TEST(HostileMarkup, IsLeftSoonAfterAStop) {
  for (const Trap& trap : kTraps) {
    SCOPED_TRACE(trap.name);
    std::stop_source stop;
    Counter counter(&stop);
    platform::readHtml("<p>" + trap.markup(), counter, stop.get_token());
    // What the parser has been given by then is some thousand bytes, and each makes a few events at most.
    EXPECT_LT(counter.events, 20'000u);
  }
}

TEST(HostileMarkup, IsNotReadAtAllAfterAStop) {
  std::stop_source stop;
  stop.request_stop();
  EXPECT_TRUE(readPageContents("<a href=1>One</a>", stop.get_token()).anchors.empty());
}

/// The parser gets a text in pieces of some thousand bytes. Wherever these end, nothing may be lost.
TEST(OnePassAgainstTree, AtTheEndsOfPieces) {
  const std::string name = repeated("\xE6\x96\x87", 300);  // longer than what the parser looks ahead
  const std::string cases[] = {
      "<a href='1 2'>one</a>",
      "<a href=1>Tom &amp; J&eacute;r&#x72;y &" + name + " end</a>",
      "<script>var a = '</b><a href=9>';</script><a href=1>\xE6\x96\x87</a>",
      "<!-- a -- b --!><a href=1>--></a><?pi x ?><!DOCTYPE html><a href=2>two</a>",
      "<a href=\"&" + name + "\" name='&lt;'><img alt='&gt;'></a>",
  };
  for (const std::string& filler : {std::string("x"), std::string("x y\n"), std::string("<b></b>")}) {
    for (std::size_t length = 3000; length < 4010; length += 7) {
      for (const std::string& markup : cases) {
        // Behind one piece, behind two, and within the first.
        for (const std::size_t pieces : {1u, 2u}) {
          const std::string text = filledWith(filler, length * pieces) + " " + markup;
          const PageContents expected = support::contentsOfTree(text);
          const PageContents actual = readPageContents(text);
          ASSERT_EQ(hrefs(actual), hrefs(expected)) << filler << length;
          for (std::size_t i = 0; i < expected.anchors.size(); ++i) {
            ASSERT_EQ(actual.anchors[i].title, expected.anchors[i].title) << filler << length;
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace crawler
