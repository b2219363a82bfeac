#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "sitemaps/html_cleaning.h"
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

TEST(HtmlCleaning, TellsEachLineOfAShortDocumentAndSomeOfALongOne) {
  using Calls = std::vector<std::pair<std::size_t, std::size_t>>;
  const auto calls = [](const std::string& text) {
    Calls seen;
    withoutLinkIds(text, [&](std::size_t line, std::size_t lines) { seen.emplace_back(line, lines); });
    return seen;
  };
  EXPECT_EQ(calls("a\nb\n"), (Calls{{0, 3}, {1, 3}, {2, 3}}));
  EXPECT_EQ(calls(std::string(10'000, '\n')).size(), 201u);
}

TEST(XmlCleaning, TakesEmptyElementsWithTheirLines) {
  const std::string loc = "\n\t<url>\n\t\t<loc>http://h/</loc>";
  const std::string often = "\n\t\t<changefreq>daily</changefreq>";
  const std::string noDate = "\n\t\t<lastmod></lastmod>";
  const std::string noPriority = "\n\t\t<priority></priority>";
  const std::string end = "\n\t</url>";
  const std::string odd = "<url><lastmod></lastmod><priority></priority></url>";
  const TextCase cases[] = {
      {"nothing at all", loc + noDate + "\n\t\t<changefreq></changefreq>" + noPriority + end, loc + end},
      {"the priority comes before others", noPriority + noDate + end, noDate + end},
      {"another layout", odd, odd},
      {"no loc is taken", "\n\t\t<loc></loc>" + often, "\n\t\t<loc></loc>" + often},
  };
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(withoutEmptyElements(c.text), c.expected);
  }
}

TEST(PublishableXml, MendsWhatIsNotLegalAndKeepsTheRest) {
  const TextCase cases[] = {
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
      {"a fragment", "http://a.test/ #a b#[//c]?", "http://a.test/%20#a%20b%23%5B//c%5D?"},
  };
  const auto document = [](const std::string& loc) {
    return std::string(kXmlHeader) + "<!-- & -->\n\t<url>\n\t\t<loc>" + loc +
           "</loc>\n\t\t<priority>1</priority>\n\t</url>" + std::string(kXmlClosing);
  };
  for (const TextCase& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string text = publishableXml(document(c.text));
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
      {"not opened", loc + "</url>" + loc + "</url>",
       header + entry + "\n\t</url>" + entry + "\n\t</url>" + closing},
      {"a date with markup in it", header + loc + "<lastmod>2010-06-15<b</lastmod></url>" + closing,
       header + entry + "\n\t\t<lastmod>2010-06-15&lt;b</lastmod>\n\t</url>" + closing},
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
