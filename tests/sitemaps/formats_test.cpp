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

TEST(XmlEntry, EncodesWhatXmlCannotHold) {
  EXPECT_THAT(xmlEntry("http://h/\x01\x1F\t\r\n\x7F\xC2\x80\xEF\xBF\xBD\xEF\xBF\xBE%zz", ""),
              HasSubstr("<loc>http://h/%01%1F\t\r\n\x7F\xC2\x80\xEF\xBF\xBD%EF%BF%BE%zz</loc>"));
}

}  // namespace
}  // namespace sitemaps
