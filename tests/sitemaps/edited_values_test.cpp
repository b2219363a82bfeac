// Change frequencies and priorities that were edited, and the entries that they go into.
#include "sitemaps/edited_values.h"

#include <functional>

#include <gtest/gtest.h>

#include "sitemaps/sitemap_reader.h"
#include "sitemaps/xml_format.h"
#include "support/scan_run.h"
#include "support/site_server.h"

namespace sitemaps {
namespace {

/// An entry as an editor may write it; what `loc` stands for is none of this function's business.
std::string entry(const std::string& loc, const std::string& frequency, const std::string& priority) {
  return "<url>\n\t\t<loc>" + loc + "</loc>\n\t\t<lastmod>2001-02-03</lastmod>\n\t\t<changefreq>" +
         frequency + "</changefreq>\n\t\t<priority>" + priority + "</priority>\n\t</url>";
}

/// A whole sitemap as a scan writes it.
std::string scanned(const std::vector<std::string>& addresses) {
  std::string text(kXmlHeader);
  for (const std::string& address : addresses) text += xmlEntry(address, "2010-06-15");
  return text.append(kXmlClosing);
}

TEST(EditedValues, GoIntoTheEntriesOfTheSameAddresses) {
  struct Case {
    const char* name;
    std::string former;   // without its root
    const char* address;  // of the new entry
    const char* frequency;
    const char* priority;
    int count;
  };
  const Case cases[] = {
      {"both", entry("http://h/a", "daily", "0.9"), "http://h/a", "daily", "0.9", 2},
      {"one", entry("http://h/a", "monthly", "1"), "http://h/a", "monthly", "1", 1},
      {"none was edited", entry("http://h/a", "monthly", "0.5"), "http://h/a", "monthly", "0.5", 0},
      {"another address", entry("http://h/a/", "daily", "0.9"), "http://h/a", "monthly", "0.5", 0},
      {"an element is missing", "<url><loc>http://h/a</loc><priority>0.1</priority></url>", "http://h/a",
       "monthly", "0.1", 1},
      {"an element is empty", entry("http://h/a", "", "0.5"), "http://h/a", "", "0.5", 1},
      {"no value of the protocol", entry("http://h/a", "a & b", "$1"), "http://h/a", "a &amp; b", "$1", 2},
      {"bare ampersands", entry("http://h/?a=1&b='2'", "daily", "0.5"), "http://h/?a=1&b='2'", "daily", "0.5",
       1},
      {"references", entry("http://h/?a=1&#x26;b=&quot;2&quot;", "daily", "0.5"), "http://h/?a=1&b=\"2\"",
       "daily", "0.5", 1},
      {"an address with a reference", entry("http://h/?a&amp;amp;b", "daily", "0.5"), "http://h/?a&amp;b",
       "daily", "0.5", 1},
      {"which is not the one without", entry("http://h/?a&amp;b", "daily", "0.5"), "http://h/?a&amp;b",
       "monthly", "0.5", 0},
      {"the last of two", entry("http://h/a", "daily", "0.9") + entry("http://h/a", "never", "0.5"),
       "http://h/a", "never", "0.5", 1},
      {"another namespace",
       "<s:urlset><s:url><s:loc>http://h/a</s:loc><s:priority>0.2</s:priority></s:url></s:urlset>",
       "http://h/a", "monthly", "0.2", 1},
      {"broken", "<url><loc>http://h/a<changefreq>daily<url>", "http://h/a", "daily", "0.5", 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EditedValues values;
    values.add(c.former);
    EditedValues copied;
    copied.add(values.text());
    for (EditedValues* each : {&values, &copied}) {
      std::string text = scanned({"http://h/first", c.address, "http://h/last"});
      std::string expected = text;
      std::string own = xmlEntry(c.address, "2010-06-15");
      const std::size_t place = expected.find(own);
      const std::size_t length = own.size();
      own.replace(own.find("monthly"), 7, c.frequency);
      own.replace(own.find("0.5</priority>"), 3, c.priority);
      expected.replace(place, length, own);
      std::string row = readSitemap(text).rows[1];
      EXPECT_EQ(each->putInto(row), c.count);
      EXPECT_EQ(readSitemap(row).rows, readSitemap(own).rows);
      EXPECT_EQ(each->moveInto(text), c.count);
      EXPECT_EQ(text, expected);
      EXPECT_EQ(each->moveInto(text), 0);
    }
  }
}

TEST(EditedValues, DoNotTakeThePlaceOfLaterOnes) {
  EditedValues values;
  values.add(entry("http://h/a", "daily", "0.9"));
  std::string row = entry("http://h/a", "never", "0.5");
  EXPECT_EQ(values.putInto(row), 1);
  EXPECT_EQ(row, entry("http://h/a", "never", "0.9"));
}

/// A site whose scans take values over.
struct KeptValues : support::ScanRun {
  explicit KeptValues(const std::string& url) : ScanRun(url) {
    isKept = true;
    settings.site.values = store::EditedValues::takenOver;
    EXPECT_EQ(scan().edits.valuesTakenOver, 0);
  }

  void setPriority(const std::string& page, const std::string& priority) const {
    std::string text = file("sitemap.xml");
    const std::size_t at = text.find("<priority>", text.find(page + "</loc>")) + 10;
    text.replace(at, text.find('<', at) - at, priority);
    ASSERT_TRUE(platform::replaceFile(folder() / "sitemap.xml", text).ok());
  }
  std::string priority(const std::string& page) const {
    const std::string text = file("sitemap.xml");
    const std::size_t at = text.find("<priority>", text.find(page + "</loc>")) + 10;
    return text.substr(at, text.find('<', at) - at);
  }
};

TEST(EditedValues, AreTakenOverByScansHoweverOthersEnd) {
  const support::SiteServer server(support::manyPages(9));
  KeptValues site(server.url());
  site.setPriority("page2.html", "0.8");
  site.setPriority("page6.html", "0.9");
  const crawler::ScanResult first = site.scan();
  EXPECT_EQ(first.edits.valuesTakenOver, 2);
  EXPECT_EQ(first.edits.problem(), "");
  EXPECT_EQ(site.priority("page2.html") + site.priority("page6.html"), "0.80.9");
  // What was taken over is no edit, and stays all the same.
  const crawler::ScanResult second = site.scan();
  EXPECT_FALSE(second.edits.isSetKept);
  EXPECT_EQ(second.edits.valuesTakenOver, 2);

  // One that does not reach its site, and one that is stopped between the two.
  const std::string url = std::exchange(site.settings.startUrl, "http://127.0.0.1:1/");
  EXPECT_EQ(site.scan().end, crawler::ScanEnd::unreachable);
  site.settings.startUrl = url;
  site.settings.site.maxPages = 5;
  EXPECT_EQ(site.scan().edits.valuesTakenOver, 1);
  EXPECT_EQ(site.priority("page2.html"), "0.8");
  // An entry that is there tells what counts of it.
  site.setPriority("page2.html", "0.5");
  site.settings.site.maxPages = 0;
  site.settings.goesOn = true;
  EXPECT_EQ(site.scan().edits.valuesTakenOver, 1);
  EXPECT_EQ(site.priority("page2.html") + site.priority("page6.html"), "0.50.9");

  // Where they are not wanted they are gone for good.
  site.settings.goesOn = false;
  site.settings.site.values = store::EditedValues::dropped;
  EXPECT_EQ(site.scan().edits.valuesTakenOver, 0);
  site.settings.site.values = store::EditedValues::takenOver;
  EXPECT_EQ(site.scan().edits.valuesTakenOver, 0);
  EXPECT_EQ(site.priority("page6.html"), "0.5");
}

}  // namespace
}  // namespace sitemaps
