#include "sitemaps/split_sitemaps.h"

#include <fstream>

#include <gmock/gmock.h>
#include <zlib.h>

#include "sitemaps/site_export.h"
#include "sitemaps/xml_format.h"
#include "store/site_record.h"
#include "support/temp_folder.h"

namespace sitemaps {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
      {"none", "<urlset></urlset>", {}},
      {"nothing", "", {}},
      {"attributes and blanks",
       "<url\n a='1'>x</url ><url>y</url\t>",
       {"<url\n a='1'>x</url >", "<url>y</url\t>"}},
      {"longer names", "<urls>x</urls><url>y</url>", {"<url>y</url>"}},
      {"in a comment", "<!-- <url>x</url> --><url>y</url>", {"<url>y</url>"}},
      {"a comment in an entry", "<url>a<!-- </url> --></url>", {"<url>a<!-- </url> --></url>"}},
      {"a section of characters", "<url><![CDATA[</url>]]></url>", {"<url><![CDATA[</url>]]></url>"}},
      {"cut off", "<url>x</url><url>y</ur", {"<url>x</url>"}},
      {"cut off in the last tag", "<url>x</url", {}},
      {"cut off in a comment", "<url>x</url><!-- <url>y</url>", {"<url>x</url>"}},
      {"an entry that was not closed", "<url>x<url>y</url>", {"<url>y</url>"}},
      {"a closing tag too many", "</url><url>y</url></url>", {"<url>y</url>"}},
      {"stray brackets", "<<url><></url><", {"<url><></url>"}},
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
  EXPECT_THAT(sizes({5, 1'000'000}), ElementsAre(5u));
  EXPECT_THAT(sizes({4, 1'000'000}), ElementsAre(4u, 1u));
  EXPECT_THAT(sizes({2, 1'000'000}), ElementsAre(2u, 2u, 1u));
  EXPECT_THAT(sizes({5, frame + 5 * entryBytes}), ElementsAre(5u));
  EXPECT_THAT(sizes({5, frame + 5 * entryBytes - 1}), ElementsAre(4u, 1u));
  EXPECT_THAT(sizes({3, frame + 2 * entryBytes}), ElementsAre(2u, 2u, 1u));
  EXPECT_THAT(sizes({5, frame + entryBytes - 1}),
              ElementsAre(1u, 1u, 1u, 1u, 1u));  // each too large by itself
  EXPECT_EQ(SplitSitemap(sitemapOf(0)).partCount(), 0u);
  EXPECT_EQ(SplitSitemap(whole).part(0), whole);
}

TEST(SplitSitemap, SharesOutAtTheProtocolsLimit) {
  const std::string exactly = sitemapOf(50'000);
  EXPECT_EQ(SplitSitemap(exactly).partCount(), 1u);
  const std::string more = sitemapOf(100'001);
  const SplitSitemap sitemap(more);
  ASSERT_EQ(sitemap.partCount(), 3u);
  EXPECT_EQ(sitemap.entryCount(), 100'001u);
  EXPECT_EQ(sitemap.part(2),
            std::string(kXmlHeader) + xmlEntry("http://h/100000", "2010-06-15") + std::string(kXmlClosing));
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
  const auto first = [](const char* url, Compression compression) {
    const std::string index = sitemapIndex(url, 1, compression);
    const std::size_t start = index.find("<loc>") + 5;
    return index.substr(start, index.find("</loc>") - start);
  };
  EXPECT_EQ(first("http://h/", Compression::none), "http://h/sitemap-1.xml");
  EXPECT_EQ(first("http://h/", Compression::gzip), "http://h/sitemap-1.xml.gz");
  EXPECT_EQ(first("http://h/a/b.html", Compression::none), "http://h/a/sitemap-1.xml");
  EXPECT_EQ(first("http://h", Compression::none), "http://h/sitemap-1.xml");
  EXPECT_EQ(first("http://h/a/?x=/b/", Compression::none), "http://h/a/sitemap-1.xml");
  EXPECT_EQ(first("http://h/a&b/", Compression::none), "http://h/a&amp;b/sitemap-1.xml");
  EXPECT_EQ(sitemapIndex("http://h/", 2, Compression::none),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<sitemapindex xmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\">"
            "\n\t<sitemap>\n\t\t<loc>http://h/sitemap-1.xml</loc>\n\t</sitemap>"
            "\n\t<sitemap>\n\t\t<loc>http://h/sitemap-2.xml</loc>\n\t</sitemap>\n</sitemapindex>\n");
}

std::string inflated(const std::filesystem::path& file) {
  const gzFile stream = gzopen(file.c_str(), "rb");
  std::string text(1 << 20, '\0');
  const int length = gzread(stream, text.data(), static_cast<unsigned>(text.size()));
  EXPECT_EQ(gzclose(stream), Z_OK);
  text.resize(static_cast<std::size_t>(std::max(0, length)));
  return text;
}

class SiteExportTest : public testing::Test {
 protected:
  SiteExportTest() { std::filesystem::create_directories(folder()); }

  std::filesystem::path folder() const { return m_controls.siteFolder("S"); }
  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder() / name, std::ios::binary) << text;
  }
  std::string read(const std::string& name) const { return platform::readFile(folder() / name).text; }

  support::TempFolder m_home;
  store::GlobalControls m_controls{m_home.path()};
};

TEST_F(SiteExportTest, WritesTheFilesThenTheIndex) {
  const std::string whole = sitemapOf(3);
  const SplitSitemap sitemap(whole, {2, 1'000'000});
  const SplitResult written = writeSplit(sitemap, "http://h/", Compression::gzip, folder());
  ASSERT_TRUE(written.result.ok());
  EXPECT_EQ(platform::filesBelow(folder()), splitFileNames(2, Compression::gzip));
  EXPECT_EQ(inflated(folder() / "sitemap-1.xml.gz"), sitemap.part(0));
  EXPECT_EQ(inflated(folder() / "sitemap-2.xml.gz"), sitemap.part(1));
  EXPECT_EQ(read("sitemap-index.xml"), sitemapIndex("http://h/", 2, Compression::gzip));
  const std::string before = read("sitemap-1.xml.gz");
  ASSERT_TRUE(writeSplit(sitemap, "http://h/", Compression::gzip, folder()).result.ok());
  EXPECT_EQ(read("sitemap-1.xml.gz"), before);  // no time of writing is in it
}

TEST_F(SiteExportTest, NoIndexOfFilesThatAreNotThere) {
  const std::string whole = sitemapOf(3);
  std::filesystem::create_directory(folder() / "sitemap-2.xml");  // in the way
  const SplitResult result =
      writeSplit(SplitSitemap(whole, {2, 1'000'000}), "http://h/", Compression::none, folder());
  EXPECT_FALSE(result.result.ok());
  EXPECT_EQ(result.path, folder() / "sitemap-2.xml");
  EXPECT_FALSE(std::filesystem::exists(folder() / "sitemap-index.xml"));
}

TEST_F(SiteExportTest, TellsWhyADocumentCannotBeUsed) {
  const Layout& layout = *layoutNamed("2cpo");
  EXPECT_EQ(exportedHtml(m_controls, "S", layout).failure, ExportFailure::missing);
  EXPECT_EQ(exportedHtml(m_controls, "T", layout).failure, ExportFailure::missing);
  struct Case {
    const char* name;
    std::string text;
    ExportFailure failure;
  };
  const Case cases[] = {
      {"empty", "", ExportFailure::none},
      {"characters of every length", "a\xC2\x80\xE0\xA0\x80\xF4\x8F\xBF\xBF", ExportFailure::none},
      {"a stray byte", "a\xFFz", ExportFailure::unusable},
      {"an overlong form", "\xC0\x80", ExportFailure::unusable},
      {"a surrogate", "\xED\xA0\x80", ExportFailure::unusable},
      {"beyond the last character", "\xF4\x90\x80\x80", ExportFailure::unusable},
      {"cut off at the end", "a\xE2\x82", ExportFailure::unusable},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    write("sitemap2cpo.html", c.text);
    write("sitemap.xml", c.text);
    for (const ExportedDocument& document :
         {exportedHtml(m_controls, "S", layout), exportedXml(m_controls, "S")}) {
      EXPECT_EQ(document.failure, c.failure);
      EXPECT_EQ(document.reason.empty(), c.failure == ExportFailure::none);
      EXPECT_TRUE(c.failure == ExportFailure::none || document.text.empty());
    }
  }
  const platform::FolderLock lock(folder());
  EXPECT_EQ(exportedHtml(m_controls, "S", layout).failure, ExportFailure::busy);
}

TEST_F(SiteExportTest, LargeSitesWantSplitting) {
  const auto record = [&](int pages) {
    write("S.qzVSK",
          store::newSiteRecord("S", "http://h/") + "\n<pagesUsed>" + std::to_string(pages) + "</pagesUsed>");
  };
  EXPECT_FALSE(wantsSplitting(m_controls, "S"));
  record(50'000);
  EXPECT_FALSE(wantsSplitting(m_controls, "S"));
  record(-1);
  EXPECT_FALSE(wantsSplitting(m_controls, "S"));
  write("sitemap.xml", "");
  std::filesystem::resize_file(folder() / "sitemap.xml", kMaxSitemapBytes);
  EXPECT_FALSE(wantsSplitting(m_controls, "S"));
  std::filesystem::resize_file(folder() / "sitemap.xml", kMaxSitemapBytes + 1);
  EXPECT_TRUE(wantsSplitting(m_controls, "S"));
  write("sitemap.xml", "");
  record(50'001);
  EXPECT_TRUE(wantsSplitting(m_controls, "S"));
}

}  // namespace
}  // namespace sitemaps
