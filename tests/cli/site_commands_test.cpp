// The built program, run as its users run it.
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "platform/files.h"
#include "store/broken_reasons.h"
#include "store/global_controls.h"
#include "store/site_record.h"
#include "store/site_settings.h"
#include "support/run_program.h"
#include "support/site_server.h"
#include "support/temp_folder.h"

namespace {

using support::ProgramResult;
using support::StandardInput;
using testing::HasSubstr;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

class SiteCommands : public testing::Test {
 protected:
  ProgramResult run(const Arguments& arguments, const std::string& input = "",
                    StandardInput inputFrom = StandardInput::file) const {
    const std::map<std::string, std::string> environment = {{"HOME", home.path()}, {"XDG_STATE_HOME", state}};
    return support::runProgram(VESKEL_CLI, arguments, {environment, input, inputFrom});
  }

  /// What has to go well for a test to begin.
  void prepare(const Arguments& arguments) const {
    const auto result = run(arguments);
    ASSERT_EQ(result.exitCode, 0) << result.errors;
  }

  std::filesystem::path data() const { return controls.homeFolderLocation(); }

  void write(const std::string& file, const std::string& text) const {
    std::filesystem::create_directories((data() / file).parent_path());
    ASSERT_TRUE(platform::replaceFile(data() / file, text).ok());
  }

  std::string read(const std::string& file) const { return platform::readFile(data() / file).text; }

  /// Every file below the data folder with its text.
  std::map<std::string, std::string> snapshot() const {
    std::map<std::string, std::string> files;
    for (const std::string& file : platform::filesBelow(data())) files[file] = read(file);
    return files;
  }

  support::TempFolder home;
  std::string state = home.path() / "state";
  store::GlobalControls controls{home.path()};
  store::BrokenReasons reasons{store::StateFolder(state)};
};

TEST_F(SiteCommands, AddStoresTheCompletedUrl) {
  const auto result = run({"add", "my shop", "a.test/x y"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output, "my shop: http://a.test/x%20y/\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(read("my shop/my shop.qzVSK"), store::newSiteRecord("my shop", "http://a.test/x%20y/"));
}

TEST_F(SiteCommands, BadInputIsNamedAndChangesNothing) {
  prepare({"add", "shop", "a.test"});
  prepare({"add", "other", "b.test"});
  prepare({"filters", "shop", "--add", "/a"});
  const auto before = snapshot();
  struct Case {
    const char* name;
    Arguments arguments;
    const char* error;  // the beginning of stderr
  };
  const char* const kForbidden = "The site name cannot contain the following characters: / \\ . or ?\n";
  const char* const kUnknown = "There is no site named \"none\".\n";
  const Case cases[] = {
      {"all rules",
       {"add", "a.b", "ftp://x"},
       "The site name cannot contain the following characters: / \\ . or ?\n"
       "URLs must begin http:// or https://\nftp:// etc scans are"},
      {"taken name",
       {"add", "shop", "c.test"},
       "The site you are trying to create already exists, please select"},
      {"line break in a name", {"add", "a\nb", "c.test"}, "A site's name and URL cannot contain"},
      {"line break in a URL",
       {"edit", "shop", "--url", "http://a\n</siteURL>"},
       "A site's name and URL cannot"},
      {"name that is no UTF-8", {"add", "a\xFF", "c.test"}, "A site's name and URL cannot contain"},
      {"rename to a taken name",
       {"edit", "shop", "--name", "other", "--url", "c.test", "--ignore-robots", "yes"},
       "A site with the name \"other\" already exists, please delete this site first or select a different "
       "name."},
      {"rename out of the folder", {"edit", "shop", "--name", "../x"}, kForbidden},
      {"blank URL", {"edit", "shop", "--url", ""}, "The site URL field cannot be left blank.\n"},
      {"nothing to edit", {"edit", "shop"}, "There is nothing to change"},
      {"unknown robots answer", {"edit", "shop", "--ignore-robots", "maybe"}, "--ignore-robots: "},
      {"delete an unknown site", {"delete", "none", "--yes"}, kUnknown},
      {"delete out of the folder",
       {"delete", "shop/../other", "--yes"},
       "There is no site named \"shop/../other\"."},
      {"delete without being asked", {"delete", "shop"}, "Nobody can be asked here"},
      {"empty filter",
       {"filters", "shop", "--add", "/b", "--add", ""},
       "Cannot Add Filter: There is nothing to add!\n"},
      {"filter that is not there",
       {"filters", "shop", "--add", "/b", "--delete", "/a", "--delete", "/A"},
       "There is no filter \"/A\". Nothing was changed.\n"},
      {"show an unknown site", {"show", "none\x1B[2J"}, "There is no site named \"none\uFFFD[2J\".\n"},
      {"where is an unknown site", {"where", "none"}, kUnknown},
      {"scan an unknown site", {"scan", "none"}, kUnknown},
      {"too many connections", {"scan", "shop", "--connections", "65"}, "--connections: "},
      {"no pages", {"scan", "shop", "--max-pages", "-1"}, "--max-pages: "},
      {"unknown loop answer", {"scan", "shop", "--loops", "maybe"}, "--loops: "},
      {"unknown progress", {"scan", "shop", "--progress", "0"}, "--progress: "},
      {"unknown command", {"sties"}, "Unknown command: sties\n"},
      {"unknown option", {"--sites"}, "Unknown command: --sites\n"},
      {"no command", {}, "A subcommand is required"},
      {"one name too many", {"show", "shop", "other"}, "The following argument was not expected: other"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto result = run(c.arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.errors, StartsWith(c.error));
    EXPECT_NE(result.errors, "");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(snapshot(), before);
  }
}

TEST_F(SiteCommands, SitesAreListedForPeopleAndPrograms) {
  const auto none = run({"sites"});
  EXPECT_EQ(none.exitCode, 0);
  EXPECT_EQ(none.output, "");
  EXPECT_THAT(none.errors, HasSubstr("There are no sites yet."));
  EXPECT_EQ(run({"sites", "--json"}).output, "[]\n");

  prepare({"add", "B\u00FCcher", "a.test"});
  write("Bad/Bad.qzVSK", "<siteURL>http://b.test/\x1B[2J</siteURL>\n<totalLinks>1234567</totalLinks>");
  write("Bad/badLinks.txt", "http://b.test/1\nhttp://b.test/2\n");
  EXPECT_EQ(run({"sites"}).output,
            "NAME    URL                 PAGES    LINKS  USED  BROKEN\n"
            "Bad     http://b.test/\uFFFD[2J      0  1234567     0       2\n"
            "B\u00FCcher  http://a.test/          0        0     0       0\n");
  const auto json = nlohmann::json::parse(run({"sites", "--json"}).output);
  ASSERT_EQ(json.size(), 2u);
  EXPECT_EQ(json[0]["url"], "http://b.test/\x1B[2J");
  EXPECT_EQ(json[0]["totalLinks"], 1234567);
  EXPECT_EQ(json[0]["broken"], 2);
  EXPECT_EQ(json[1]["name"], "B\u00FCcher");
}

TEST_F(SiteCommands, UnreadableRecordsDoNotHideTheOthers) {
  prepare({"add", "good", "a.test"});
  write("odd/record.qzVSK", "x");  // not where the site's record belongs
  const auto result = run({"sites"});
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_THAT(result.output, HasSubstr("http://a.test/"));
  EXPECT_THAT(result.output, HasSubstr("\nodd\n"));
  EXPECT_THAT(result.errors, HasSubstr("odd/odd.qzVSK: No such file"));
  EXPECT_EQ(run({"show", "odd"}).exitCode, 4);
}

TEST_F(SiteCommands, EveryCommandUpgradesOlderRecords) {
  write("old/old.qzvsk", "<siteName>old</siteName>\n<siteURL>http://a.test/</siteURL>\n");
  write("bad\x07/bad.qzvsk", "no record");
  const auto result = run({"where", "old"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output, (data() / "old\n").native());
  EXPECT_THAT(result.errors, HasSubstr("bad\uFFFD/bad.qzvsk: It is not a site record."));
  EXPECT_EQ(read("old/old.qzVSK"), store::newSiteRecord("old", "http://a.test/"));
}

TEST_F(SiteCommands, EditChangesOnlyWhatIsGiven) {
  prepare({"add", "shop", "a.test"});
  ASSERT_TRUE(reasons.save("shop", {{"http://a.test/x", "404 - Not Found"}}).ok());

  EXPECT_EQ(run({"edit", "shop", "--url", "b.test"}).output, "shop: http://b.test/\n");
  EXPECT_EQ(read("shop/shop.qzVSK"), store::newSiteRecord("shop", "http://b.test/"));
  EXPECT_EQ(run({"edit", "shop", "--ignore-robots", "yes"}).output,
            "shop: http://b.test/ (robots.txt ignored)\n");
  EXPECT_EQ(run({"edit", "shop", "--name", "Shop", "--ignore-robots", "no"}).output,
            "Shop: http://b.test/\n");
  EXPECT_EQ(read("Shop/Shop.qzVSK"), store::newSiteRecord("Shop", "http://b.test/"));
  EXPECT_EQ(snapshot().size(), 1u);
  EXPECT_EQ(reasons.lookUp("Shop", {"http://a.test/x"})[0].reason, "404 - Not Found");
}

TEST_F(SiteCommands, SettingsCountUntilAScanIsToldOtherwise) {
  const support::SiteServer server(
      {{"/", {"<a href='a.html'>A</a><a href='b.html'>B</a>"}}, {"/a.html", {"A"}}, {"/b.html", {"B"}}});
  prepare({"add", "shop", server.url(), "--max-pages", "2"});
  EXPECT_THAT(run({"edit", "shop", "--name", "store", "--connections", "1"}).output,
              HasSubstr(" (--max-pages 2 --connections 1)\n"));
  EXPECT_THAT(run({"show", "store"}).output, HasSubstr("\nSettings:    --max-pages 2 --connections 1\n"));
  EXPECT_THAT(run({"scan", "store"}).output, HasSubstr(" after 2 of 3 pages"));
  EXPECT_THAT(run({"scan", "store", "--max-pages", "0"}).output, HasSubstr("Scanned \"store\""));

  prepare({"edit", "store", "--max-pages", "0"});
  EXPECT_EQ(nlohmann::json::parse(run({"show", "store", "--json"}).output)["settings"],
            nlohmann::json::parse(R"({"max-pages": 0, "connections": 1})"));
  ASSERT_TRUE(platform::replaceFile(store::settingsFile(reasons.state(), "store"), "connections 0\n").ok());
  EXPECT_THAT(run({"scan", "store"}).errors, HasSubstr("\"connections\" was ignored: it has to be 1 to 64."));
}

TEST_F(SiteCommands, DeleteAsksOnATerminal) {
  prepare({"add", "shop", "a.test"});
  ASSERT_TRUE(reasons.save("shop", {{"u", "404 - Not Found"}}).ok());
  for (const char* answer : {"\n", "n\n", "yep\n", "\x04"}) {
    SCOPED_TRACE(answer);
    const auto refused = run({"delete", "shop"}, answer, StandardInput::terminal);
    EXPECT_EQ(refused.exitCode, 0);
    EXPECT_THAT(refused.errors, StartsWith("Do you really want to delete the site:\nshop\n[y/N] "));
    EXPECT_EQ(snapshot().size(), 1u);
  }
  EXPECT_EQ(run({"delete", "shop"}, "Yes\n", StandardInput::terminal).exitCode, 0);
  EXPECT_FALSE(platform::somethingAt(data() / "shop"));
  EXPECT_EQ(reasons.lookUp("shop", {"u"})[0].reason, "");

  prepare({"add", "shop", "a.test"});
  EXPECT_EQ(run({"delete", "shop", "--yes"}).output, "Deleted shop.\n");
  EXPECT_FALSE(platform::somethingAt(data() / "shop"));
}

TEST_F(SiteCommands, FiltersAreListedAddedAndDeleted) {
  prepare({"add", "shop", "a.test"});
  EXPECT_THAT(run({"filters", "shop"}).errors, HasSubstr("The site has no filters."));
  const auto added = run({"filters", "shop", "--add", " /a ", "--add", "{}", "--add", "[x,y]", "--add", "/b",
                          "--add", "/b", "--add=--c\n"});
  EXPECT_EQ(added.exitCode, 0) << added.errors;
  EXPECT_EQ(read("shop/filters.vskp"), " /a \n{}\n[x,y]\n/b\n/b\n--c\n");
  EXPECT_EQ(added.output, read("shop/filters.vskp"));
  EXPECT_EQ(run({"filters", "shop", "--add", "/d", "--delete", "/b", "--delete", "{}"}).output,
            " /a \n[x,y]\n/b\n--c\n/d\n");
  EXPECT_EQ(run({"filters", "shop"}).output, read("shop/filters.vskp"));
}

TEST_F(SiteCommands, ShowTellsWhyPagesAreBroken) {
  prepare({"add", "shop", "a.test"});
  write("shop/badLinks.txt", "http://a.test/1\nhttp://a.test/2\n");
  ASSERT_TRUE(reasons.save("shop", {{"http://a.test/2", "404 - Not\x1B Found"}}).ok());
  const auto before = snapshot();
  const auto text = run({"show", "shop"}).output;
  EXPECT_THAT(text, HasSubstr("URL:         http://a.test/\nrobots.txt:  obeyed\n"));
  EXPECT_THAT(text, HasSubstr("  http://a.test/1\n  http://a.test/2\n      404 - Not\uFFFD Found\n"));

  const auto json = nlohmann::json::parse(run({"show", "shop", "--json"}).output);
  EXPECT_EQ(json["broken"], nlohmann::json::parse(R"([{"url": "http://a.test/1", "reason": null},
      {"url": "http://a.test/2", "reason": "404 - Not\u001b Found"}])"));
  EXPECT_EQ(json["ignoreRobots"], false);
  EXPECT_EQ(snapshot(), before);
}

TEST_F(SiteCommands, NamesOfCommandsAndOptionsCanBeSites) {
  prepare({"add", "sites", "a.test"});
  prepare({"add", "--", "--json", "b.test"});
  EXPECT_EQ(run({"where", "sites"}).output, (data() / "sites\n").native());
  EXPECT_THAT(run({"show", "--", "--json"}).output, HasSubstr("http://b.test/"));
}

TEST_F(SiteCommands, HelpAndVersionNeedNoDataFolder) {
  for (const Arguments& arguments : {Arguments{"--help"}, {"--version"}, {"scan", "--help"}}) {
    const auto result = run(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output, HasSubstr("veskel-cli"));
    EXPECT_EQ(result.errors, "");
  }
  EXPECT_FALSE(platform::somethingAt(home.path() / "Library"));
}

}  // namespace
