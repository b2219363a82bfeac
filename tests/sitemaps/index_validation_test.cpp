// Which indexes of sitemaps are valid, and what is said of the others.
#include <gmock/gmock.h>

#include "sitemaps/split_sitemaps.h"
#include "sitemaps/xml_format.h"
#include "sitemaps/xml_validation.h"

namespace sitemaps {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::chrono::sys_seconds kNoon =
    std::chrono::sys_days(std::chrono::year(2024) / 5 / 6) + std::chrono::hours(12);
const std::string kOpen = "<sitemapindex xmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\">";
const std::string kClose = "</sitemapindex>";
const std::string kLoc = "<loc>http://a.test/sitemap-1.xml</loc>";

std::vector<XmlFinding> validate(const std::string& text) {
  return validateSitemapIndex(text, {.now = kNoon});
}

TEST(IsSitemapIndex, GoesByTheOutermostElement) {
  struct Case {
    const char* name;
    std::string text;
    bool isIndex;
  };
  const Case cases[] = {
      {"ours", sitemapIndex("http://a.test/", 1, Compression::none), true},
      {"a sitemap", std::string(kXmlHeader) + std::string(kXmlClosing), false},
      {"a byte order mark, blanks and a comment", "\xEF\xBB\xBF\n <!-- a\n-- <urlset> -->\n<sitemapindex>",
       true},
      {"a prefix", "<?xml version='1.0'?><s:sitemapindex xmlns:s='x'>", true},
      {"a document type", "<!DOCTYPE sitemapindex><sitemapindex/>", true},
      {"a longer name", "<sitemapindexes>", false},
      {"an element within", "<urlset><sitemapindex>", false},
      {"in a comment", "<!-- <sitemapindex> --><urlset>", false},
      {"in a comment that does not end", "<!-- <sitemapindex>", false},
      {"cut off", "<sitemapindex", false},
      {"nothing", "", false},
      {"a long prolog of comments",
       [] {
         std::string text;
         for (int i = 0; i < 2000; ++i) text += "<!-- - -->\n";
         return text + "<sitemapindex>";
       }(),
       true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(isSitemapIndex(c.text), c.isIndex);
  }
}

TEST(ValidateSitemapIndex, TakesTheSplitExportsIndex) {
  EXPECT_THAT(validate(sitemapIndex("http://a.test/x&y/", 3, Compression::gzip)), IsEmpty());
  EXPECT_THAT(validate(kOpen + "<sitemap>" + kLoc + "<lastmod>2024-05-06</lastmod></sitemap>" + kClose),
              IsEmpty());
}

TEST(ValidateSitemapIndex, TellsEachFault) {
  const auto index = [](const std::string& entries) { return kOpen + entries + kClose; };
  const std::string good = "<sitemap>" + kLoc + "</sitemap>";
  struct Case {
    const char* name;
    std::string text;
    std::size_t entry;
    const char* element;
    const char* message;
  };
  const Case cases[] = {
      {"no entry", index(""), 0, "sitemapindex", "The index has no entry"},
      {"a sitemap",
       "<urlset xmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\"><sitemap>" + kLoc +
           "</sitemap></urlset>",
       0, "sitemapindex", "instead of sitemapindex"},
      {"a page", index(good + "<url><loc>http://a.test/</loc></url>"), 0, "sitemapindex",
       "only entries (sitemap) may stand"},
      {"no address", index("<sitemap></sitemap>"), 1, "loc", "no address"},
      {"two addresses", index("<sitemap>" + kLoc + "<loc>http://a.test/2.xml</loc></sitemap>"), 1, "loc",
       "twice"},
      {"an address of no page", index("<sitemap><loc>sitemap-1.xml</loc></sitemap>"), 1, "loc",
       "sitemap-1.xml"},
      {"a bare ampersand", index("<sitemap><loc>http://a.test/?a&b</loc></sitemap>"), 1, "loc", "Line 1"},
      {"another host", index(good + "<sitemap><loc>http://b.test/2.xml</loc></sitemap>"), 2, "loc", "host"},
      {"the same again", index(good + good), 2, "loc", "in entry 1 already"},
      {"out of order", index("<sitemap><lastmod>2024-05-06</lastmod>" + kLoc + "</sitemap>"), 1, "loc",
       "out of order: loc, lastmod"},
      {"a day to come", index("<sitemap>" + kLoc + "<lastmod>2024-05-08</lastmod></sitemap>"), 1, "lastmod",
       "future"},
      {"what a page may have", index("<sitemap>" + kLoc + "<priority>0.5</priority></sitemap>"), 1, "sitemap",
       "no element \"priority\""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto findings = validate(c.text);
    ASSERT_THAT(findings, SizeIs(1));
    EXPECT_EQ(findings[0].entry, c.entry);
    EXPECT_EQ(findings[0].element, c.element);
    EXPECT_THAT(findings[0].message, HasSubstr(c.message));
  }
}

TEST(ValidateSitemapIndex, CountsSitemaps) {
  const std::string full = sitemapIndex("http://a.test/", kMaxSitemapEntries, Compression::none);
  EXPECT_THAT(validate(full), IsEmpty());
  const auto findings = validate(sitemapIndex("http://a.test/", kMaxSitemapEntries + 1, Compression::none));
  ASSERT_THAT(findings, SizeIs(1));
  EXPECT_EQ(findings[0].message, "The index has 50001 entries; at most 50000 are allowed");
}

}  // namespace
}  // namespace sitemaps
