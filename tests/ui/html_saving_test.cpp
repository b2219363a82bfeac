// Saving the HTML sitemap, the questions that come with it, and what becomes of changes that cannot be
// written.
#include <filesystem>
#include <fstream>
#include <functional>

#include "html_steps.h"
#include "platform/files.h"
#include "store/site_record.h"

namespace window_tests {

namespace fs = std::filesystem;
using samples::with;

namespace {

const QString kLayoutQuestion = QStringLiteral(
    "Changes have been made to the look of this sitemap, would you like to save these changes?");

/// The message that says a document could not be written; waits for it.
QMessageBox* couldNotWrite(const char* file = "sitemap3c.html") {
  const QString start = QStringLiteral("Could not write %1: ").arg(QLatin1String(file));
  const auto isUp = [&] {
    const auto* box = qobject_cast<QMessageBox*>(topSheet());
    return box != nullptr && box->text().startsWith(start);
  };
  return comesTrue(isUp) ? qobject_cast<QMessageBox*>(topSheet()) : nullptr;
}

/// What keeps a document from being written, the superuser included.
class Obstacle {
 public:
  /// As long as this is there another program holds the site.
  explicit Obstacle(const HtmlDesk& desk) : m_lock(desk.controls.siteFolder("Shop")) {}

 private:
  platform::FolderLock m_lock;
};

}  // namespace

class HtmlSavingTest : public QObject {
  Q_OBJECT

 private slots:
  void savesWhenAskedTo();
  void asksBeforeTheDocumentIsLeft();
  void asksBeforeAScan();
  void savesWhenAskedForAgain();
  void offersAgainWhatCouldNotBeWritten();
  void staysWhenItCannotSave();
  void overwritesNoWorkOfOthers();
  void keepsChangesThatDoNotEvenFitIntoACopy();
};

void HtmlSavingTest::savesWhenAskedTo() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(desk.shown());
  const std::string before = desk.document();
  QTest::keyClick(&desk.window(), Qt::Key_S, Qt::ControlModifier);
  QVERIFY(topSheet() == nullptr);  // there is nothing to save
  QVERIFY(desk.edit());
  QTest::keyClick(&desk.window(), Qt::Key_S, Qt::ControlModifier);
  QVERIFY(answer(message(kSaveQuestion), kSaveChanges));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk("sitemap2c.html"), edited(before));
  QCOMPARE(desk.document(), edited(before));
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kTwoColumns);
  QVERIFY(desk.isClean());
  QVERIFY(desk.othersAreUntouched("sitemap2c.html"));

  QVERIFY(desk.click("ptItalicButton"));
  QVERIFY(desk.click("saveChangesButton"));
  QMessageBox* sheet = message(kSaveQuestion);
  QVERIFY(sheet);
  pressEscape(*sheet);  // too much would go for a key that is pressed so easily
  QVERIFY(answer(message(kSaveQuestion), kCancel));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kThreeColumns);
  QCOMPARE(desk.document(), desk.onDisk("sitemap3c.html"));
  QCOMPARE(desk.onDisk("sitemap2c.html"), edited(before));
  QVERIFY(desk.isClean());

  QVERIFY(desk.edit());
  fs::remove(desk.controls.siteFolder("Shop") / "sitemap3c.html");
  QVERIFY(desk.click("saveChangesButton"));
  QVERIFY(topSheet() == nullptr);
  QCOMPARE(desk.onDisk(), "(missing)");
  QVERIFY(desk.isDirty());
}

void HtmlSavingTest::asksBeforeTheDocumentIsLeft() {
  struct Case {
    const char* name;
    int from;
    std::function<void(const HtmlDesk&)> leave;
    const char* next;  // the file that is in hand then
  };
  const Case cases[] = {
      {"another view", 2, [](const HtmlDesk& desk) { desk.go(4); }, "sitemap2c.html"},
      {"the style editor, which goes on", 2, [](const HtmlDesk& desk) { desk.go(3); }, "sitemap2c.html"},
      {"the viewer, which begins anew", 3, [](const HtmlDesk& desk) { desk.go(2); }, "sitemap3c.html"},
      {"another layout", 2, [](const HtmlDesk& desk) { desk.choose("sitemapTypePopup", kThreeColumns); },
       "sitemap3c.html"},
      {"closing", 2, [](const HtmlDesk& desk) { desk.window().close(); }, "sitemap2c.html"},
  };
  for (const Case& c : cases) {
    for (const QString& button : {kSaveChanges, kDiscard}) {
      HtmlDesk desk;
      desk.openAt(c.from);
      QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
      QVERIFY(desk.shown());
      const std::string before = desk.document();
      QVERIFY(desk.edit());
      c.leave(desk);
      const QString& question = c.name == cases[3].name ? kLayoutQuestion : kLeaveQuestion;
      QVERIFY2(message(question), c.name);
      pressEscape(*message(question));  // is no answer
      QCOMPARE(desk.onDisk("sitemap2c.html"), before);
      QVERIFY2(answer(message(question), button), c.name);
      if (c.name == cases[4].name) {
        QVERIFY(comesTrue([&] { return !desk.window().isVisible(); }));
      } else {
        QVERIFY(noSheetLeft());
        QVERIFY2(desk.document() == desk.onDisk(c.next), c.name);
        QVERIFY(!desk.window().state().qzvskNeedsSave);
      }
      QVERIFY2(desk.onDisk("sitemap2c.html") == (button == kSaveChanges ? edited(before) : before), c.name);
      QVERIFY(desk.othersAreUntouched("sitemap2c.html"));
    }
  }
}

/// A scan writes the document anew: nothing may be left of the old one that a later save would put in its
/// place.
void HtmlSavingTest::asksBeforeAScan() {
  const support::SiteServer site(smallSite());
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
  // Who has no site in hand any more has no document.
  QVERIFY(desk.edit());
  desk.control<QAction>("editMI").trigger();
  QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
  QVERIFY(comesTrue([] { return topSheet() != nullptr; }));
  pressEscape(*topSheet());
  QVERIFY(noSheetLeft() && desk.shown());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.body.innerText.includes('Please Select A Site')")));
}

void HtmlSavingTest::savesWhenAskedForAgain() {
  HtmlDesk desk;
  // Bytes that are no text stay as they are.
  desk.writeFile("Shop", "sitemap3c.html", with(desk.onDisk(), "Link 3", std::string("Li\xFF\xC3\0nk 3", 9)));
  desk.openAt(2);
  const std::string before = desk.onDisk();
  QVERIFY(desk.clickLink(QStringLiteral("Link 2")));
  QVERIFY(desk.edit());
  desk.go(2);
  QVERIFY(topSheet() == nullptr);
  QCOMPARE(desk.onDisk(), edited(before));
  QVERIFY(desk.isClean() && desk.nothingIsSelected());
}

void HtmlSavingTest::offersAgainWhatCouldNotBeWritten() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(desk.edit());
  const std::string unsaved = desk.document();
  {
    const Obstacle obstacle(desk);
    desk.go(6);
    QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
    QVERIFY(couldNotWrite("sitemap2c.html"));
  }
  desk.close();  // with the message up
  desk.openAt(2);
  QVERIFY(topSheet() == nullptr);
  QCOMPARE(desk.document(), before);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(answer(message(kKeptQuestion), kRestoreChanges));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), unsaved);
  QVERIFY(desk.isDirty());
}

void HtmlSavingTest::staysWhenItCannotSave() {
  struct Case {
    const char* name;
    std::function<void(const HtmlDesk&)> step;  // up to the message
    bool isOffered;                             // or stays in hand at once
  };
  const Case cases[] = {
      {"saving",
       [](const HtmlDesk& desk) {
         desk.click("saveChangesButton");
         answer(message(kSaveQuestion), kSaveChanges);
       },
       true},
      {"closing",
       [](const HtmlDesk& desk) {
         desk.window().close();
         answer(message(kLeaveQuestion), kSaveChanges);
       },
       true},
      {"another layout",
       [](const HtmlDesk& desk) {
         desk.choose("sitemapTypePopup", kTwoColumns);
         answer(message(kLayoutQuestion), kSaveChanges);
       },
       false},
      {"deleting",
       [](const HtmlDesk& desk) {
         desk.clickLink(QStringLiteral("Link 2"));
         desk.click("deleteButton");
         answer(sheetNamed({}), kSaveChanges);
       },
       false},
      {"leaving",
       [](const HtmlDesk& desk) {
         desk.go(3);
         answer(message(kLeaveQuestion), kSaveChanges);
       },
       true},
  };
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  for (const Case& c : cases) {
    QVERIFY(desk.shown());
    if (!desk.window().state().qzvskNeedsSave) QVERIFY(desk.edit());
    {
      const Obstacle obstacle(desk);
      c.step(desk);
      QVERIFY2(couldNotWrite(), c.name);
      // What is shown is what the file holds, unless the document stays in hand.
      QVERIFY2(desk.document() == (c.isOffered ? before : edited(before)), c.name);
      QVERIFY(answer(couldNotWrite(), c.isOffered ? kRestoreChanges : kOk));
      QVERIFY(desk.shown() && noSheetLeft());
    }
    QVERIFY2(desk.document() == edited(before), c.name);
    QVERIFY2(desk.isDirty(), c.name);
    QVERIFY(desk.control<QAbstractButton>("ptItalicButton").isChecked());
    QVERIFY(desk.text("urlToLoad").endsWith(QLatin1String("sitemap3c.html")));
    QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kThreeColumns);
    QVERIFY(desk.othersAreUntouched("none of them"));
  }
  desk.click("saveChangesButton");
  QVERIFY(answer(message(kSaveQuestion), kSaveChanges));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk(), edited(before));
}

void HtmlSavingTest::overwritesNoWorkOfOthers() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.edit());
  const std::string unsaved = desk.document();
  desk.writeDocuments(samples::blocks(2));  // a scan from a terminal
  const std::string theirs = desk.onDisk();
  desk.go(2);
  QMessageBox* sheet = couldNotWrite();
  QVERIFY(sheet);
  QCOMPARE(desk.onDisk(), theirs);
  QCOMPARE(desk.document(), theirs);
  // Whoever wants to have it all the same has been asked.
  QVERIFY(answer(sheet, kRestoreChanges));
  QVERIFY(desk.shown() && noSheetLeft());
  desk.go(2);
  QVERIFY(topSheet() == nullptr);
  QCOMPARE(desk.onDisk(), unsaved);
}

void HtmlSavingTest::keepsChangesThatDoNotEvenFitIntoACopy() {
  HtmlDesk desk;
  fs::create_directories(desk.reasons.state().location());
  std::ofstream(desk.reasons.state().location() / "sites") << "no folder";
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.edit());
  const Obstacle obstacle(desk);
  desk.go(2);
  QVERIFY(answer(couldNotWrite(), kRestoreChanges));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), edited(before));
  QVERIFY(desk.isDirty());
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlSavingTest>(argc, argv);
}

#include "html_saving_test.moc"
