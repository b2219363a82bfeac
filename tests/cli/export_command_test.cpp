// Exports and checks by the built program, as scripts run it.
#include <algorithm>

#include <gmock/gmock.h>

#include "platform/gzip.h"
#include "sitemaps/html_format.h"
#include "sitemaps/layouts.h"
#include "sitemaps/split_sitemaps.h"
#include "sitemaps/xml_format.h"
#include "store/site_record.h"
#include "support/program_test.h"

namespace {

using support::Arguments;
using support::words;
using testing::HasSubstr;
using testing::StartsWith;

class ExportCommand : public support::ProgramTest {
 protected:
  ExportCommand() { write("shop/shop.qzVSK", store::newSiteRecord("shop", "http://shop.test/")); }

  std::string out(const std::string& name) const { return home.path() / name; }
  /// An XML sitemap of the site.
  void writeXml(const std::string& entries) const {
    write("shop/sitemap.xml",
          std::string(sitemaps::kXmlHeader) + entries + std::string(sitemaps::kXmlClosing));
  }
  /// Sitemaps as a scan of so many pages leaves them.
  void scanned(int pages) const {
    std::string entries;
    while (pages-- > 0) entries += sitemaps::xmlEntry("http://shop.test/" + std::to_string(pages), "");
    writeXml(entries);
    for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
      write("shop/" + std::string(layout.fileName),
            std::string(layout.fileName) + sitemaps::pageEntry("http://shop.test/", 7, "T\xC3\xA9"));
    }
  }
};

TEST_F(ExportCommand, EachLayoutComesWithoutMarkers) {
  scanned(1);
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
    const auto result = run(words("export shop html --output - --layout " + std::string(layout.shortName)));
    EXPECT_EQ(result.output,
              std::string(layout.fileName) +
                  "\n\t\t\t<div class=\"vskPageTitle\"><a href=\"http://shop.test/\">T\xC3\xA9</a></div>");
  }
  EXPECT_THAT(run(words("export shop html --output -")).output, StartsWith("sitemap3c.html"));
}

TEST_F(ExportCommand, WritesAFileAndReplacesItOnlyByForce) {
  scanned(1);
  Arguments arguments = {"export", "shop", "xml", "--output", out("map.xml")};
  EXPECT_EQ(run(arguments).output, "Written to " + out("map.xml") + "\n");
  const std::string before = read(out("map.xml"));
  EXPECT_THAT(before, HasSubstr("\n\t\t<loc>http://shop.test/0</loc>\n\t\t<changefreq>monthly"));
  scanned(2);
  const auto result = run(arguments);
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_EQ(result.errors, out("map.xml") + " exists already; --force replaces it.\n");
  EXPECT_EQ(read(out("map.xml")), before);
  arguments.emplace_back("--force");
  EXPECT_EQ(run(arguments).exitCode, 0);
  EXPECT_THAT(read(out("map.xml")), HasSubstr("http://shop.test/1"));
}

TEST_F(ExportCommand, BrokenPagesInEachFormat) {
  write("shop/badLinks.txt", "http://shop.test/a\nhttp://shop.test/b\n");
  ASSERT_TRUE(reasons.save("shop", {{"http://shop.test/a", "404 - Not Found"}}).ok());
  const auto exported = [&](const char* format) {
    return run({"export", "shop", "broken", "--format", format, "--output", "-"}).output;
  };
  EXPECT_EQ(exported("csv"),
            "URL,Status,Reason\r\nhttp://shop.test/a,404,Not Found\r\nhttp://shop.test/b,,\r\n");
  EXPECT_THAT(exported("html"), HasSubstr("<p><a href=\"http://shop.test/b\">http://shop.test/b</a></p>"));
  EXPECT_EQ(exported("txt"), "http://shop.test/a\nhttp://shop.test/b\n\n");
}

TEST_F(ExportCommand, SplitsAtTheLimit) {
  std::string entries;
  for (int i = 0; i < 50'001; ++i) entries += "<url></url>";
  writeXml(entries);
  EXPECT_THAT(run({"export", "shop", "xml", "--output", out("one.xml")}).errors,
              StartsWith("Warning: The sitemap is more than search engines take"));
  const auto result = run({"export", "shop", "xml", "--split", out("public")});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_THAT(result.output, HasSubstr(":\n  sitemap-1.xml sitemap-2.xml sitemap-index.xml\n"));
}

TEST_F(ExportCommand, SplitsIntoFilesThatAreValid) {
  scanned(2);
  Arguments split = {"export", "shop", "xml", "--split", out("public")};
  EXPECT_EQ(run(split).exitCode, 0);
  EXPECT_EQ(run({"validate", out("public/sitemap-index.xml")}).exitCode, 0);
  EXPECT_EQ(run(split).exitCode, 4);  // they exist now
  split.insert(split.end(), {"--gzip", "--force"});
  EXPECT_EQ(run(split).exitCode, 0);
  EXPECT_EQ(run({"validate", out("public/sitemap-1.xml.gz")}).output,
            out("public/sitemap-1.xml.gz") + " is valid: 2 entries.\n");
  EXPECT_THAT(read(out("public/sitemap-index.xml")), HasSubstr("/sitemap-1.xml.gz</loc>"));
  EXPECT_THAT(run({"export", "shop", "xml", "--gzip", "--output", "-"}).output, StartsWith("\x1F\x8B"));
}

TEST_F(ExportCommand, WritesAndJudgesEditedSitemapsAsTheyArePublished) {
  writeXml(
      "\n\t<url>\n\t\t<loc>http://shop.test/a b?a=1&b=2</loc>\n\t\t<lastmod></lastmod>"
      "\n\t\t<priority>0.5</priority>\n\t</url>");
  EXPECT_THAT(run({"validate", "shop"}).output, HasSubstr("is valid: 1 entry."));
  EXPECT_THAT(run({"validate", data() / "shop/sitemap.xml"}).output, HasSubstr("is not valid: 2 faults."));
  EXPECT_EQ(run({"export", "shop", "xml", "--output", out("map.xml")}).errors, "");
  EXPECT_EQ(run({"validate", out("map.xml")}).exitCode, 0);
}

TEST_F(ExportCommand, PrintsTheFirstHundredFaults) {
  std::string entries;
  for (int i = 0; i < 102; ++i) {
    entries += sitemaps::xmlEntry("http://shop.test/" + std::to_string(i), "\x1B[2J");
  }
  writeXml(entries);
  const auto first = run({"validate", "shop"});
  EXPECT_EQ(first.exitCode, 1);
  EXPECT_THAT(first.output, StartsWith("entry 1, lastmod: "));
  EXPECT_THAT(first.output, testing::Not(HasSubstr("\x1B")));
  EXPECT_THAT(first.output, HasSubstr("and 2 more; --all prints all.\n"));
  EXPECT_THAT(first.output, HasSubstr("is not valid: 102 faults.\n"));
  const std::string all = run({"validate", "--all", "shop"}).output;
  EXPECT_EQ(std::count(first.output.begin(), first.output.end(), '\n'), 102);
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 103);
}

TEST_F(ExportCommand, WarnsOfTextThatABrowserMayRun) {
  write("shop/sitemap3c.html", "<a href=\"java<!-- LINKID: 1 -->script:x\">T</a>");
  const auto result = run({"export", "shop", "html", "--output", "-"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output, "<a href=\"javascript:x\">T</a>");  // what is published counts, not what it was
  EXPECT_THAT(result.errors, StartsWith("Warning: The sitemap holds text that a browser may run"));
  scanned(1);
  EXPECT_EQ(run({"export", "shop", "html", "--output", "-"}).errors, "");
}

TEST_F(ExportCommand, ValidatesCompressedFilesAndIndexes) {
  const auto validate = [&](const std::string& text) {
    EXPECT_TRUE(platform::replaceFile(out("file"), text).ok());
    return run({"validate", out("file")});
  };
  const std::string index = sitemaps::sitemapIndex("http://shop.test/", 2, sitemaps::Compression::none);
  EXPECT_THAT(validate(*platform::gzipped(index)).output, HasSubstr(" is valid: a sitemap index.\n"));
  EXPECT_THAT(validate("<sitemapindex/>").output, StartsWith("sitemap, sitemapindex: The namespace is"));
  auto result = validate(*platform::gzipped(std::string(sitemaps::kMaxSitemapBytes + 1, ' ')));
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.output, StartsWith("sitemap: Unpacked, the file is larger than 50 MB"));
  result = validate("\x1F\x8B\x08");
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_EQ(result.errors, "Could not unpack " + out("file") + ": the file is damaged or cut off\n");
}

TEST_F(ExportCommand, FaultsAreToldAndNothingIsWritten) {
  scanned(1);
  write("shop/sitemap2c.html", "\xFF");
  prepare({"add", "new", "n.test"});
  write("none/none.qzVSK", store::newSiteRecord("none", ""));
  write("none/sitemap.xml", "<urlset><url/></urlset>");
  const std::string file = out("out");
  const std::string toFile = " --output " + file;
  struct Case {
    const char* name;
    std::string command;
    int exitCode;
    const char* error;
  };
  const Case cases[] = {
      {"unknown site", "export x xml" + toFile, 2, "There is no site named \"x\"."},
      {"no output", "export shop xml", 2, "--output is required"},
      {"two outputs", "export shop xml --split " + file + toFile, 2, "--split takes the place"},
      {"split HTML", "export shop html --split " + file, 2, "--split is for the XML sitemap."},
      {"compressed HTML", "export shop html --gzip" + toFile, 2, "--gzip is for"},
      {"layout of XML", "export shop xml --layout 3c" + toFile, 2, "--layout is for"},
      {"format of XML", "export shop xml --format txt" + toFile, 2, "--format is for"},
      {"not scanned", "export new xml" + toFile, 4, "The sitemap you are trying to export could not"},
      {"no list yet", "export new broken" + toFile, 4, "The site \"new\" has not been scanned yet."},
      {"not UTF-8", "export shop html --layout 2c" + toFile, 4, "An error has occurred while"},
      {"a folder in the way", "export shop xml --force --output " + out(""), 4, "Could not write "},
      {"no folder to split into", "export shop xml --split " + file + "/a/b", 4, "Could not make "},
      {"no URL for the index", "export none xml --split " + file, 4, "The site has no URL"},
      {"validate nothing", "validate " + file, 2, "There is no site and no file named "},
      {"validate a folder", "validate " + out(""), 4, "Could not read "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto result = run(words(c.command));
    EXPECT_EQ(result.exitCode, c.exitCode);
    EXPECT_THAT(result.errors, StartsWith(c.error));
    EXPECT_EQ(result.output, "");
    EXPECT_FALSE(platform::somethingAt(file));
  }
  EXPECT_EQ(run({"export", "shop", "xml", "--output", ""}).errors, "The file has no name.\n");
}

TEST_F(ExportCommand, AScanIsNotDisturbed) {
  scanned(1);
  const platform::FolderLock lock(data() / "shop");
  for (const char* command : {"export shop html --output -", "export shop xml --output -",
                              "export shop broken --output -", "validate shop"}) {
    const auto result = run(words(command));
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "The site \"shop\" is being scanned.\n");
  }
}

}  // namespace
