// Saving the HTML sitemap, the questions that come with it, and what becomes of changes that cannot be
// written.
#include <filesystem>
#include <fstream>

#include "html_steps.h"
#include "platform/files.h"
#include "platform/qt_text.h"

namespace window_tests {

namespace fs = std::filesystem;
using platform::toQString;
using samples::with;

namespace {

const QString kTwoColumns = QStringLiteral("Two Columns, All Links");
const QString kThreeColumns = QStringLiteral("Three Columns, All Links");

bool edit(const HtmlDesk& desk) {
  return desk.click("ptItalicButton") && desk.isDirty();
}

std::string edited(const std::string& document) {
  return with(document, "font-style: normal;\n\t\tcolor: #000000", "font-style: italic;\n\t\tcolor: #000000");
}

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
  void savesWhenAskedTo_data();
  void savesWhenAskedTo();
  void throwsEditsAwayWhenNotSaved();
  void asksNothingWhenTheFileIsGone();
  void keepsBytesThatAreNoText();
  void tellsWhenItCannotSave_data();
  void tellsWhenItCannotSave();
  void keepsALinkEditThatCannotBeWritten();
  void keepsChangesThatDoNotEvenFitIntoACopy();
  void offersAgainWhatCouldNotBeWritten();
  void staysWhenAnotherLayoutCannotBeGoneTo();
  void deletesNothingWhenItCannotSaveBefore();
  void staysOpenWhenItCannotSave();
  void staysWithTheDocumentWhenItCannotSave();
  void overwritesNoWorkOfOthers();
  void tellsWhenThereIsNoFolder();
};

void HtmlSavingTest::savesWhenAskedTo_data() {
  QTest::addColumn<bool>("byKey");
  QTest::newRow("button") << false;
  QTest::newRow("key") << true;
}

void HtmlSavingTest::savesWhenAskedTo() {
  QFETCH(const bool, byKey);
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(desk.shown());
  const std::string before = desk.document();
  QTest::keyClick(&desk.window(), Qt::Key_S, Qt::ControlModifier);
  QVERIFY(topSheet() == nullptr);  // there is nothing to save
  QVERIFY(edit(desk));
  if (byKey) {
    QTest::keyClick(&desk.window(), Qt::Key_S, Qt::ControlModifier);
  } else {
    QVERIFY(desk.click("saveChangesButton"));
  }
  qWarning() << QApplication::activeWindow() << QApplication::focusWidget()
             << desk.control<QAction>("saveMI").isEnabled() << desk.control<QAction>("saveMI").shortcut();
  QMessageBox* sheet = message(kSaveQuestion);
  QVERIFY(sheet);
  QVERIFY(hasButtons(*sheet, {kSaveChanges, kCancel}));
  QCOMPARE(desk.onDisk("sitemap2c.html"), before);
  QVERIFY(answer(sheet, kSaveChanges));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk("sitemap2c.html"), edited(before));
  QCOMPARE(desk.document(), edited(before));
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kTwoColumns);
  QVERIFY(desk.isClean());
  QVERIFY(desk.othersAreUntouched("sitemap2c.html"));
}

void HtmlSavingTest::throwsEditsAwayWhenNotSaved() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(desk.shown());
  const std::string before = desk.document();
  QVERIFY(edit(desk));
  QVERIFY(desk.click("saveChangesButton"));
  QMessageBox* sheet = message(kSaveQuestion);
  QVERIFY(sheet);
  pressEscape(*sheet);  // too much would go for a key that is pressed so easily
  QVERIFY(answer(message(kSaveQuestion), kCancel));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kThreeColumns);
  QCOMPARE(desk.document(), desk.onDisk("sitemap3c.html"));
  QCOMPARE(desk.onDisk("sitemap2c.html"), before);
  QVERIFY(!desk.control<QAbstractButton>("ptItalicButton").isChecked());
  QVERIFY(desk.isClean());
}

void HtmlSavingTest::asksNothingWhenTheFileIsGone() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(edit(desk));
  fs::remove(desk.controls.siteFolder("Shop") / "sitemap3c.html");
  QVERIFY(desk.click("saveChangesButton"));
  QVERIFY(topSheet() == nullptr);
  QCOMPARE(desk.onDisk(), "(missing)");
  QVERIFY(desk.isDirty());
}

void HtmlSavingTest::keepsBytesThatAreNoText() {
  HtmlDesk desk;
  desk.writeFile("Shop", "sitemap3c.html", with(desk.onDisk(), "Link 3", std::string("Li\xFF\xC3\0nk 3", 9)));
  desk.openAt(2);
  const std::string before = desk.onDisk();
  QVERIFY(edit(desk));
  desk.go(2);
  QCOMPARE(desk.onDisk(), edited(before));
}

void HtmlSavingTest::tellsWhenItCannotSave_data() {
  QTest::addColumn<bool>("restore");
  QTest::newRow("restored") << true;
  QTest::newRow("discarded") << false;
}

void HtmlSavingTest::tellsWhenItCannotSave() {
  QFETCH(const bool, restore);
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(edit(desk));
  {
    const Obstacle obstacle(desk);
    QVERIFY(desk.click("saveChangesButton"));
    QVERIFY(answer(message(kSaveQuestion), kSaveChanges));
    QMessageBox* sheet = couldNotWrite();
    QVERIFY(sheet);
    QVERIFY(hasButtons(*sheet, {kRestoreChanges, kDiscardChanges}));
    // What is shown is what the file holds.
    QCOMPARE(desk.document(), before);
    QVERIFY(desk.isClean());
    QVERIFY(!desk.control<QAbstractButton>("ptItalicButton").isChecked());
    QVERIFY(answer(sheet, restore ? kRestoreChanges : kDiscardChanges));
    QVERIFY(desk.shown() && noSheetLeft());
  }
  QCOMPARE(desk.onDisk(), before);
  QCOMPARE(desk.document(), restore ? edited(before) : before);
  QVERIFY(restore ? desk.isDirty() : desk.isClean());
  QCOMPARE(desk.control<QAbstractButton>("ptItalicButton").isChecked(), restore);
  QCOMPARE(fs::is_empty(desk.reasons.state().ofSite("Shop")), !restore);
  if (!restore) return;
  QVERIFY(desk.click("saveChangesButton"));
  QVERIFY(answer(message(kSaveQuestion), kSaveChanges));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.onDisk(), edited(before));
  QVERIFY(desk.isClean());
}

void HtmlSavingTest::keepsALinkEditThatCannotBeWritten() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  const Obstacle obstacle(desk);
  QVERIFY(desk.clickLink(QStringLiteral("Link 2")));
  QVERIFY(desk.type("titleEditInput", QStringLiteral("New")));
  QVERIFY(answer(couldNotWrite(), kRestoreChanges));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), with(before, "Link 2<", "New<"));
  QVERIFY(desk.isDirty());
  QVERIFY(desk.inPageComesTrue(QStringLiteral("document.links[3].textContent === 'New'")));
}

void HtmlSavingTest::keepsChangesThatDoNotEvenFitIntoACopy() {
  HtmlDesk desk;
  fs::create_directories(desk.reasons.state().location());
  std::ofstream(desk.reasons.state().location() / "sites") << "no folder";
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(edit(desk));
  const Obstacle obstacle(desk);
  desk.go(2);
  QVERIFY(answer(couldNotWrite(), kRestoreChanges));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.document(), edited(before));
  QVERIFY(desk.isDirty());
}

void HtmlSavingTest::offersAgainWhatCouldNotBeWritten() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(edit(desk));
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

void HtmlSavingTest::staysWhenAnotherLayoutCannotBeGoneTo() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(edit(desk));
  const std::string unsaved = desk.document();
  const Obstacle obstacle(desk);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(answer(topSheet(), kSaveChanges));
  QVERIFY(answer(couldNotWrite(), kOk));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.document(), unsaved);
  QVERIFY(desk.isDirty());
  QVERIFY(desk.text("urlToLoad").endsWith(QLatin1String("sitemap3c.html")));
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kThreeColumns);
  QVERIFY(desk.othersAreUntouched("none of them"));
}

void HtmlSavingTest::deletesNothingWhenItCannotSaveBefore() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(edit(desk));
  const std::string unsaved = desk.document();
  const Obstacle obstacle(desk);
  QVERIFY(desk.clickLink(QStringLiteral("Link 2")));
  QVERIFY(desk.click("deleteButton"));
  QVERIFY(answer(topSheet(), kSaveChanges));
  QVERIFY(answer(couldNotWrite(), kOk));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.document(), unsaved);
  QVERIFY(desk.isDirty());
}

void HtmlSavingTest::staysOpenWhenItCannotSave() {
  HtmlDesk desk;
  desk.openAt(2);
  const std::string before = desk.document();
  QVERIFY(edit(desk));
  {
    const Obstacle obstacle(desk);
    desk.window().close();
    QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
    QVERIFY(answer(couldNotWrite(), kRestoreChanges));
    QVERIFY(noSheetLeft());
    QVERIFY(desk.window().isVisible());
    QCOMPARE(desk.document(), edited(before));
  }
  desk.window().close();
  QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
  QVERIFY(comesTrue([&] { return !desk.window().isVisible(); }));
  QCOMPARE(desk.onDisk(), edited(before));
}

/// The viewer would begin with the first document.
void HtmlSavingTest::staysWithTheDocumentWhenItCannotSave() {
  HtmlDesk desk;
  desk.openAt(3);
  QVERIFY(desk.choose("sitemapTypePopup", kTwoColumns));
  QVERIFY(edit(desk));
  const std::string unsaved = desk.document();
  const Obstacle obstacle(desk);
  desk.go(2);
  QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
  QVERIFY(answer(couldNotWrite("sitemap2c.html"), kRestoreChanges));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.window().views().returnCurrentView(), 2);
  QVERIFY(desk.webView().isVisible());
  QCOMPARE(desk.document(), unsaved);
  QCOMPARE(desk.control<QComboBox>("sitemapTypePopup").currentText(), kTwoColumns);
  QVERIFY(desk.isDirty());
}

void HtmlSavingTest::overwritesNoWorkOfOthers() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(edit(desk));
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

void HtmlSavingTest::tellsWhenThereIsNoFolder() {
  HtmlDesk desk;
  desk.openAt(2);
  QVERIFY(edit(desk));
  const std::string unsaved = desk.document();
  fs::remove_all(desk.controls.siteFolder("Shop"));
  desk.go(1);
  QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
  QVERIFY(answer(couldNotWrite(), kRestoreChanges));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.document(), unsaved);
  QVERIFY(desk.window().state().qzvskNeedsSave);
  desk.makeSite("Shop", "http://a.test/");
  desk.go(2);
  QVERIFY(answer(message(kLeaveQuestion), kSaveChanges));
  QVERIFY(desk.shown() && noSheetLeft());
  QCOMPARE(desk.onDisk(), unsaved);
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::HtmlSavingTest>(argc, argv);
}

#include "html_saving_test.moc"
