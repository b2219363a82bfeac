#include "sitemaps/split_sitemaps.h"

#include <gmock/gmock.h>

#include "platform/gzip.h"
#include "sitemaps/site_export.h"
#include "sitemaps/xml_format.h"
#include "store/site_record.h"
#include "support/data_folder_test.h"

namespace sitemaps {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string sitemapOf(std::size_t pages) {
  std::string text(kXmlHeader);
  for (std::size_t i = 0; i < pages; ++i) text += xmlEntry("http://h/" + std::to_string(i), "2010-06-15");
  return text + std::string(kXmlClosing);
}

TEST(SitemapEntries, AreFoundInOddTexts) {
  struct Case {
    const char* name;
    const char* text;
    std::vector<std::string_view> entries;
  };
  const Case cases[] = {
      {"attributes and blanks",
       "<url\n a='1'>x</url ><url>y</url\t>",
       {"<url\n a='1'>x</url >", "<url>y</url\t>"}},
      {"in a comment", "<!-- <url>x</url> --><url>y</url>", {"<url>y</url>"}},
      {"cut off in the last tag", "<url>x</url", {}},
      {"an entry that was not closed", "<url>x<url>y</url>", {"<url>y</url>"}},
      {"a closing tag too many", "</url><url>y</url></url>", {"<url>y</url>"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(sitemapEntries(c.text), c.entries);
  }
}

TEST(SplitSitemap, KeepsToBothLimits) {
  const std::string whole = sitemapOf(5);
  const std::size_t entryBytes = xmlEntry("http://h/0", "2010-06-15").size();
  const std::size_t frame = kXmlHeader.size() + kXmlClosing.size();
  const auto sizes = [&](const SplitLimits& limits) {
    const SplitSitemap sitemap(whole, limits);
    std::vector<std::size_t> counts;
    for (std::size_t i = 0; i < sitemap.partCount(); ++i) {
      const std::string part = sitemap.part(i);
      counts.push_back(sitemapEntries(part).size());
      EXPECT_TRUE(counts.back() == 1 || part.size() <= limits.bytes);
    }
    return counts;
  };
  EXPECT_THAT(sizes({2, 1'000'000}), ElementsAre(2u, 2u, 1u));
  EXPECT_THAT(sizes({5, frame + 5 * entryBytes}), ElementsAre(5u));
  EXPECT_THAT(sizes({5, frame + 5 * entryBytes - 1}), ElementsAre(4u, 1u));
  EXPECT_THAT(sizes({5, frame}), ElementsAre(1u, 1u, 1u, 1u, 1u));  // each too large by itself
  EXPECT_EQ(SplitSitemap(sitemapOf(0)).partCount(), 0u);
}

TEST(SplitSitemap, KeepsWhatTheDocumentDeclares) {
  const std::string opening = "<?xml version='1.0'?><urlset xmlns='n' xmlns:image='i'>";
  const std::string more = opening + " <url><image:loc/></url>\r\n<url>b</url></urlset>";
  const SplitSitemap declared(more, {1, 1000});
  EXPECT_EQ(declared.part(1), opening + "\n\t<url>b</url>\n</urlset>");
  const SplitSitemap bare("<url>a</url>");
  EXPECT_EQ(bare.part(0), std::string(kXmlHeader) + "\n\t<url>a</url>\n</urlset>");
}

TEST(SitemapIndex, NamesTheFilesWhereTheSiteStarts) {
  const std::pair<const char*, const char*> cases[] = {
      {"http://h", "<loc>http://h/sitemap-1.xml</loc>"},
      {"http://h/a/?x=/b/", "<loc>http://h/a/sitemap-1.xml</loc>"},
      {"http://h/a&b/", "<loc>http://h/a&amp;b/sitemap-1.xml</loc>"},
  };
  for (const auto& [url, loc] : cases) EXPECT_THAT(sitemapIndex(url, 1, Compression::none), HasSubstr(loc));
  EXPECT_EQ(sitemapIndex("http://h/", 2, Compression::none),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<sitemapindex xmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\">"
            "\n\t<sitemap>\n\t\t<loc>http://h/sitemap-1.xml</loc>\n\t</sitemap>"
            "\n\t<sitemap>\n\t\t<loc>http://h/sitemap-2.xml</loc>\n\t</sitemap>\n</sitemapindex>\n");
}

using SiteExportTest = support::DataFolderTest;

TEST_F(SiteExportTest, WritesTheFilesThenTheIndex) {
  const std::string whole = sitemapOf(3);
  const SplitSitemap sitemap(whole, {2, 1'000'000});
  const SplitResult written = writeSplit(sitemap, "http://h/", Compression::gzip, data());
  ASSERT_TRUE(written.result.ok());
  EXPECT_EQ(platform::filesBelow(data()), splitFileNames(2, Compression::gzip));
  EXPECT_EQ(platform::gunzipped(read("sitemap-1.xml.gz"), 10'000).text, sitemap.part(0));
  EXPECT_EQ(platform::gunzipped(read("sitemap-2.xml.gz"), 10'000).text, sitemap.part(1));
  EXPECT_EQ(read("sitemap-index.xml"), sitemapIndex("http://h/", 2, Compression::gzip));
}

TEST_F(SiteExportTest, NoIndexOfFilesThatAreNotThere) {
  const std::string whole = sitemapOf(3);
  std::filesystem::create_directory(data() / "sitemap-2.xml");  // in the way
  const SplitResult result =
      writeSplit(SplitSitemap(whole, {2, 1'000'000}), "http://h/", Compression::none, data());
  EXPECT_FALSE(result.result.ok());
  EXPECT_EQ(result.path, data() / "sitemap-2.xml");
  EXPECT_EQ(read("sitemap-index.xml"), "(missing)");
}

TEST_F(SiteExportTest, LargeSitesWantSplitting) {
  const auto record = [&](int pages) {
    write("S/S.qzVSK",
          store::newSiteRecord("S", "http://h/") + "\n<pagesUsed>" + std::to_string(pages) + "</pagesUsed>");
  };
  EXPECT_FALSE(wantsSplitting(controls, "S"));
  for (const int pages : {50'000, -1}) {
    record(pages);
    EXPECT_FALSE(wantsSplitting(controls, "S"));
  }
  write("S/sitemap.xml", "");
  const std::filesystem::path file = data() / "S" / "sitemap.xml";
  std::filesystem::resize_file(file, kMaxSitemapBytes);
  EXPECT_FALSE(wantsSplitting(controls, "S"));
  std::filesystem::resize_file(file, kMaxSitemapBytes + 1);
  EXPECT_TRUE(wantsSplitting(controls, "S"));
  write("S/sitemap.xml", "");
  record(50'001);
  EXPECT_TRUE(wantsSplitting(controls, "S"));
}

}  // namespace
}  // namespace sitemaps
