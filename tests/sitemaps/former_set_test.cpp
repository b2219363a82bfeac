// When the documents of a site count as edited, what becomes of them then, and how they come back.
#include "sitemaps/former_set.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>

#include <gtest/gtest.h>

#include "sitemaps/scanned_set.h"
#include "support/file_size_limit.h"
#include "support/scan_run.h"
#include "support/site_server.h"

namespace sitemaps {
namespace {

namespace fs = std::filesystem;
using Set = std::map<std::string, std::string>;

/// A site that was scanned, with documents to be edited.
struct EditedSite : support::ScanRun {
  EditedSite() : ScanRun(std::string()) {
    isKept = true;
    settings.startUrl = server.url();
    scanned();
  }

  crawler::ScanResult scanned() {
    crawler::ScanResult result = scan();
    EXPECT_EQ(result.end, crawler::ScanEnd::complete);
    EXPECT_EQ(result.edits.problem(), "");
    return result;
  }
  void replace(const std::string& name, const std::string& text) const {
    ASSERT_TRUE(platform::replaceFile(folder() / name, text).ok());
  }
  FormerSet former() const { return {controls(), state(), "Site"}; }
  fs::path memory() const { return state().ofSite("Site") / "scanned-documents"; }
  Set setIn(const fs::path& place) const {
    Set set;
    for (const std::string_view name : kSetFiles) {
      if (fs::exists(place / name)) set[std::string(name)] = platform::readFile(place / name).text;
    }
    return set;
  }
  Set present() const { return setIn(folder()); }
  Set kept() const { return setIn(state().ofSite("Site") / "former"); }

  support::SiteServer server{support::manyPages(3)};  // with a broken link
};

/// Changes a byte in the middle, where it stands.
void overwrite(const fs::path& file) {
  std::fstream stream(file, std::ios::in | std::ios::out);
  stream.seekp(static_cast<std::streamoff>(fs::file_size(file) / 2));
  stream.put('\1');
}

TEST(FormerSet, HoldsWhatWasEditedSinceTheScan) {
  struct Case {
    const char* name;
    std::function<void(const EditedSite&)> change;
    bool isKept;
  };
  const Case cases[] = {
      {"nothing was done", [](const EditedSite&) {}, false},
      {"a copy has the same content",
       [](const EditedSite& site) { site.replace("sitemap2c.html", site.file("sitemap2c.html")); }, false},
      {"a copy has the size alone",
       [](const EditedSite& site) {
         site.replace("sitemap2c.html", std::string(site.file("sitemap2c.html").size(), 'x'));
       },
       true},
      {"changed where it stands", [](const EditedSite& site) { overwrite(site.folder() / "sitemap.xml"); },
       true},
      {"the list of broken pages", [](const EditedSite& site) { site.replace("badLinks.txt", ""); }, true},
      {"one is gone", [](const EditedSite& site) { fs::remove(site.folder() / "sitemap1c.html"); }, true},
      {"all are gone",
       [](const EditedSite& site) {
         for (const std::string_view name : kSetFiles) fs::remove(site.folder() / name);
       },
       false},
      {"nothing is remembered", [](const EditedSite& site) { fs::remove(site.memory()); }, true},
      {"what is remembered is no memory",
       [](const EditedSite& site) {
         ASSERT_TRUE(platform::replaceFile(site.memory(), "sitemap.xml\tx\n").ok());
       },
       true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EditedSite site;
    EXPECT_FALSE(site.former().isKept());
    const Set scanned = site.present();
    c.change(site);
    const Set edited = site.present();
    EXPECT_EQ(site.scanned().edits.isSetKept, c.isKept);
    EXPECT_EQ(site.present(), scanned);
    EXPECT_EQ(site.former().isKept(), c.isKept);
    EXPECT_EQ(site.kept(), c.isKept ? edited : Set());
  }
}

TEST(FormerSet, GivesItsPlaceToALaterEditAlone) {
  EditedSite site;
  site.replace("sitemap3c.html", "edited");
  EXPECT_TRUE(site.scanned().edits.isSetKept);
  EXPECT_FALSE(site.scanned().edits.isSetKept);
  EXPECT_EQ(site.kept().at("sitemap3c.html"), "edited");
  site.replace("sitemap3c.html", "later");
  EXPECT_TRUE(site.scanned().edits.isSetKept);
  EXPECT_EQ(site.kept().at("sitemap3c.html"), "later");
}

TEST(FormerSet, OutlivesScansThatFail) {
  EditedSite site;
  site.replace("sitemap1c.html", "edited");
  site.settings.startUrl = "http://127.0.0.1:1/";
  EXPECT_TRUE(site.scan().edits.isSetKept);
  EXPECT_EQ(site.scan().end, crawler::ScanEnd::unreachable);
  EXPECT_EQ(site.kept().at("sitemap1c.html"), "edited");
  // Restored twice, the openings are no more edited than before.
  EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::done);
  EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::done);
  EXPECT_FALSE(site.scan().edits.isSetKept);
  EXPECT_EQ(site.kept().at("sitemap1c.html"), "edited");
}

/// As a scan that was killed leaves them: started, with a page or not, and never ended.
TEST(FormerSet, TakesAKilledScansDocumentsForTheScansOwn) {
  for (const bool isEdited : {false, true}) {
    SCOPED_TRACE(isEdited);
    EditedSite site;
    site.replace("sitemap1c.html", "edited");
    site.scanned();
    const ScannedSet memory(site.controls(), site.state(), "Site");
    ASSERT_TRUE(memory.keepScanning().ok());
    SiteDocuments documents(site.folder());
    ASSERT_TRUE(documents.start());
    EXPECT_FALSE(memory.isEdited());
    ASSERT_TRUE(memory.keepScanning().ok());
    documents.appendXml("entry");
    // Twice, since a file may get the number that the former one had.
    if (isEdited) site.replace("sitemap.xml", "mine");
    if (isEdited) site.replace("sitemap.xml", "mine");
    EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::done);
    EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::done);
    EXPECT_EQ(memory.isEdited(), isEdited);
    EXPECT_EQ(site.scanned().edits.isSetKept, isEdited);
    EXPECT_EQ(site.kept().at(isEdited ? "sitemap.xml" : "sitemap1c.html"), isEdited ? "mine" : "edited");
  }
}

TEST(FormerSet, IsRestoredTwiceWithNothingChanged) {
  EditedSite site;
  EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::nothingKept);
  site.replace("sitemap.xml", "edited");
  fs::remove(site.folder() / "badLinks.txt");
  const Set edited = site.present();
  site.scanned();
  const Set scanned = site.present();
  {
    const platform::FolderLock lock(site.folder());
    EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::busy);
  }
  EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::done);
  EXPECT_EQ(site.present(), edited);
  EXPECT_EQ(site.kept(), scanned);
  EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::done);
  EXPECT_EQ(site.present(), scanned);
  EXPECT_EQ(site.kept(), edited);
  // What came back is edited still.
  EXPECT_EQ(site.former().restore().outcome, RestoreOutcome::done);
  EXPECT_TRUE(site.scanned().edits.isSetKept);
  EXPECT_EQ(site.kept(), edited);
}

TEST(FormerSet, IsKeptBeforeAScanThatGoesOnToo) {
  EditedSite site;
  site.view.onPage = [&](const crawler::VisitedPage&) { site.scanner().cancelScan(); };
  EXPECT_TRUE(site.scan().canGoOn);
  site.view.onPage = nullptr;
  site.replace("sitemap.xml", "edited");
  site.settings.goesOn = true;
  EXPECT_TRUE(site.scanned().edits.isSetKept);
  EXPECT_EQ(site.kept().at("sitemap.xml"), "edited");
}

TEST(FormerSet, IsMissedByTheScanWhereItCannotBeKept) {
  EditedSite site;
  const Set scanned = site.present();
  site.replace("sitemap.xml", std::string(50'000, 'x'));
  site.scanned();
  const Set kept = site.kept();
  site.replace("sitemap.xml", std::string(100'000, 'y'));
  {
    const support::FileSizeLimit limit(70'000);
    const crawler::ScanResult result = site.scan();
    EXPECT_EQ(result.end, crawler::ScanEnd::complete);
    EXPECT_TRUE(result.problems.empty());
    EXPECT_EQ(result.edits.problem(), "The edited sitemaps of before could not be kept: File too large");
  }
  EXPECT_EQ(site.present(), scanned);
  EXPECT_EQ(site.kept(), kept);
}

}  // namespace
}  // namespace sitemaps
