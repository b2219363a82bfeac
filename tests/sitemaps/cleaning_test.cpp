#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "sitemaps/html_cleaning.h"
#include "sitemaps/html_format.h"
#include "sitemaps/xml_cleaning.h"
#include "sitemaps/xml_format.h"
#include "sitemaps/xml_validation.h"

namespace sitemaps {
namespace {

struct TextCase {
  const char* name;
  std::string text;
  std::string expected;
};

TEST(HtmlCleaning, TakesMarkersAndNothingElse) {
  const TextCase cases[] = {
      {"an entry", pageEntry("http://h/a", 12, "Title"),
       "\n\t\t\t<div class=\"vskPageTitle\"><a href=\"http://h/a\">Title</a></div>"},
      {"two entries in a line",
       linkEntry("http://h/a", 1, "A").substr(1) + linkEntry("http://h/b", 2, "B").substr(1),
       "\t\t\t<div class=\"vskPageLink\"><a href=\"http://h/a\">A</a></div>"
       "\t\t\t<div class=\"vskPageLink\"><a href=\"http://h/b\">B</a></div>"},
      {"nothing", "", ""},
      {"a line feed at the end stays", "---LINKID:1---\n", "\n"},
      {"none is added", "a---LINKID:1---", "a"},
      {"empty lines", "\n\na\n\n", "\n\na\n\n"},
      {"carriage returns", "a---LINKID:1---\r\nb\r\n", "a\r\nb\r\n"},
      {"markers end on their line", "a---LINKID:1\n---b<!-- LINKID: 1\n -->",
       "a---LINKID:1\n---b<!-- LINKID: 1\n -->"},
      {"the first end counts", "a---LINKID:1---b---c<!-- LINKID: 1 --> -->", "ab---c -->"},
      {"an empty number", "a---LINKID:---b<!-- LINKID:  -->c", "abc"},
      {"too few blanks in a comment", "<!-- LINKID: -->a -->", ""},
      {"other comments", "<!-- LINK 1 --><!--LINKID: 1 -->", "<!-- LINK 1 --><!--LINKID: 1 -->"},
      {"other cases", "---linkid:1---<!-- Linkid: 1 -->", "---linkid:1---<!-- Linkid: 1 -->"},
      {"more dashes before it", "a-----LINKID:1-----b", "a----b"},
      {"comments go first", "---LINKID:<!-- LINKID: 1 -->2---b", "b"},
      {"what closes up is no marker", "<!-- LINK<!-- LINKID: 1 -->ID: 2 -->", "<!-- LINKID: 2 -->"},
      {"one is closed, the next is not", "---LINKID:1---a---LINKID:2", "a---LINKID:2"},
      {"regular expressions mean nothing", "---LINKID:.*?---$1\\1---LINKID:\xC3\xA9---", "$1\\1"},
  };
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(withoutLinkIds(c.text), c.expected);
  }
}

TEST(HtmlCleaning, TellsEachLineOfAShortDocumentAndSomeOfALongOne) {
  using Calls = std::vector<std::pair<std::size_t, std::size_t>>;
  const auto calls = [](const std::string& text) {
    Calls seen;
    withoutLinkIds(text, [&](std::size_t line, std::size_t lines) { seen.emplace_back(line, lines); });
    return seen;
  };
  EXPECT_EQ(calls(""), (Calls{{0, 1}}));
  EXPECT_EQ(calls("a\nb\n"), (Calls{{0, 3}, {1, 3}, {2, 3}}));
  const Calls many = calls(std::string(100'000, '\n'));
  EXPECT_LE(many.size(), 250u);
  EXPECT_GE(many.size(), 150u);
  EXPECT_EQ(many.front(), (Calls::value_type{0, 100'001}));
  EXPECT_GT(many.back().first, 99'000u);
}

/// An entry as a scan writes it, with other values.
std::string entry(const std::string& date, const std::string& frequency, const std::string& priority) {
  return "\n\t<url>\n\t\t<loc>http://h/</loc>\n\t\t<lastmod>" + date + "</lastmod>\n\t\t<changefreq>" +
         frequency + "</changefreq>\n\t\t<priority>" + priority + "</priority>\n\t</url>";
}

TEST(XmlCleaning, TakesEmptyElementsWithTheirLines) {
  const std::string loc = "\n\t<url>\n\t\t<loc>http://h/</loc>";
  const std::string date = "\n\t\t<lastmod>2010-06-15</lastmod>";
  const std::string often = "\n\t\t<changefreq>daily</changefreq>";
  const std::string first = "\n\t\t<priority>1</priority>";
  const std::string end = "\n\t</url>";
  const TextCase cases[] = {
      {"all are set", entry("2010-06-15", "daily", "1"), loc + date + often + first + end},
      {"no date", entry("", "daily", "1"), loc + often + first + end},
      {"no frequency", entry("2010-06-15", "", "1"), loc + date + first + end},
      {"no priority", entry("2010-06-15", "daily", ""), loc + date + often + end},
      {"nothing but the date", entry("2010-06-15", "", ""), loc + date + end},
      {"nothing at all", entry("", "", ""), loc + end},
      {"several entries", entry("", "daily", "") + entry("2010-06-15", "", "1"),
       loc + often + end + loc + date + first + end},
      {"the priority comes before others", "\n\t\t<priority></priority>\n\t\t<lastmod></lastmod>\n\t</url>",
       "\n\t\t<lastmod></lastmod>\n\t</url>"},
      {"a blank is a value", entry(" ", "daily", "1"),
       loc + "\n\t\t<lastmod> </lastmod>" + often + first + end},
      {"another layout", "<url><lastmod></lastmod><priority></priority></url>",
       "<url><lastmod></lastmod><priority></priority></url>"},
      {"lines with carriage returns", "\r\n\t\t<lastmod></lastmod>\r\n\t\t<loc>a</loc>",
       "\r\n\t\t<lastmod></lastmod>\r\n\t\t<loc>a</loc>"},
      {"no loc is taken", "\n\t\t<loc></loc>\n\t\t<priority>1</priority>",
       "\n\t\t<loc></loc>\n\t\t<priority>1</priority>"},
      {"a sitemap without pages", std::string(kXmlHeader) + std::string(kXmlClosing),
       std::string(kXmlHeader) + std::string(kXmlClosing)},
  };
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(withoutEmptyElements(c.text), c.expected);
  }
}

TEST(PublishableXml, MendsWhatIsNotLegalAndKeepsTheRest) {
  struct Case {
    const char* name;
    const char* written;  // between the tags of the loc
    const char* expected;
  };
  const Case cases[] = {
      {"legal", "http://a.test/?a='1'&amp;b=%20#c", "http://a.test/?a='1'&amp;b=%20#c"},
      {"legal, spelled otherwise", " http://a.test/?a&#38;b&quot;", "http://a.test/?a&amp;b%22"},
      {"blanks around it", "\n http://a.test/&apos; ", "\n http://a.test/&apos; "},
      {"a section of characters", "<![CDATA[http://a.test/?a&b]]>", "<![CDATA[http://a.test/?a&b]]>"},
      {"bare ampersands", "http://a.test/?a=1&b&amp;c&amp &copy;",
       "http://a.test/?a=1&amp;b&amp;c&amp;amp%20&amp;copy;"},
      {"blanks, controls, other scripts", "http://a.test/a b\tc\x01\xC3\xA9",
       "http://a.test/a%20b%09c%01%C3%A9"},
      {"stray percent signs", "http://a.test/%,%2,%zz,%2F", "http://a.test/%25,%252,%25zz,%2F"},
      {"what RFC 3986 excludes", "http://a.test/&quot;&lt;&gt;[|]\\^`{}",
       "http://a.test/%22%3C%3E%5B%7C%5D%5C%5E%60%7B%7D"},
      {"brackets of a host", "http://[::1]/ ", "http://[::1]/ "},
      {"markup that was typed", "http://a.test/<b>&x", "http://a.test/%3Cb%3E&amp;x"},
      {"a fragment", "http://a.test/ #a b#[//c]?", "http://a.test/%20#a%20b%23%5B//c%5D?"},
  };
  const auto document = [](const std::string& loc) {
    return std::string(kXmlHeader) + "<!-- & -->\n\t<url>\n\t\t<loc>" + loc +
           "</loc>\n\t\t<priority>1</priority>\n\t</url>" + std::string(kXmlClosing);
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string text = publishableXml(document(c.written));
    EXPECT_EQ(text, document(c.expected));
    EXPECT_TRUE(validateXmlSitemap(text, validationBaseNow()).empty());
  }
}

TEST(PublishableXml, WritesWhatIsNoXmlAnew) {
  const std::string entry = "\n\t<url>\n\t\t<loc>http://a.test/%20&amp;</loc>";
  const std::string loc = "<url><loc>http://a.test/ &</loc>";
  const std::string header(kXmlHeader);
  const std::string closing(kXmlClosing);
  const TextCase cases[] = {
      {"not closed", header + loc + "</url>", header + entry + "\n\t</url>" + closing},
      {"not opened", loc + "</url>" + loc + "</url>",
       header + entry + "\n\t</url>" + entry + "\n\t</url>" + closing},
      {"a date with markup in it", header + loc + "<lastmod>2010-06-15<b</lastmod></url>" + closing,
       header + entry + "\n\t\t<lastmod>2010-06-15&lt;b</lastmod>\n\t</url>" + closing},
      {"a date with a control", header + loc + "<lastmod>2010-06-15\x01</lastmod></url>" + closing,
       header + entry + "\n\t\t<lastmod>2010-06-15\xEF\xBF\xBD</lastmod>\n\t</url>" + closing},
      {"nothing", "", header + closing},
      {"another prefix", "<s:urlset><s:url><s:loc>http://a.test/ &</s:loc></s:url></s:urlset>",
       header + entry + "\n\t</url>" + closing},
  };
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(publishableXml(c.text), c.expected);
  }
}

}  // namespace
}  // namespace sitemaps
