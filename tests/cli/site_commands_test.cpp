// The built program, run as its users run it.
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include "store/site_record.h"
#include "support/program_test.h"
#include "support/site_server.h"

namespace {

using support::Arguments;
using support::StandardInput;
using support::words;
using testing::HasSubstr;
using testing::StartsWith;

using SiteCommands = support::ProgramTest;

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
  const Case cases[] = {
      {"all rules", words("add a.b ftp://x"),
       "The site name cannot contain the following characters: / \\ . or ?\n"
       "URLs must begin http:// or https://\nftp:// etc scans are"},
      {"taken name", words("add shop c.test"), "The site you are trying to create already exists, please"},
      {"line break in a name", {"add", "a\nb", "c.test"}, "A site's name and URL cannot contain"},
      {"name that is no UTF-8", words("add a\xFF c.test"), "A site's name and URL cannot contain"},
      {"rename to a taken name", words("edit shop --name other --url c.test --ignore-robots yes"),
       "A site with the name \"other\" already exists"},
      {"blank URL", {"edit", "shop", "--url", ""}, "The site URL field cannot be left blank.\n"},
      {"nothing to edit", words("edit shop"), "There is nothing to change"},
      {"delete out of the folder", words("delete shop/../other --yes"), "There is no site named \"shop/.."},
      {"delete without being asked", words("delete shop"), "Nobody can be asked here"},
      {"empty filter", {"filters", "shop", "--add", "/b", "--add", ""}, "Cannot Add Filter: There is"},
      {"filter that is not there", words("filters shop --add /b --delete /a --delete /A"),
       "There is no filter \"/A\". Nothing was changed.\n"},
      {"show an unknown site", words("show none\x1B[2J"), "There is no site named \"none\uFFFD[2J\".\n"},
      {"scan an unknown site", words("scan none"), "There is no site named \"none\".\n"},
      {"scan with an answer that is none", words("scan shop --loops stop"), "--loops: stop not in"},
      {"unknown command", words("sties"), "Unknown command: sties\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto result = run(c.arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.errors, StartsWith(c.error));
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(snapshot(), before);
  }
}

TEST_F(SiteCommands, SitesAreListedForPeopleAndPrograms) {
  const auto none = run({"sites"});
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
  EXPECT_EQ(json.at(0).at("url"), "http://b.test/\x1B[2J");
  EXPECT_EQ(json.at(0).at("broken"), 2);
  EXPECT_EQ(json.at(1).at("name"), "B\u00FCcher");
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
  EXPECT_EQ(result.output, (data() / "old\n").native());
  EXPECT_THAT(result.errors, HasSubstr("bad\uFFFD/bad.qzvsk: It is not a site record."));
  EXPECT_EQ(read("old/old.qzVSK"), store::newSiteRecord("old", "http://a.test/"));
}

TEST_F(SiteCommands, EditChangesOnlyWhatIsGiven) {
  EXPECT_EQ(run({"add", "shop", "a.test/x y"}).output, "shop: http://a.test/x%20y/\n");
  EXPECT_EQ(run(words("edit shop --url b.test")).output, "shop: http://b.test/\n");
  EXPECT_EQ(run(words("edit shop --ignore-robots yes")).output,
            "shop: http://b.test/ (robots.txt ignored)\n");
  EXPECT_EQ(run(words("edit shop --name Shop --ignore-robots no")).output, "Shop: http://b.test/\n");
  EXPECT_EQ(read("Shop/Shop.qzVSK"), store::newSiteRecord("Shop", "http://b.test/"));
}

TEST_F(SiteCommands, SettingsCountUntilAScanIsToldOtherwise) {
  const support::SiteServer server(
      {{"/", {"<a href='a.html'>A</a><a href='b.html'>B</a>"}}, {"/a.html", {"A"}}, {"/b.html", {"B"}}});
  prepare({"add", "shop", server.url(), "--max-pages", "2"});
  EXPECT_THAT(run(words("edit shop --name store --delay .01")).output,
              HasSubstr(" (--max-pages 2 --delay 0.01)\n"));
  EXPECT_THAT(run(words("show store")).output, HasSubstr("\nSettings:    --max-pages 2 --delay 0.01\n"));
  EXPECT_THAT(run(words("scan store")).output, HasSubstr(" after 2 of 3 pages"));
  EXPECT_THAT(run(words("scan store --max-pages 0")).output, HasSubstr("Scanned \"store\""));
  EXPECT_EQ(nlohmann::json::parse(run(words("show store --json")).output)["settings"]["delay"], 0.01);
}

TEST_F(SiteCommands, TextsAndLinesAreSettings) {
  prepare({"add", "--header", "A: 1", "shop", "h.test", "--user-agent", "it's me", "--header", "B: 2"});
  EXPECT_THAT(run(words("show shop")).output,
              HasSubstr("--user-agent 'it'\\''s me' --header 'A: 1' --header 'B: 2'\n"));
  EXPECT_THAT(run({"edit", "shop", "--header", "C: 3", "--user-agent", ""}).output,
              HasSubstr("(--header 'C: 3')\n"));
  EXPECT_EQ(run({"scan", "shop", "--header", "Host: x"}).exitCode, 2);
  EXPECT_THAT(run(words("show shop --json")).output, HasSubstr("\"C: 3\""));
  EXPECT_EQ(run({"edit", "shop", "--header", ""}).output, "shop: http://h.test/\n");
}

TEST_F(SiteCommands, DeleteAsksOnATerminal) {
  prepare({"add", "shop", "a.test"});
  for (const char* answer : {"\n", "n\n", "yep\n", "\x04"}) {
    const auto refused = run({"delete", "shop"}, answer, StandardInput::terminal);
    EXPECT_EQ(refused.exitCode, 0);
    EXPECT_THAT(refused.errors, StartsWith("Do you really want to delete the site:\nshop\n[y/N] "));
    EXPECT_EQ(snapshot().size(), 1u);
  }
  EXPECT_EQ(run({"delete", "shop"}, "Yes\n", StandardInput::terminal).exitCode, 0);
  EXPECT_FALSE(platform::somethingAt(data() / "shop"));
  prepare({"add", "shop", "a.test"});
  EXPECT_EQ(run({"delete", "shop", "--yes"}).output, "Deleted shop.\n");
  EXPECT_FALSE(platform::somethingAt(data() / "shop"));
}

TEST_F(SiteCommands, RestoreAsksAndPutsEditedSitemapsBack) {
  const support::SiteServer server(support::manyPages(2));
  prepare({"add", "shop", server.url()});
  prepare({"scan", "shop"}, 1);
  const auto nothing = run({"restore", "shop", "--yes"});
  EXPECT_EQ(nothing.exitCode, 2);
  EXPECT_THAT(nothing.errors, HasSubstr("there is nothing to restore"));
  EXPECT_THAT(run({"show", "shop"}).output, Not(HasSubstr("Kept:")));
  write("shop/sitemap.xml", "edited");
  EXPECT_THAT(run({"scan", "shop"}).output, HasSubstr("To put them back: veskel-cli restore \"shop\""));
  EXPECT_THAT(run({"show", "shop"}).output, HasSubstr("Kept:        the sitemaps of before"));
  EXPECT_THAT(run({"show", "shop", "--json"}).output, HasSubstr("\"formerSitemapsKept\": true"));
  EXPECT_EQ(run({"restore", "shop"}).exitCode, 2);
  EXPECT_THAT(run({"restore", "shop"}, "n\n", StandardInput::terminal).errors,
              HasSubstr("Nothing was changed."));
  EXPECT_NE(read("shop/sitemap.xml"), "edited");
  // What is kept goes where the site goes.
  prepare({"edit", "shop", "--name", "store"});
  {
    const platform::FolderLock lock(controls.siteFolder("store"));
    EXPECT_EQ(run({"restore", "store", "--yes"}).exitCode, 5);
  }
  EXPECT_EQ(run({"restore", "store"}, "y\n", StandardInput::terminal).exitCode, 0);
  EXPECT_EQ(read("store/sitemap.xml"), "edited");
}

TEST_F(SiteCommands, SwitchesMeanYesAlone) {
  const support::SiteServer server(support::manyPages(2));
  prepare({"add", "shop", server.url()});
  for (const char* yes :
       {"edit shop --keep-values", "edit --keep-values shop", "edit shop --keep-values yes"}) {
    SCOPED_TRACE(yes);
    EXPECT_THAT(run(words(yes)).output, HasSubstr("(--keep-values yes)"));
    EXPECT_THAT(run(words("edit --keep-values no shop")).output, Not(HasSubstr("keep-values")));
  }
  prepare({"scan", "shop"}, 1);
  std::string sitemap = read("shop/sitemap.xml");
  write("shop/sitemap.xml", sitemap.replace(sitemap.find("0.5"), 3, "0.9"));
  EXPECT_THAT(run({"scan", "shop", "--keep-values"}).output,
              HasSubstr("\nTaken over from the sitemap before: 1 edited value\n"));
  EXPECT_EQ(read("shop/sitemap.xml"), sitemap);
  EXPECT_THAT(run({"scan", "shop", "--keep-values", "--progress", "json"}).output,
              HasSubstr("\"valuesTakenOver\":1"));
}

TEST_F(SiteCommands, FiltersAreListedAddedAndDeleted) {
  prepare({"add", "shop", "a.test"});
  EXPECT_THAT(run({"filters", "shop"}).errors, HasSubstr("The site has no filters."));
  const auto added = run({"filters", "shop", "--add", " /a ", "--add", "{}", "--add", "[x,y]", "--add", "/b",
                          "--add", "/b", "--add=--c\n"});
  EXPECT_EQ(read("shop/filters.vskp"), " /a \n{}\n[x,y]\n/b\n/b\n--c\n");
  EXPECT_EQ(added.output, read("shop/filters.vskp"));
  EXPECT_EQ(run({"filters", "shop", "--add", "/d", "--delete", "/b", "--delete", "{}"}).output,
            " /a \n[x,y]\n/b\n--c\n/d\n");
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
  EXPECT_EQ(snapshot(), before);
}

TEST_F(SiteCommands, WhatAScanLeavesOutIsToldThenAndLater) {
  const support::SiteServer server(support::SiteServer::Pages{
      {"/", {"<a href='a&#9;b.v.html'>A</a><a href='c?x'>C</a><a href='//'>D</a>"}}});
  prepare({"add", "shop", server.url()});
  EXPECT_THAT(run(words("show shop --left-out")).errors, StartsWith("Nothing is known"));
  prepare(words("filters shop --add ?"));
  const std::string sentence = "\nLeft out: 1 link by its ending (for example " +
                               server.url("a\uFFFDb.v.html") +
                               "), 1 to the site's host without its port (http://127.0.0.1//), 1 by the "
                               "filter \"?\" (" +
                               server.url("c?x") + ")";
  EXPECT_THAT(run(words("scan shop")).output, HasSubstr(sentence));
  EXPECT_THAT(run(words("scan shop --progress json")).output,
              HasSubstr("{\"event\":\"leftOut\",\"reason\":\"filter\",\"which\":\"?\",\"count\":1,"
                        "\"pagesMayBeMissing\":true,\"examples\":[{\"url\":\"" +
                        server.url("c?x\",\"page\":\"") + server.url("\"}]}\n")));
  prepare(words("edit shop --name store"));
  EXPECT_THAT(run(words("show store")).output, HasSubstr(sentence));
  EXPECT_THAT(run(words("show store --left-out")).output,
              StartsWith("by its ending\t" + server.url("a\uFFFDb.v.html\t") + server.url("\n") +
                         "to the site's host without its port\thttp://127.0.0.1//\t" + server.url("\n") +
                         "by the filter \"?\"\t" + server.url("c?x\t") + server.url("\n")));
  const auto json = nlohmann::json::parse(run(words("show store --json")).output);
  EXPECT_EQ(json["leftOut"][0]["examples"][0]["url"], server.url("a\tb.v.html"));
}

TEST_F(SiteCommands, HelpAndVersionNeedNoDataFolder) {
  std::filesystem::remove_all(data());
  for (const Arguments& arguments : {Arguments{"--help"}, {"--version"}, {"scan", "--help"}}) {
    const auto result = run(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output, HasSubstr("veskel-cli"));
    EXPECT_EQ(result.errors, "");
  }
  EXPECT_FALSE(platform::somethingAt(data()));
}

}  // namespace
