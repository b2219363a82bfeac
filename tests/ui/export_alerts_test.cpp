// Exports in the window that come to nothing, or to less than the user may think: what is asked and told.
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

#include "export_steps.h"
#include "platform/files.h"
#include "platform/qt_text.h"

namespace window_tests {

namespace {

namespace fs = std::filesystem;

const QString kMissing = QStringLiteral(
    "The sitemap you are trying to export could not be found, please make sure you have scanned your site "
    "before "
    "exporting.");
const QString kUnusable =
    QStringLiteral("An error has occurred while exporting your sitemap, you may need to re-scan the site.\n");
const QString kNotSaved = QStringLiteral("The file could not be saved.");
const QString kScripts = QStringLiteral("This sitemap holds text that a browser may run as a program.");

}  // namespace

class ExportAlertsTest : public QObject {
  Q_OBJECT

 private slots:
  void tellsWhatIsMissing();
  void tellsWhatCannotBeUsed();
  void tellsThatAScanIsRunning();
  void tellsAFailedWrite();
  void exportsNothingWithoutLayoutOrSite();
  void warnsOnceOfTextThatABrowserMayRun();
  void tellsFaultsOfWhatWasSaved();
};

void ExportAlertsTest::tellsWhatIsMissing() {
  const ExportDesk desk;
  for (const char* file : {"sitemap3c.html", "sitemap.xml"})
    fs::remove(desk.controls.siteFolder("Shop") / file);
  for (const char* button : {"htmlExportButton", "xmlExportButton"}) {
    QVERIFY(desk.click(button));
    QMessageBox* alert = message(kMissing);
    QVERIFY(alert);
    QVERIFY(hasButtons(*alert, {kOk}));
    QVERIFY(answer(alert, kOk));
    QVERIFY(noSheetLeft());  // the progress sheet too
  }
}

void ExportAlertsTest::tellsWhatCannotBeUsed() {
  const ExportDesk desk;
  for (const char* file : {"sitemap3c.html", "sitemap.xml"}) desk.writeFile("Shop", file, "<url>\xFF</url>");
  for (const char* button : {"htmlExportButton", "xmlExportButton"}) {
    QVERIFY(desk.click(button));
    QMessageBox* alert = message(kUnusable);
    QVERIFY(alert);
    QCOMPARE(alert->informativeText(), QStringLiteral("If this problem persists, please contact support."));
    QVERIFY(answer(alert, kOk));
    QVERIFY(noSheetLeft());
  }
  // What was mended can be exported.
  desk.writeFile("Shop", "sitemap3c.html", "\xC3\xA9");
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(enterName(fileDialog(), desk.path("out.html")));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.read("out.html"), std::string("\xC3\xA9"));
}

void ExportAlertsTest::tellsThatAScanIsRunning() {
  const ExportDesk desk;
  const platform::FolderLock lock(desk.controls.siteFolder("Shop"));
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(answer(message(QStringLiteral("The site is being scanned.")), kOk));
  QVERIFY(noSheetLeft());
}

void ExportAlertsTest::tellsAFailedWrite() {
  const ExportDesk desk;
  for (const char* button : {"htmlExportButton", "exportBrokenAsTXTButton"}) {
    if (qstrcmp(button, "exportBrokenAsTXTButton") == 0) desk.go("brokenMI");
    QVERIFY(desk.click(button));
    QFileDialog* dialog = fileDialog();
    QVERIFY(dialog);
    // The dialog sees a folder that takes files; when it comes to writing something else has the name.
    connect(dialog, &QFileDialog::fileSelected, dialog,
            [&desk] { fs::create_directory(desk.folder() / "out.html"); });
    QVERIFY(enterName(dialog, desk.path("out.html")));
    QMessageBox* alert = message(kNotSaved);
    QVERIFY(alert);
    QVERIFY(alert->informativeText().contains(desk.path("out.html")));
    QVERIFY(answer(alert, kOk));
    QVERIFY(!desk.status().contains(QLatin1String("Saved")));
    QVERIFY(desk.nothingWritten());
    QVERIFY(noSheetLeft());
    fs::remove(desk.folder() / "out.html");
  }
}

void ExportAlertsTest::exportsNothingWithoutLayoutOrSite() {
  const ExportDesk desk;
  desk.control<QCheckBox>("threeCSF").group()->setExclusive(false);
  desk.control<QCheckBox>("threeCSF").setChecked(false);
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(noSheetLeft());
  desk.control<QCheckBox>("threeCSF").setChecked(true);
  auto& picker = desk.control<QComboBox>("sitePickerPopUp");
  picker.setCurrentIndex(-1);
  for (const char* button : {"htmlExportButton", "xmlExportButton"}) {
    QVERIFY(desk.click(button));
    QVERIFY(noSheetLeft());
  }
  desk.go("brokenMI");
  QVERIFY(desk.click("exportBrokenAsTXTButton"));
  QVERIFY(noSheetLeft());
  desk.go("exportTBI");
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(dismiss(fileDialog()));
}

void ExportAlertsTest::warnsOnceOfTextThatABrowserMayRun() {
  const ExportDesk desk;
  const std::string hostile = "<a href=\"http://h/\" onclick=\"x()\">T</a>";
  desk.writeFile("Shop", "sitemap3c.html", hostile);
  desk.writeFile("Shop", "sitemap2c.html", hostile);
  QVERIFY(desk.click("htmlExportButton"));
  QMessageBox* question = message(kScripts);
  QVERIFY(question);
  QVERIFY(hasButtons(*question, {QStringLiteral("Export"), kCancel}));
  QVERIFY(dismiss(question));  // does not count as having agreed
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(answer(message(kScripts), QStringLiteral("Export")));
  QVERIFY(enterName(fileDialog(), desk.path("out.html")));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.read("out.html"), hostile);
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(dismiss(fileDialog()));
  // Another document is another matter.
  desk.control<QCheckBox>("twoCSF").click();
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(answer(message(kScripts), kCancel));
  QVERIFY(noSheetLeft());
}

void ExportAlertsTest::tellsFaultsOfWhatWasSaved() {
  const ExportDesk desk;
  std::string text = xmlSitemap(1);
  text.replace(text.find("shop.test/0"), 11, "shop.test/?a=1&b=2");
  desk.writeFile("Shop", "sitemap.xml", text + "x");
  QVERIFY(desk.click("xmlExportButton"));
  QVERIFY(enterName(fileDialog(), desk.path("out.xml")));
  QMessageBox* alert = message(QStringLiteral("The exported sitemap has 2 faults."));
  QVERIFY(alert);
  QVERIFY(alert->informativeText().contains(QLatin1String("press Validate")));
  QCOMPARE(desk.status(), QStringLiteral("Saved ") + desk.path("out.xml"));
  QVERIFY(answer(alert, kOk));
  QVERIFY(noSheetLeft());
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::runWithQtDialogs<window_tests::ExportAlertsTest>(argc, argv);
}

#include "export_alerts_test.moc"
