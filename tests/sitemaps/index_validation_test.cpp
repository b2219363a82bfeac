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
const std::string kLoc = "<loc>http://a.test/sitemap-1.xml</loc>";

std::string index(const std::string& entries) {
  return "<sitemapindex xmlns='http://www.sitemaps.org/schemas/sitemap/0.9'>" + entries + "</sitemapindex>";
}

std::vector<XmlFinding> validate(const std::string& text) {
  return validateSitemapIndex(text, {.now = kNoon});
}

TEST(IsSitemapIndex, GoesByTheOutermostElement) {
  std::string longProlog = "\xEF\xBB\xBF<?xml version='1.0'?>\n";
  for (int i = 0; i < 2000; ++i) longProlog += "<!-- a\n-- <urlset> -->\n";
  for (const std::string& index :
       {sitemapIndex("http://a.test/", 1, Compression::none), longProlog + "<sitemapindex>",
        std::string("<s:sitemapindex xmlns:s='x'>"), std::string("<!DOCTYPE sitemapindex><sitemapindex/>")}) {
    EXPECT_TRUE(isSitemapIndex(index));
  }
  for (const char* other : {"<urlset><sitemapindex>", "<sitemapindexes>", "<!-- <sitemapindex> --><urlset>",
                            "<!-- <sitemapindex>", "<sitemapindex", ""}) {
    EXPECT_FALSE(isSitemapIndex(other)) << other;
  }
}

TEST(ValidateSitemapIndex, TakesEntriesWithDates) {
  EXPECT_THAT(validate(index("<sitemap>" + kLoc + "<lastmod>2024-05-06</lastmod></sitemap>")), IsEmpty());
}

TEST(ValidateSitemapIndex, HasAGrammarOfItsOwn) {
  const std::pair<std::string, const char*> faulty[] = {
      {index(""), "The index has no entry"},
      {"<urlset xmlns='http://www.sitemaps.org/schemas/sitemap/0.9'><sitemap>" + kLoc + "</sitemap></urlset>",
       "instead of sitemapindex"},
      {index("<sitemap>" + kLoc + "</sitemap><url/>"), "only entries (sitemap) may stand"},
      {index("<sitemap><lastmod>2024-05-06</lastmod>" + kLoc + "</sitemap>"), "out of order: loc, lastmod"},
      {index("<sitemap>" + kLoc + "<priority>0.5</priority></sitemap>"), "no element \"priority\""},
  };
  for (const auto& [text, message] : faulty) {
    const auto findings = validate(text);
    ASSERT_THAT(findings, SizeIs(1)) << text;
    EXPECT_THAT(findings[0].message, HasSubstr(message));
  }
}

}  // namespace
}  // namespace sitemaps
