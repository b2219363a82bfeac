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

TEST(ReadSitemap, ForgivesBrokenText) {
  struct Case {
    const char* name;
    const char* text;
    Rows rows;
  };
  const Case cases[] = {
      {"nothing", "", {}},
      {"no markup", "http://a/\nhttp://b/\n", {}},
      {"another document", "<html><body><loc>a</loc></body></html>", {}},
      {"bare ampersands",
       "<url><loc>a?x=1&y=2&&copy=3;&#;&#x;</loc></url>",
       {locRow("a?x=1&amp;y=2&amp;&amp;copy=3;&amp;#;&amp;#x;")}},
      {"entities are decoded once",
       "<url><loc>&amp;lt;&lt;&quot;&apos;&#38;&#x26;&nbsp;</loc></url>",
       {locRow("&amp;lt;&lt;\"'&amp;&amp;&amp;nbsp;")}},
      {"references to what XML has no place for",
       "<url><loc>&#0;&#x1F;&#xFFFE;&#xD800;&#9999999;</loc></url>",
       {locRow("&amp;#0;&amp;#x1F;&amp;#xFFFE;&amp;#xD800;&amp;#9999999;")}},
      {"references beyond ASCII",
       "<url><loc>&#233;&#x20AC;&#x1F600;</loc></url>",
       {locRow("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80")}},
      {"stray less-than",
       "<url><loc>a<b<</loc><lastmod>< 3</lastmod></url>",
       {row({{"loc", "a&lt;b&lt;"}, {"lastmod", "&lt; 3"}})}},
      {"other tags in a value are text",
       "<url><loc>a<b>c</b>d<br/></loc></url>",
       {locRow("a&lt;b&gt;c&lt;/b&gt;d&lt;br/&gt;")}},
      {"greater-than", "<url><loc>a>b</loc></url>", {locRow("a&gt;b")}},
      {"unclosed everything", "<urlset><url><loc>a", {locRow("a")}},
      {"cut in a tag", "<urlset><url><loc>a</lo", {locRow("a&lt;/lo")}},
      {"the next element ends the last",
       "<url><loc>a<lastmod>b<url><loc>c</url>",
       {row({{"loc", "a"}, {"lastmod", "b"}}), locRow("c")}},
      {"the wrong end tag",
       "<url><loc>a</lastmod><priority>1</priority></url>",
       {row({{"loc", "a"}, {"priority", "1"}})}},
      {"end tags without a start", "</loc></url></urlset><url></loc><loc>a</loc></url></url>", {locRow("a")}},
      {"empty elements keep both tags",
       "<url><loc>a</loc><lastmod/><changefreq /><priority></priority></url>",
       {row({{"loc", "a"}, {"lastmod", ""}, {"changefreq", ""}, {"priority", ""}})}},
      {"empty entries", "<url/><url></url><url />", {row({}), row({}), row({})}},
      {"order as written",
       "<url><priority>1</priority><loc>a</loc></url>",
       {row({{"priority", "1"}, {"loc", "a"}})}},
      {"twice the same", "<url><loc>a</loc><loc>b</loc></url>", {row({{"loc", "a"}, {"loc", "b"}})}},
      {"attributes and blanks in tags", "<url id=\"1\"><loc\n x='2' >a</loc ></url\n>", {locRow("a")}},
      {"blanks around and within", "<url><loc>\r\n\t a\tb\n c \n</loc></url>", {locRow("a b  c")}},
      {"sections of characters",
       "<url><loc><![CDATA[a?x&y=<2>&amp;]]></loc></url>",
       {locRow("a?x&amp;y=&lt;2&gt;&amp;amp;")}},
      {"comments and instructions",
       "<!-- <url><loc>x</loc></url> --><?x <url> ?><url><loc>a<!-- b -->c</loc></url>",
       {locRow("ac")}},
      {"a comment that never ends", "<!-- <url><loc>a</loc></url> <!--", {locRow("a")}},
      {"text between", "a<url>b<loc>c</loc>d</url>e", {locRow("c")}},
      {"names that only begin alike",
       "<urls><url><location>a</location><loc>b</loc></url></urls>",
       {locRow("b")}},
      {"case counts", "<URL><LOC>a</LOC></URL>", {}},
      {"without a namespace", "<urlset><url><loc>a</loc></url></urlset>", {locRow("a")}},
      {"in another one", "<urlset xmlns='http://x/'><url><loc>a</loc></url></urlset>", {locRow("a")}},
      {"with a prefix", "<s:urlset xmlns:s='x'><s:url><s:loc>a</s:loc></s:url></s:urlset>", {locRow("a")}},
      {"with the oddest prefix",
       "<urlset:urlset><urlset:url><urlset:loc>a</urlset:loc></urlset:url>",
       {locRow("a")}},
      {"a document type",
       "<!DOCTYPE urlset [<!ENTITY a 'b'>]><url><loc>&a;</loc></url>",
       {locRow("&amp;a;")}},
      {"control characters and bad bytes",
       "<url><loc>a\x01"
       "b\xFF"
       "c</loc></url>",
       {locRow("a\xEF\xBF\xBD"
               "b\xEF\xBF\xBD"
               "c")}},
      {"a byte-order mark", "\xEF\xBB\xBF<url><loc>a</loc></url>", {locRow("a")}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Rows rows = readSitemap(c.text).rows;
    EXPECT_EQ(rows, c.rows);
    // What was read is read as the same again.
    std::string again;
    for (const std::string& each : rows) again += each;
    EXPECT_EQ(readSitemap(again).rows, rows);
  }
}

TEST(ReadSitemap, TellsOfElementsItDoesNotKeep) {
  const SitemapRows read = readSitemap(
      "<urlset "
      "xmlns:image='x'><url><loc>a</loc><image:image><image:loc>b</image:loc></image:image></url></urlset>");
  EXPECT_TRUE(read.otherElements);
  EXPECT_EQ(read.rows, Rows{locRow("a")});
  EXPECT_FALSE(
      readSitemap("<urlset><x/><url><loc>a<b></loc><!-- <x> --></url><y></y></urlset>").otherElements);
}

TEST(ReadSitemap, TakesLinearTime) {
  // Each of these makes a reader that looks ahead from every mark search to the end each time; at this size
  // that does not come to an end within the time a test has.
  for (const std::string piece :
       {"<!--", "<![CDATA[", "<?", "<loc", "<", "&#", "<url>", "<loc>", "</loc>", "<url><x>"}) {
    SCOPED_TRACE(piece);
    std::string text = "<urlset><url><loc>";
    while (text.size() < 4'000'000) text += piece;
    EXPECT_FALSE(readSitemap(text).rows.empty());
  }
}

}  // namespace
}  // namespace sitemaps
