// Saving the HTML sitemap, the questions that come with it, and what becomes of changes that cannot be
// written. What each answer does to the document is tested with the document in hand.
#include <filesystem>
#include <fstream>
#include <span>

#include "html_steps.h"
#include "platform/files.h"
#include "store/site_record.h"

namespace window_tests {

namespace fs = std::filesystem;

namespace {

const QString kSaveQuestion = QStringLiteral("Are you sure you want to save the changes you have made?");
const QString kSaveBeforeQuestion = QStringLiteral(
    "Changes have been made to this sitemap, would you like to save the changes you have made?");
const QString kLayoutQuestion = QStringLiteral(
    "Changes have been made to the look of this sitemap, would you like to save these changes?");
const QString kKeptQuestion = QStringLiteral("Changes to this sitemap were not saved.");

/// A way to leave an edited document of two columns.
struct Way {
  const char* name;
  int from;
  void (*leave)(const HtmlDesk& desk);
  QString question;
  QString discard;
  const char* next;       // the file that is in hand then
  bool givesWay = true;   // to what its file holds, when it cannot be written
  bool endsAll = false;   // the window is gone
  bool previews = false;  // in a browser
};

const Way kWays[] = {
    {"another view", 2, [](const HtmlDesk& desk) { desk.go(4); }, kLeaveQuestion, kDiscard, "sitemap2c.html"},
    {"the style editor, which goes on", 2, [](const HtmlDesk& desk) { desk.go(3); }, kLeaveQuestion, kDiscard,
     "sitemap2c.html"},
    {"the viewer, which begins anew", 3, [](const HtmlDesk& desk) { desk.go(2); }, kLeaveQuestion, kDiscard,
     "sitemap3c.html"},
    {"another layout", 2, [](const HtmlDesk& desk) { desk.choose("sitemapTypePopup", kThreeColumns); },
     kLayoutQuestion, kDiscard, "sitemap3c.html", false},
    {"closing", 2, [](const HtmlDesk& desk) { desk.window().close(); }, kLeaveQuestion, kDiscard,
     "sitemap2c.html", true, true},
    {"the browser", 2, [](const HtmlDesk& desk) { desk.click("vibButton"); }, kSaveBeforeQuestion,
     kDiscardChanges, "sitemap2c.html", true, false, true},
};

bool openEdited(HtmlDesk& desk, int view) {
  desk.openAt(view);
  return desk.choose("sitemapTypePopup", kTwoColumns) && desk.shown() && desk.edit();
}

/// The message that says a document could not be written; waits for it.
QMessageBox* couldNotWrite(const char* file) {
  const QString start = QStringLiteral("Could not write %1: ").arg(QLatin1String(file));
  const auto isUp = [&] {
    const auto* box = qobject_cast<QMessageBox*>(topSheet());
    return box != nullptr && box->text().startsWith(start);
  };
  return comesTrue(isUp) ? qobject_cast<QMessageBox*>(topSheet()) : nullptr;
}

}  // namespace

class HtmlSavingTest : public QObject {
  Q_OBJECT

 private slots:
  void savesWhenAskedTo() {
    HtmlDesk desk;
    const std::string before = desk.onDisk("sitemap2c.html");
    QVERIFY(openEdited(desk, 2));
    QTest::keyClick(&desk.window(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(answer(message(kSaveQuestion), kSaveChanges) && noSheetLeft());
    QCOMPARE(desk.onDisk("sitemap2c.html"), edited(before));
    QCOMPARE(desk.document(), edited(before));
    QVERIFY(desk.isClean() && desk.othersAreUntouched("sitemap2c.html"));

    QVERIFY(desk.click("ptItalicButton"));
    QVERIFY(desk.click("saveChangesButton"));
    QMessageBox* sheet = message(kSaveQuestion);
    QVERIFY(sheet);
    pressEscape(*sheet);  // too much would go for a key that is pressed so easily
    QVERIFY(answer(message(kSaveQuestion), kCancel));
    QVERIFY(desk.shown() && noSheetLeft());
    QCOMPARE(desk.document(), desk.onDisk("sitemap3c.html"));
    QCOMPARE(desk.onDisk("sitemap2c.html"), edited(before));
  }

  void asksBeforeTheDocumentIsLeft() {
    for (const Way& way : kWays) {
      for (const bool save : {true, false}) {
        const Opener opener;
        HtmlDesk desk;
        const std::string before = desk.onDisk("sitemap2c.html");
        QVERIFY(openEdited(desk, way.from));
        way.leave(desk);
        QVERIFY2(message(way.question), way.name);
        pressEscape(*message(way.question));  // is no answer
        QCOMPARE(desk.onDisk("sitemap2c.html"), before);
        QVERIFY2(answer(message(way.question), save ? kSaveChanges : way.discard), way.name);
        QVERIFY(comesTrue([&] { return desk.window().isVisible() != way.endsAll; }) && noSheetLeft());
        QVERIFY2(desk.document() == desk.onDisk(way.next), way.name);
        QVERIFY(!desk.window().state().qzvskNeedsSave);
        QVERIFY2(desk.onDisk("sitemap2c.html") == (save ? edited(before) : before), way.name);
        QVERIFY(desk.othersAreUntouched("sitemap2c.html"));
        QCOMPARE(opener.opened.size(), way.previews ? 1 : 0);
      }
    }
  }

  void staysWhenItCannotSave() {
    // The other views ask by the same means as the end does.
    for (const Way& way : std::span(kWays).subspan(3)) {
      const Opener opener;
      HtmlDesk desk;
      const std::string before = desk.onDisk("sitemap2c.html");
      QVERIFY(openEdited(desk, way.from));
      {
        const platform::FolderLock obstacle(desk.controls.siteFolder("Shop"));  // for the superuser, too
        way.leave(desk);
        QVERIFY2(answer(message(way.question), kSaveChanges), way.name);
        QVERIFY2(couldNotWrite("sitemap2c.html"), way.name);
        QVERIFY2(desk.document() == (way.givesWay ? before : edited(before)), way.name);
        QVERIFY(answer(couldNotWrite("sitemap2c.html"), way.givesWay ? kRestoreChanges : kOk));
        QVERIFY(desk.shown() && noSheetLeft());
      }
      QVERIFY2(desk.document() == edited(before) && desk.isDirty(), way.name);
      QVERIFY(desk.control<QAbstractButton>("ptItalicButton").isChecked());
      QVERIFY(desk.text("urlToLoad").endsWith(QLatin1String("sitemap2c.html")));
      QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kTwoColumns);
      QVERIFY(desk.window().isVisible() && opener.opened.isEmpty());
      QVERIFY(desk.othersAreUntouched("none of them"));
    }
  }

  /// A scan writes the document anew: nothing may be left of the old one that a later save would put in its
  /// place.
  void asksBeforeAScan() {
    const SiteServer site(smallSite());
    HtmlDesk desk;
    desk.writeFile("Shop", "Shop.qzVSK", store::newSiteRecord("Shop", site.url()));
    desk.openAt(2);
    QVERIFY(desk.edit());
    desk.control<QAction>("scanMI").trigger();
    QVERIFY(site.requests().empty());
    QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
    QVERIFY(comesTrue([&] { return !site.requests().empty(); }));
    QVERIFY(scanHasEnded(desk) && desk.shown() && noSheetLeft());
    QCOMPARE(desk.document(), desk.onDisk());
    QVERIFY(desk.document().find(site.url()) != std::string::npos);
    QVERIFY(desk.isClean());
  }

  /// Not even where no copy can be kept is anything lost.
  void overwritesNoWorkOfOthers() {
    HtmlDesk desk;
    fs::create_directories(desk.stateFolder.location());
    std::ofstream(desk.stateFolder.location() / "sites") << "no folder";
    desk.openAt(2);
    QVERIFY(desk.edit());
    const std::string unsaved = desk.document();
    desk.writeDocuments(samples::blocks(2));  // a scan from a terminal
    const std::string theirs = desk.onDisk();
    desk.go(2);
    QMessageBox* sheet = couldNotWrite("sitemap3c.html");
    QVERIFY(sheet);
    QCOMPARE(desk.onDisk(), theirs);
    QCOMPARE(desk.document(), theirs);
    QVERIFY(answer(sheet, kRestoreChanges));
    QVERIFY(desk.shown() && noSheetLeft() && desk.isDirty());
    // Whoever wants to have it all the same has been asked.
    desk.go(2);
    QVERIFY(topSheet() == nullptr);
    QCOMPARE(desk.onDisk(), unsaved);
  }

  void offersWhatACrashLeft() {
    HtmlDesk desk;
    const auto copyIsKept = [&] {
      const fs::path copies = desk.stateFolder.ofSite("Shop");
      return fs::exists(copies) && !fs::is_empty(copies);
    };
    desk.openAt(2);
    const std::string before = desk.document();
    QVERIFY(desk.edit());
    QVERIFY(comesTrue(copyIsKept));
    for (const bool restore : {true, false}) {
      desk.close();  // nobody is asked
      desk.openAt(2);
      QVERIFY(message(kKeptQuestion));
      pressEscape(*message(kKeptQuestion));  // is no answer
      QCOMPARE(desk.document(), before);
      QVERIFY(answer(message(kKeptQuestion), restore ? kRestoreChanges : kDiscardChanges));
      QVERIFY(desk.shown() && noSheetLeft());
      QCOMPARE(desk.document(), restore ? edited(before) : before);
      QCOMPARE(copyIsKept(), restore);  // until it is saved it may be lost again
    }
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlSavingTest>(argc, argv);
}

#include "html_saving_test.moc"
