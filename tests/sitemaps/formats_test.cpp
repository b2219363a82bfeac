#include <gmock/gmock.h>

#include "sitemaps/html_format.h"
#include "sitemaps/xml_format.h"
#include "support/scan_run.h"

namespace sitemaps {
namespace {

using testing::HasSubstr;

TEST(Openings, AreByteForByteWhatEditorsExpect) {
  support::expectStored("openings/one-column.html", documentOpening(1));
  support::expectStored("openings/three-columns.html", documentOpening(3));
  support::expectStored("openings/sitemap.xml", std::string(kXmlHeader));
}

TEST(XmlEntry, EscapesTheAddressOnce) {
  EXPECT_EQ(xmlEntry("http://h/a?x='1'&y=<2>&amp;\"", ""),
            "\n\t<url>\n\t\t<loc>http://h/a?x=&apos;1&apos;&amp;y=&lt;2&gt;&amp;amp;&quot;</loc>"
            "\n\t\t<lastmod></lastmod>\n\t\t<changefreq>monthly</changefreq>\n\t\t<priority>0.5</priority>"
            "\n\t</url>");
}

TEST(XmlEntry, EncodesWhatXmlCannotHold) {
  EXPECT_THAT(xmlEntry("http://h/\x01\x1F\t\r\n\x7F\xC2\x80\xEF\xBF\xBD\xEF\xBF\xBE%zz", ""),
              HasSubstr("<loc>http://h/%01%1F\t\r\n\x7F\xC2\x80\xEF\xBF\xBD%EF%BF%BE%zz</loc>"));
  EXPECT_THAT(xmlEntry("http://h/\xFF\xC3\xA9", ""), HasSubstr("<loc>http://h/%FF%C3%A9</loc>"));
}

TEST(PageEntry, LetsNeitherAddressNorTitleOutOfTheirPlaces) {
  EXPECT_EQ(pageEntry("http://h/\"><script>'&", 7, "\"<script>&lt;<!-- LINKID: 5 -->"),
            "\n\t\t\t<div class=\"vskPageTitle\"><a href=\"http://h/%22%3E%3Cscript%3E'&---LINKID:7---\">"
            "\"&lt;script>&amp;lt;&lt;!-- LINKID: 5 --><!-- LINKID: 7 --></a></div>");
}

}  // namespace
}  // namespace sitemaps
