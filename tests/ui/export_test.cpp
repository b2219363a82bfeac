// Exports in the window, from the button to the bytes on disk: every kind, its questions, and what is told
// when it comes to nothing.
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QStatusBar>

#include "html_steps.h"
#include "platform/files.h"
#include "platform/qt_text.h"
#include "sitemaps/html_format.h"
#include "sitemaps/split_sitemaps.h"
#include "sitemaps/xml_format.h"
#include "support/temp_folder.h"

namespace window_tests {

namespace {

namespace fs = std::filesystem;
using platform::toQString;
using platform::toUtf8;

/// The six choices of the view, and the documents they stand for.
constexpr const char* kLayoutBoxes[] = {"threeCSF", "twoCSF", "oneCSF", "threeCST", "twoCST", "oneCST"};
constexpr const char* kLayoutFiles[] = {"sitemap3c.html",   "sitemap2c.html",   "sitemap1c.html",
                                        "sitemap3cpo.html", "sitemap2cpo.html", "sitemap1cpo.html"};

/// As a scan of so many pages leaves it.
std::string xmlSitemap(int pages) {
  std::string text(sitemaps::kXmlHeader);
  for (int i = 0; i < pages; ++i) text += sitemaps::xmlEntry("http://shop.test/" + std::to_string(i), "");
  return text + std::string(sitemaps::kXmlClosing);
}

/// The window at its export view. Each HTML document begins with its own name.
class ExportDesk : public Desk {
 public:
  explicit ExportDesk(int pages = 1) {
    makeSite("Shop", "http://shop.test/",
             "<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>\n<pagesUsed>" +
                 std::to_string(pages) + "</pagesUsed>\n");
    writeFile("Shop", "sitemap.xml", xmlSitemap(pages));
    writeFile("Shop", "badLinks.txt", "http://shop.test/a\nhttp://shop.test/b\n");
    for (const char* file : kLayoutFiles)
      writeFile("Shop", file, file + sitemaps::pageEntry("http://h/", 1, "T") + "\n");
    open();
    select(kShop);
    go("exportTBI");
  }

  void go(const char* action) const { control<QAction>(action).trigger(); }
  const fs::path& folder() const { return m_folder.path(); }
  /// Where a file of this name is exported to; the folder itself without one.
  QString path(const std::string& name = {}) const { return toQString((folder() / name).native()); }
  /// What was exported, "(missing)" when there is no such file.
  std::string read(const std::string& name) const {
    const platform::FileContent content = platform::readFile(folder() / name);
    return content.result.ok() ? content.text : "(missing)";
  }
  QString status() const { return window().statusBar()->currentMessage(); }

 private:
  support::TempFolder m_folder;
};

/// The file dialog, once it is up.
QFileDialog* fileDialog() {
  const auto isUp = [] { return qobject_cast<QFileDialog*>(topSheet()) != nullptr; };
  return comesTrue(isUp) ? qobject_cast<QFileDialog*>(topSheet()) : nullptr;
}

/// Types a name and presses Return.
bool enterName(QFileDialog* dialog, const QString& name) {
  if (dialog == nullptr) return false;
  auto& field = platform::control<QLineEdit>(*dialog, "fileNameEdit");
  field.setText(name);
  QTest::keyClick(&field, Qt::Key_Return);
  return true;
}

bool dismiss(QDialog* dialog) {
  if (dialog == nullptr) return false;
  pressEscape(*dialog);
  return noSheetLeft();
}

/// Presses the button, and saves under this name in the desk's folder.
bool exportTo(const ExportDesk& desk, const char* button, const std::string& name) {
  return desk.click(button) && enterName(fileDialog(), desk.path(name)) && noSheetLeft();
}

}  // namespace

class ExportTest : public QObject {
  Q_OBJECT

 private slots:
  void exportsTheTickedLayout();
  void exportsXmlAndBrokenLinks();
  void goesByWhatWasAskedFor();
  void beginsInTheSaveFolder();
  void closesWhileAnExportRuns();
  void tellsWhyThereIsNothing();
  void tellsAFailedWrite();
  void warnsOnceOfTextThatABrowserMayRun();
  void asksBeforeReplacingASplitExport();
};

void ExportTest::exportsTheTickedLayout() {
  const ExportDesk desk;
  for (int layout = 0; layout < 6; ++layout) {
    const std::string file = "out" + std::to_string(layout) + ".php";
    desk.control<QCheckBox>(kLayoutBoxes[layout]).toggle();
    for (const char* box : kLayoutBoxes)
      QCOMPARE(desk.control<QCheckBox>(box).isChecked(), box == kLayoutBoxes[layout]);
    QVERIFY(exportTo(desk, "htmlExportButton", file));
    QCOMPARE(desk.read(file),
             kLayoutFiles[layout] +
                 std::string("\n\t\t\t<div class=\"vskPageTitle\"><a href=\"http://h/\">T</a></div>\n"));
    QCOMPARE(desk.status(), QStringLiteral("Saved ") + desk.path(file));
  }
}

void ExportTest::exportsXmlAndBrokenLinks() {
  struct Case {
    const char* button;
    const char* proposed;
    QString end;
  };
  const Case cases[] = {
      {"xmlExportButton", "sitemap.xml",
       QStringLiteral("\n\t<url>\n\t\t<loc>http://shop.test/0</loc>\n\t\t<changefreq>monthly</changefreq>"
                      "\n\t\t<priority>0.5</priority>\n\t</url>\n</urlset>")},
      {"exportBrokenAsTXTButton", "brokenLinksExport.txt",
       QStringLiteral("http://shop.test/a\nhttp://shop.test/b\n\n")},
      {"exportBrokenAsHTMLButton", "brokenLinksExport.html",
       QStringLiteral("<a href=\"http://shop.test/b\">http://shop.test/b</a></p>\n</body>\n</html>\n")},
  };
  const ExportDesk desk;
  for (const Case& c : cases) {
    const QString file = QLatin1String(c.proposed);
    if (c.button != cases[0].button) desk.go("brokenMI");
    QVERIFY(desk.click(c.button));
    if (c.button == cases[0].button) {
      QDialog* panel = sheetNamed(QStringLiteral("exportCustomPanel"));
      QVERIFY(panel);
      pressEscape(*panel);
      QVERIFY(panel->isVisible());  // the work goes on
    }
    QVERIFY(fileDialog());
    QCOMPARE(platform::control<QLineEdit>(*fileDialog(), "fileNameEdit").text(), file);
    QVERIFY(dismiss(fileDialog()));
    QVERIFY(!fs::exists(desk.folder() / c.proposed));
    QVERIFY(desk.click(c.button));
    QVERIFY(!fileDialog()->testOption(QFileDialog::DontConfirmOverwrite));
    QVERIFY(enterName(fileDialog(), desk.path(file.section(QLatin1Char('.'), 0, 0).toStdString())));
    QVERIFY(noSheetLeft());
    QVERIFY2(toQString(desk.read(c.proposed)).endsWith(c.end), c.proposed);  // the extension was added
  }
  QCOMPARE(desk.file("Shop", "sitemap.xml"), xmlSitemap(1));  // the site's own stays as it is
}

/// Between its sheets the window can be worked: what is chosen there is for another export.
void ExportTest::goesByWhatWasAskedFor() {
  const ExportDesk desk(50'001);
  desk.makeSite("Small", "http://small.test/");
  desk.writeFile("Small", "sitemap.xml", xmlSitemap(1));
  desk.go("exportTBI");
  auto& split = desk.control<QCheckBox>("splitXmlBox");
  auto& gzip = desk.control<QCheckBox>("gzipXmlBox");
  gzip.setChecked(true);
  split.toggle();
  QVERIFY(!gzip.isEnabled());
  QVERIFY(desk.click("xmlExportButton"));  // one file all the same
  QVERIFY(fileDialog());
  QCOMPARE(fileDialog()->acceptMode(), QFileDialog::AcceptSave);
  QVERIFY(dismiss(fileDialog()));
  split.toggle();
  QVERIFY(desk.click("xmlExportButton"));
  QVERIFY(sheetNamed(QStringLiteral("exportCustomPanel")));
  QVERIFY(comesTrue([] { return topSheet() == nullptr; }));
  desk.control<QComboBox>("sitePickerPopUp").setCurrentText(QStringLiteral("Small"));
  QVERIFY(!split.isChecked());
  QVERIFY(enterName(fileDialog(), desk.path()));
  QVERIFY(comesTrue([&] { return desk.status().startsWith(QLatin1String("Saved 3 file")); }));
  QCOMPARE(platform::filesBelow(desk.folder()), sitemaps::splitFileNames(2, sitemaps::Compression::gzip));
  QCOMPARE(desk.read("sitemap-index.xml"),
           sitemaps::sitemapIndex("http://shop.test/", 2, sitemaps::Compression::gzip));

  desk.go("brokenMI");
  QVERIFY(desk.click("exportBrokenAsTXTButton"));
  desk.window().state().qzvskBadLinkArray.clear();
  QVERIFY(enterName(fileDialog(), desk.path("out.txt")));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.read("out.txt"), std::string("http://shop.test/a\nhttp://shop.test/b\n\n"));
}

void ExportTest::beginsInTheSaveFolder() {
  ExportDesk desk;
  QVERIFY(desk.click("saveToButton"));
  QVERIFY(dismiss(fileDialog()));
  QVERIFY(desk.control<QLineEdit>("saveToInput").text().isEmpty());
  QVERIFY(desk.click("saveToButton"));
  QVERIFY(enterName(fileDialog(), desk.path()));
  QVERIFY(noSheetLeft());
  desk.close();
  desk.open();
  QVERIFY(desk.select(kShop));
  desk.go("exportTBI");
  for (const char* button : {"htmlExportButton", "xmlExportButton", "exportBrokenAsTXTButton"}) {
    if (qstrcmp(button, "exportBrokenAsTXTButton") == 0) desk.go("brokenMI");
    QVERIFY(desk.click(button));
    QVERIFY(fileDialog());
    QCOMPARE(fs::path(toUtf8(fileDialog()->directory().path())), desk.folder());
    QVERIFY(dismiss(fileDialog()));
  }
}

void ExportTest::closesWhileAnExportRuns() {
  ExportDesk desk;
  QVERIFY(desk.click("xmlExportButton"));
  QVERIFY(sheetNamed(QStringLiteral("exportCustomPanel")));
  desk.close();  // comes back only when the worker is over
  QVERIFY(topSheet() == nullptr);
}

void ExportTest::tellsWhyThereIsNothing() {
  const ExportDesk desk;
  const auto tells = [&](const char* button, const char* title) {
    return desk.click(button) && answer(message(QString::fromLatin1(title)), kOk) && noSheetLeft();
  };
  for (const auto& [button, file] :
       {std::pair("htmlExportButton", "sitemap3c.html"), std::pair("xmlExportButton", "sitemap.xml")}) {
    fs::remove(desk.controls.siteFolder("Shop") / file);
    QVERIFY(tells(button,
                  "The sitemap you are trying to export could not be found, please make sure you "
                  "have scanned your site before exporting."));
    desk.writeFile("Shop", file, "<url>\xFF</url>");
    QVERIFY(tells(button,
                  "An error has occurred while exporting your sitemap, you may need to re-scan the "
                  "site.\n"));
  }
  desk.writeFile("Shop", "sitemap3c.html", "\xC3\xA9");
  {
    const platform::FolderLock scan(desk.controls.siteFolder("Shop"));
    QVERIFY(tells("htmlExportButton", "The site is being scanned."));
  }
  QVERIFY(exportTo(desk, "htmlExportButton", "out.html"));  // what was mended can be exported
}

void ExportTest::tellsAFailedWrite() {
  const ExportDesk desk;
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(fileDialog());
  // The dialog sees a folder that takes files; when it comes to writing something else has the name.
  connect(fileDialog(), &QFileDialog::fileSelected, this,
          [&desk] { fs::create_directory(desk.folder() / "out.html"); });
  QVERIFY(enterName(fileDialog(), desk.path("out.html")));
  QMessageBox* alert = message(QStringLiteral("The file could not be saved."));
  QVERIFY(alert);
  QVERIFY(alert->informativeText().contains(desk.path("out.html")));
  QVERIFY(answer(alert, kOk));
  QVERIFY(!desk.status().contains(QLatin1String("Saved")));
  QVERIFY(platform::filesBelow(desk.folder()).empty());
}

void ExportTest::warnsOnceOfTextThatABrowserMayRun() {
  const QString scripts = QStringLiteral("This sitemap holds text that a browser may run as a program.");
  const ExportDesk desk;
  desk.writeFile("Shop", "sitemap3c.html", "<a href=\"http://h/\" onclick=\"x()\">T</a>");
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(dismiss(message(scripts)));  // does not count as having agreed
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(answer(message(scripts), QStringLiteral("Export")));
  QVERIFY(dismiss(fileDialog()));
  QVERIFY(desk.click("htmlExportButton"));
  QVERIFY(dismiss(fileDialog()));
}

void ExportTest::asksBeforeReplacingASplitExport() {
  const ExportDesk desk(50'001);
  desk.writeFile("Shop", "sitemap.xml", xmlSitemap(3));
  const QString title = QStringLiteral("The folder holds an earlier export.");
  QVERIFY(platform::replaceFile(desk.folder() / "sitemap-index.xml", "old").ok());
  for (const QString& choice : {kCancel, QStringLiteral("Replace")}) {
    QVERIFY(desk.click("xmlExportButton"));
    QVERIFY(enterName(fileDialog(), desk.path()));
    QMessageBox* question = message(title);
    QVERIFY(question);
    QCOMPARE(desk.read("sitemap-index.xml"), std::string("old"));
    QVERIFY(answer(question, choice));
  }
  QVERIFY(comesTrue([&] { return desk.status().startsWith(QLatin1String("Saved")); }) && noSheetLeft());
  fs::remove(desk.folder() / "sitemap-1.xml");
  fs::create_directory(desk.folder() / "sitemap-1.xml");  // in the way
  QVERIFY(desk.click("xmlExportButton"));
  QVERIFY(enterName(fileDialog(), desk.path()));
  QVERIFY(answer(message(title), QStringLiteral("Replace")));
  QVERIFY(answer(message(QStringLiteral("The sitemap could not be saved.")), kOk));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  // The dialogs that a test can work in place of the platform's own.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  return window_tests::run<window_tests::ExportTest>(argc, argv);
}

#include "export_test.moc"
