// Exports and checks by the built program, as scripts run it.
#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/files.h"
#include "platform/gzip.h"
#include "sitemaps/html_format.h"
#include "sitemaps/layouts.h"
#include "sitemaps/split_sitemaps.h"
#include "sitemaps/xml_format.h"
#include "store/broken_reasons.h"
#include "store/global_controls.h"
#include "store/site_record.h"
#include "support/run_program.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using support::ProgramResult;
using testing::HasSubstr;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

class ExportCommand : public testing::Test {
 protected:
  ExportCommand() {
    fs::create_directories(folder());
    put("shop.qzVSK", store::newSiteRecord("shop", "http://shop.test/"));
  }

  ProgramResult run(const Arguments& arguments) const {
    const std::map<std::string, std::string> environment = {{"HOME", home.path()}, {"XDG_STATE_HOME", state}};
    return support::runProgram(VESKEL_CLI, arguments, {environment});
  }

  fs::path folder() const { return controls.siteFolder("shop"); }
  void put(const std::string& name, const std::string& text) const {
    ASSERT_TRUE(platform::replaceFile(folder() / name, text).ok());
  }
  std::string out(const std::string& name) const { return home.path() / name; }
  std::string read(const std::string& name) const {
    const platform::FileContent content = platform::readFile(home.path() / name);
    return content.result.ok() ? content.text : "(missing)";
  }
  /// Sitemaps as a scan of so many pages leaves them.
  void scanned(std::size_t pages) const {
    std::string xml(sitemaps::kXmlHeader);
    for (std::size_t i = 0; i < pages; ++i)
      xml += sitemaps::xmlEntry("http://shop.test/" + std::to_string(i), "");
    put("sitemap.xml", xml + std::string(sitemaps::kXmlClosing));
    for (const sitemaps::Layout& layout : sitemaps::kLayouts) {
      put(std::string(layout.fileName),
          std::string(layout.fileName) + sitemaps::pageEntry("http://shop.test/", 7, "T\xC3\xA9"));
    }
  }

  support::TempFolder home;
  std::string state = home.path() / "state";
  store::GlobalControls controls{home.path()};
};

TEST_F(ExportCommand, EachLayoutComesWithoutMarkers) {
  scanned(1);
  for (const std::string layout : {"3c", "2c", "1c", "3cpo", "2cpo", "1cpo"}) {
    const auto result = run({"export", "shop", "html", "--layout", layout, "--output", "-"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(
        result.output,
        "sitemap" + layout +
            ".html\n\t\t\t<div class=\"vskPageTitle\"><a href=\"http://shop.test/\">T\xC3\xA9</a></div>");
  }
  EXPECT_THAT(run({"export", "shop", "html", "--output", "-"}).output, StartsWith("sitemap3c.html"));
}

TEST_F(ExportCommand, WritesAFileAndReplacesItOnlyByForce) {
  scanned(1);
  const Arguments arguments = {"export", "shop", "xml", "--output", out("map.xml")};
  auto result = run(arguments);
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output, "Written to " + out("map.xml") + "\n");
  EXPECT_THAT(read("map.xml"), HasSubstr("\n\t\t<loc>http://shop.test/0</loc>\n\t\t<changefreq>monthly"));
  scanned(2);
  const std::string before = read("map.xml");
  result = run(arguments);
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_EQ(result.errors, out("map.xml") + " exists already; --force replaces it.\n");
  EXPECT_EQ(read("map.xml"), before);
  Arguments forced = arguments;
  forced.emplace_back("--force");
  EXPECT_EQ(run(forced).exitCode, 0);
  EXPECT_THAT(read("map.xml"), HasSubstr("http://shop.test/1"));
}

TEST_F(ExportCommand, BrokenPagesInEachFormat) {
  put("badLinks.txt", "http://shop.test/a\nhttp://shop.test/b\n");
  ASSERT_TRUE(store::BrokenReasons(store::StateFolder(state))
                  .save("shop", {{"http://shop.test/a", "404 - Not Found"}})
                  .ok());
  const auto exported = [&](const char* format) {
    return run({"export", "shop", "broken", "--format", format, "--output", "-"}).output;
  };
  EXPECT_EQ(exported("txt"), "http://shop.test/a\nhttp://shop.test/b\n\n");
  EXPECT_EQ(exported("csv"),
            "URL,Status,Reason\r\nhttp://shop.test/a,404,Not Found\r\nhttp://shop.test/b,,\r\n");
  EXPECT_THAT(exported("html"),
              HasSubstr("<p><a href=\"http://shop.test/b\">http://shop.test/b</a></p>\n</body>\n</html>\n"));
  EXPECT_EQ(run({"export", "shop", "broken", "--output", "-"}).output, exported("txt"));
}

TEST_F(ExportCommand, SplitsAtTheLimitIntoFilesThatAreValid) {
  scanned(50'001);
  const auto whole = run({"export", "shop", "xml", "--output", out("one.xml")});
  EXPECT_EQ(whole.exitCode, 0);
  EXPECT_THAT(whole.errors, StartsWith("Warning: The sitemap is more than search engines take"));
  const Arguments split = {"export", "shop", "xml", "--split", out("public")};
  const auto result = run(split);
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output,
            "Written to " + out("public") + ":\n  sitemap-1.xml sitemap-2.xml sitemap-index.xml\n");
  EXPECT_EQ(sitemaps::sitemapEntries(read("public/sitemap-1.xml")).size(), 50'000u);
  EXPECT_EQ(sitemaps::sitemapEntries(read("public/sitemap-2.xml")).size(), 1u);
  EXPECT_THAT(read("public/sitemap-index.xml"), HasSubstr("<loc>http://shop.test/sitemap-2.xml</loc>"));
  for (const char* file : {"sitemap-1.xml", "sitemap-2.xml", "sitemap-index.xml"}) {
    const auto valid = run({"validate", out("public/") + file});
    EXPECT_EQ(valid.exitCode, 0) << valid.output;
  }
  EXPECT_EQ(run({"validate", out("one.xml")}).exitCode, 1);
  EXPECT_EQ(run(split).exitCode, 4);  // they exist now

  const auto zipped = run({"export", "shop", "xml", "--split", out("public"), "--gzip", "--force"});
  EXPECT_EQ(zipped.exitCode, 0) << zipped.errors;
  EXPECT_EQ(run({"validate", out("public/sitemap-1.xml.gz")}).output,
            out("public/sitemap-1.xml.gz") + " is valid: 50000 entries.\n");
  EXPECT_THAT(read("public/sitemap-index.xml"), HasSubstr("<loc>http://shop.test/sitemap-2.xml.gz</loc>"));
  EXPECT_THAT(run({"export", "shop", "xml", "--gzip", "--output", "-"}).output, StartsWith("\x1F\x8B"));
}

TEST_F(ExportCommand, WritesAndJudgesEditedSitemapsAsTheyArePublished) {
  put("sitemap.xml", std::string(sitemaps::kXmlHeader) +
                         "\n\t<url>\n\t\t<loc>http://shop.test/a b?a=1&b=2</loc>\n\t\t<lastmod></lastmod>"
                         "\n\t\t<priority>0.5</priority>\n\t</url>" +
                         std::string(sitemaps::kXmlClosing));
  EXPECT_THAT(run({"validate", "shop"}).output, HasSubstr("is valid: 1 entry."));
  EXPECT_THAT(run({"validate", (folder() / "sitemap.xml").native()}).output,
              HasSubstr("is not valid: 2 faults."));
  for (const Arguments& output : {Arguments{"--output", out("map.xml")}, {"--split", out("public")}}) {
    Arguments arguments = {"export", "shop", "xml"};
    arguments.insert(arguments.end(), output.begin(), output.end());
    const auto result = run(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
  }
  EXPECT_EQ(run({"validate", out("map.xml")}).exitCode, 0);
  EXPECT_EQ(run({"validate", out("public/sitemap-1.xml")}).exitCode, 0);
}

TEST_F(ExportCommand, PrintsTheFirstHundredFaults) {
  std::string faulty(sitemaps::kXmlHeader);
  for (int i = 0; i < 102; ++i) faulty += sitemaps::xmlEntry("http://shop.test/" + std::to_string(i), "soon");
  put("sitemap.xml", faulty + std::string(sitemaps::kXmlClosing));
  const auto lines = [&](const Arguments& arguments) {
    const std::string output = run(arguments).output;
    EXPECT_THAT(output, HasSubstr("is not valid: 102 faults.\n"));
    return std::count(output.begin(), output.end(), '\n');
  };
  EXPECT_EQ(lines({"validate", "shop"}), 102);  // a hundred, that there are more, and the count
  EXPECT_THAT(run({"validate", "shop"}).output, HasSubstr("and 2 more; --all prints all.\n"));
  EXPECT_EQ(lines({"validate", "--all", "shop"}), 103);
}

TEST_F(ExportCommand, WarnsOfTextThatABrowserMayRun) {
  const std::string text = "<a href=\"java<!-- LINKID: 1 -->script:x\">T</a>";
  put("sitemap3c.html", text);
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
  EXPECT_EQ(validate(index).output, out("file") + " is valid: a sitemap index.\n");
  EXPECT_EQ(validate(platform::gzipped(index).value_or("")).exitCode, 0);
  auto result = validate("<sitemapindex><sitemap><loc>x</loc></sitemap></sitemapindex>");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.output, HasSubstr("sitemap, sitemapindex: The namespace is missing"));

  result = validate(platform::gzipped(std::string(sitemaps::kMaxSitemapBytes + 1, ' ')).value_or(""));
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.output, "sitemap: Unpacked, the file is larger than 50 MB (52,428,800 bytes)\n" +
                               out("file") + " is not valid: 1 fault.\n");
  result = validate("\x1F\x8B\x08");
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_EQ(result.errors, "Could not unpack " + out("file") + ": the file is damaged or cut off\n");
}

TEST_F(ExportCommand, FaultsAreToldAndNothingIsWritten) {
  scanned(1);
  put("sitemap2c.html", "\xFF");
  fs::remove(folder() / "sitemap1c.html");
  fs::create_directories(controls.siteFolder("new"));
  ASSERT_TRUE(
      platform::replaceFile(controls.returnFullFileLocation("new"), store::newSiteRecord("new", "http://n/"))
          .ok());
  fs::create_directories(controls.siteFolder("none"));
  ASSERT_TRUE(
      platform::replaceFile(controls.returnFullFileLocation("none"), store::newSiteRecord("none", "")).ok());
  ASSERT_TRUE(
      platform::replaceFile(controls.siteFolder("none") / "sitemap.xml", "<urlset><url/></urlset>").ok());
  const std::string file = out("out");
  struct Case {
    const char* name;
    Arguments arguments;
    int exitCode;
    const char* error;
  };
  const char* const kMissing = "The sitemap you are trying to export could not be found, please make sure";
  const Case cases[] = {
      {"unknown site", {"export", "x", "xml", "--output", file}, 2, "There is no site named \"x\"."},
      {"unknown kind", {"export", "shop", "pdf", "--output", file}, 2, "KIND: "},
      {"unknown layout", {"export", "shop", "html", "--layout", "4c", "--output", file}, 2, "--layout: "},
      {"unknown format", {"export", "shop", "broken", "--format", "xml", "--output", file}, 2, "--format: "},
      {"no output", {"export", "shop", "xml"}, 2, "--output is required"},
      {"empty output", {"export", "shop", "xml", "--output", ""}, 2, "The file has no name."},
      {"two outputs",
       {"export", "shop", "xml", "--output", file, "--split", file},
       2,
       "--split takes the place"},
      {"split HTML", {"export", "shop", "html", "--split", file}, 2, "--split is for the XML sitemap."},
      {"compressed HTML", {"export", "shop", "html", "--gzip", "--output", file}, 2, "--gzip is for"},
      {"layout of XML", {"export", "shop", "xml", "--layout", "3c", "--output", file}, 2, "--layout is for"},
      {"format of XML", {"export", "shop", "xml", "--format", "txt", "--output", file}, 2, "--format is for"},
      {"a missing layout", {"export", "shop", "html", "--layout", "1c", "--output", file}, 4, kMissing},
      {"not scanned", {"export", "new", "xml", "--output", file}, 4, kMissing},
      {"no list yet",
       {"export", "new", "broken", "--output", file},
       4,
       "The site \"new\" has not been scanned yet."},
      {"not UTF-8",
       {"export", "shop", "html", "--layout", "2c", "--output", file},
       4,
       "An error has occurred while"},
      {"a folder in the way",
       {"export", "shop", "xml", "--force", "--output", home.path()},
       4,
       "Could not write "},
      {"no such folder", {"export", "shop", "xml", "--output", file + "/a/b"}, 4, "Could not write "},
      {"no folder to split into", {"export", "shop", "xml", "--split", file + "/a/b"}, 4, "Could not make "},
      {"no URL for the index", {"export", "none", "xml", "--split", file}, 4, "The site has no URL"},
      {"validate nothing", {"validate", file}, 2, "There is no site and no file named "},
      {"validate a folder", {"validate", home.path()}, 4, "Could not read "},
      {"validate what was not scanned", {"validate", "new"}, 4, "Could not read "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto result = run(c.arguments);
    EXPECT_EQ(result.exitCode, c.exitCode);
    EXPECT_THAT(result.errors, StartsWith(c.error));
    EXPECT_EQ(result.output, "");
    EXPECT_FALSE(fs::exists(file));
  }
}

TEST_F(ExportCommand, AScanIsNotDisturbed) {
  scanned(1);
  const platform::FolderLock lock(folder());
  for (const Arguments& arguments :
       {Arguments{"export", "shop", "html", "--output", "-"},
        Arguments{"export", "shop", "xml", "--output", "-"},
        Arguments{"export", "shop", "broken", "--output", "-"}, Arguments{"validate", "shop"}}) {
    const auto result = run(arguments);
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "The site \"shop\" is being scanned.\n");
  }
}

TEST_F(ExportCommand, ValidatesASiteAndItsExport) {
  scanned(2);
  auto result = run({"validate", "shop"});
  EXPECT_EQ(result.exitCode, 0) << result.output;
  EXPECT_THAT(result.output, HasSubstr("sitemap.xml is valid: 2 entries.\n"));
  ASSERT_EQ(run({"export", "shop", "xml", "--output", out("map.xml")}).exitCode, 0);
  EXPECT_EQ(run({"validate", out("map.xml")}).exitCode, 0);

  put("sitemap.xml", std::string(sitemaps::kXmlHeader) + sitemaps::xmlEntry("http://shop.test/", "") +
                         sitemaps::xmlEntry("http://other/\x1B[2J", "soon") +
                         std::string(sitemaps::kXmlClosing));
  result = run({"validate", "shop"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.output, HasSubstr("entry 2, lastmod: "));
  EXPECT_THAT(result.output, HasSubstr(" is not valid: "));
  EXPECT_THAT(result.output, testing::Not(HasSubstr("\x1B")));
}

}  // namespace
