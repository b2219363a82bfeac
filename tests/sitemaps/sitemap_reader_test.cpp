// What the rows of a document are, however it is written.
#include "sitemaps/sitemap_reader.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sitemaps/xml_format.h"

namespace sitemaps {
namespace {

using Rows = std::vector<std::string>;

/// A row with these elements in it.
std::string row(const std::vector<std::pair<std::string, std::string>>& elements) {
  std::string text = "<url>";
  for (const auto& [name, value] : elements) text += "\n\t\t<" + name + ">" + value + "</" + name + ">";
  return text + "\n\t</url>";
}

std::string locRow(const std::string& value) {
  return row({{"loc", value}});
}

TEST(ReadSitemap, LeavesEntriesOfScansAsTheyAre) {
  const std::string first = xmlEntry("http://h/a?x=1&y=<2>", "");
  const std::string second = xmlEntry("http://h/", "2010-06-15");
  const std::string text = std::string(kXmlHeader) + first + second;
  // Each entry starts with a line feed and a tab.
  const Rows expected = {first.substr(2), second.substr(2)};
  EXPECT_EQ(readSitemap(text + std::string(kXmlClosing)).rows, expected);
  EXPECT_EQ(readSitemap(text).rows, expected) << "a scan that was killed leaves urlset open";
  std::string withCarriageReturns;
  for (const char c : text) withCarriageReturns += c == '\n' ? "\r\n" : std::string(1, c);
  EXPECT_EQ(readSitemap(withCarriageReturns).rows, expected);
}

TEST(ReadSitemap, TakesValuesAsTheyAreMeant) {
  struct Case {
    const char* name;
    const char* written;
    const char* value;
  };
  const Case cases[] = {
      {"bare ampersands", "a?x=1&y=2&&copy=3;&#;&#x;", "a?x=1&amp;y=2&amp;&amp;copy=3;&amp;#;&amp;#x;"},
      {"decoded once", "&amp;lt;&lt;&quot;&apos;&#38;&#x26;&nbsp;", "&amp;lt;&lt;\"'&amp;&amp;&amp;nbsp;"},
      {"not in XML", "&#0;&#x1F;&#xFFFE;&#xD800;&#9999999;",
       "&amp;#0;&amp;#x1F;&amp;#xFFFE;&amp;#xD800;&amp;#9999999;"},
      {"beyond ASCII", "&#233;&#x20AC;&#x1F600;", "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"},
      {"stray less-than", "a<b< 3", "a&lt;b&lt; 3"},
      {"other tags are text", "a<b>c</b>d<br/>", "a&lt;b&gt;c&lt;/b&gt;d&lt;br/&gt;"},
      {"blanks around and within", "\r\n\t a\tb\n c \n", "a b  c"},
      {"a section of characters", "<![CDATA[a?x&y=<2>&amp;]]>", "a?x&amp;y=&lt;2&gt;&amp;amp;"},
      {"a comment", "a<!-- b -->c", "ac"},
      {"control characters and bad bytes", "x\x01y\xFFz", "x\uFFFDy\uFFFDz"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(readSitemap("<url><loc>" + std::string(c.written) + "</loc></url>").rows,
              Rows{locRow(c.value)});
    EXPECT_EQ(readSitemap(locRow(c.value)).rows, Rows{locRow(c.value)});
  }
}

TEST(ReadSitemap, FindsTheRowsOfBrokenText) {
  struct Case {
    const char* name;
    const char* text;
    std::string rows;
  };
  const Case cases[] = {
      {"unclosed everything", "<urlset><url><loc>a", locRow("a")},
      {"the next element ends the last", "<url><loc>a<lastmod>b<url><loc>c</url>",
       row({{"loc", "a"}, {"lastmod", "b"}}) + locRow("c")},
      {"the wrong end tag", "<url><loc>a</lastmod><priority>1</priority></url>",
       row({{"loc", "a"}, {"priority", "1"}})},
      {"empty elements keep both tags",
       "<url><loc>a</loc><lastmod/><changefreq /><priority></priority></url>",
       row({{"loc", "a"}, {"lastmod", ""}, {"changefreq", ""}, {"priority", ""}})},
      {"empty entries", "<url/><url></url><url />", row({}) + row({}) + row({})},
      {"attributes and blanks in tags", "<url id=\"1\"><loc\n x='2' >a</loc ></url\n>", locRow("a")},
      {"comments and their like", "<!-- <url/> --><?x <url> ?><!DOCTYPE <url>><url><loc>a</url>",
       locRow("a")},
      {"a comment that never ends", "<!-- <url><loc>a</loc></url> <!--", locRow("a")},
      {"text between", "a<url>b<loc>c</loc>d</url>e", locRow("c")},
      {"names that only begin alike", "<urls><url><location>a</location><loc>b</url></urls>", locRow("b")},
      {"with a prefix", "<s:urlset><s:url><s:loc>a</s:loc></s:url></s:urlset>", locRow("a")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::string rows;
    for (const std::string& each : readSitemap(c.text).rows) rows += each;
    EXPECT_EQ(rows, c.rows);
  }
}

TEST(ReadSitemap, TellsOfElementsItDoesNotKeep) {
  const SitemapRows read = readSitemap("<url><loc>a</loc><i:image><i:loc>b</i:loc></i:image></url>");
  EXPECT_TRUE(read.otherElements);
  EXPECT_EQ(read.rows, Rows{locRow("a")});
  EXPECT_FALSE(readSitemap("<x/><url><loc>a<b></loc><!-- <x> --></url><y></y>").otherElements);
}

TEST(ReadSitemap, TakesLinearTime) {
  // Each of these makes a reader that looks ahead from every mark search to the end each time; at this size
  // that does not come to an end within the time a test has.
  for (const std::string piece : {"<!--", "<![CDATA[", "<?", "<loc", "&#", "<url>", "</loc>"}) {
    SCOPED_TRACE(piece);
    std::string text = "<urlset><url><loc>";
    while (text.size() < 2'000'000) text += piece;
    EXPECT_FALSE(readSitemap(text).rows.empty());
  }
}

}  // namespace
}  // namespace sitemaps
