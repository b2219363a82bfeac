// Exports in the window, from the button to the bytes on disk: every kind, its questions, and what is told
// when it comes to nothing. What becomes of a document is tested with its rules.
#include <QFileDialog>

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

/// The window at its export view. By its record the site is too large for one file.
class ExportDesk : public Desk {
 public:
  ExportDesk() {
    makeSite("Shop", "",
             "<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>\n"
             "<pagesUsed>50001</pagesUsed>\n");
    writeFile("Shop", "sitemap.xml",
              std::string(sitemaps::kXmlHeader) + sitemaps::xmlEntry("http://shop.test/0", "") +
                  std::string(sitemaps::kXmlClosing));
    writeFile("Shop", "badLinks.txt", "http://shop.test/a\nhttp://shop.test/b\n");
    for (const char* file : {"sitemap3c.html", "sitemap1cpo.html"})
      writeFile("Shop", file, file + sitemaps::pageEntry("http://h/", 1, "T") + "\n");
    begin();
  }

  void begin() {
    open();
    select(kShop);
    go(5);
  }
  const fs::path& folder() const { return m_folder.path(); }
  /// Where a file of this name is exported to; the folder itself without one.
  QString path(const std::string& name = {}) const { return toQString((folder() / name).native()); }
  std::string read(const std::string& name) const { return textOf(folder() / name); }

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

}  // namespace

class ExportTest : public QObject {
  Q_OBJECT

 private slots:
  void listsScannedSites() {
    Desk desk;
    desk.makeSite("Never", "http://a.test/");
    desk.openShop();
    auto& picker = desk.control<QComboBox>("sitePickerPopUp");
    desk.go(5);
    QCOMPARE(picker.currentText(), QStringLiteral("No Sites Have Been Scanned"));
    QVERIFY(desk.areAll(false, {"htmlExportButton", "xmlExportButton", "sitePickerPopUp"}));

    for (const char* name : {"Alpha", "Shop"}) desk.writeFile(name, "sitemap.xml", "<urlset>");
    desk.writeFile("Never", "notes.XML", "");  // the ending is compared as written
    desk.go(5);
    QCOMPARE(picker.count(), 2);
    QCOMPARE(picker.itemText(0), QStringLiteral("Alpha"));
    QCOMPARE(picker.currentText(), kShop);
    QVERIFY(desk.areAll(true, {"htmlExportButton", "xmlExportButton", "sitePickerPopUp"}));
  }

  void exportsTheTickedLayoutToTheSaveFolder() {
    ExportDesk desk;
    QVERIFY(desk.click("saveToButton"));
    QVERIFY(enterName(fileDialog(), desk.path()) && noSheetLeft());
    desk.close();
    desk.begin();
    for (const auto& [box, layout] :
         {std::pair("oneCST", "sitemap1cpo"), std::pair("threeCSF", "sitemap3c")}) {
      const std::string file = std::string(layout) + ".html";
      desk.control<QCheckBox>(box).toggle();
      QVERIFY(desk.click("htmlExportButton"));
      QVERIFY(fileDialog());
      QCOMPARE(fs::path(toUtf8(fileDialog()->directory().path())), desk.folder());
      QVERIFY(enterName(fileDialog(), QLatin1String(layout)) && noSheetLeft());
      QCOMPARE(desk.read(file),
               file + "\n\t\t\t<div class=\"vskPageTitle\"><a href=\"http://h/\">T</a></div>\n");
      QCOMPARE(desk.status(), QStringLiteral("Saved ") + desk.path(file));
    }
  }

  void exportsXmlAndBrokenLinks() {
    const ExportDesk desk;
    desk.control<QCheckBox>("splitXmlBox").toggle();
    QVERIFY(desk.click("xmlExportButton"));
    QDialog* panel = sheetNamed(QStringLiteral("exportCustomPanel"));
    QVERIFY(panel);
    pressEscape(*panel);
    QVERIFY(panel->isVisible());  // the work goes on
    QVERIFY(enterName(fileDialog(), desk.path("sitemap")) && noSheetLeft());
    QVERIFY(desk.read("sitemap.xml").ends_with("<priority>0.5</priority>\n\t</url>\n</urlset>"));
    QVERIFY(desk.file("Shop", "sitemap.xml") != desk.read("sitemap.xml"));  // which stays as it is

    for (const QString& kind : {QStringLiteral("txt"), QStringLiteral("html")}) {
      desk.go(7);
      const std::string button = "exportBrokenAs" + kind.toUpper().toStdString() + "Button";
      const std::string proposed = "brokenLinksExport." + kind.toStdString();
      QVERIFY(desk.click(button.c_str()));
      QVERIFY(fileDialog() && !fileDialog()->testOption(QFileDialog::DontConfirmOverwrite));
      desk.window().state().qzvskBadLinkArray.push_back("http://shop.test/c");  // for another export
      QCOMPARE(desk.read(proposed), "(missing)");
      QVERIFY(enterName(fileDialog(), desk.path("brokenLinksExport")) && noSheetLeft());
      const std::string text = desk.read(proposed);  // the extension was added
      QVERIFY(text.find("http://shop.test/b") != std::string::npos &&
              text.find("test/c") == std::string::npos);
      desk.window().state().qzvskBadLinkArray.pop_back();
    }
  }

  /// Between its sheets the window can be worked: what is chosen there is for another export.
  void splitsWhatWasAskedFor() {
    const ExportDesk desk;
    desk.makeSite("Small", "http://small.test/");
    desk.writeFile("Small", "sitemap.xml", "<urlset>");
    desk.go(5);
    desk.control<QCheckBox>("gzipXmlBox").setChecked(true);
    QVERIFY(desk.click("xmlExportButton"));
    QVERIFY(sheetNamed(QStringLiteral("exportCustomPanel")));
    QVERIFY(noSheetLeft());
    desk.control<QComboBox>("sitePickerPopUp").setCurrentText(QStringLiteral("Small"));
    QVERIFY(!desk.control<QCheckBox>("splitXmlBox").isChecked());
    QVERIFY(enterName(fileDialog(), desk.path()));
    QVERIFY(comesTrue([&] { return desk.status().startsWith(QLatin1String("Saved 2 file")); }));
    QCOMPARE(platform::filesBelow(desk.folder()), sitemaps::splitFileNames(1, sitemaps::Compression::gzip));
    QCOMPARE(desk.read("sitemap-index.xml"),
             sitemaps::sitemapIndex("http://shop.test/", 1, sitemaps::Compression::gzip));
  }

  void asksBeforeReplacingASplitExport() {
    const ExportDesk desk;
    fs::create_directory(desk.folder() / "sitemap-1.xml");  // and cannot be replaced
    for (const QString& choice : {kCancel, QStringLiteral("Replace")}) {
      QVERIFY(desk.click("xmlExportButton"));
      QVERIFY(enterName(fileDialog(), desk.path()));
      QVERIFY(answer(message(QStringLiteral("The folder holds an earlier export.")), choice));
    }
    QVERIFY(answer(message(QStringLiteral("The sitemap could not be saved.")), kOk));
  }

  void closesWhileAnExportRuns() {
    ExportDesk desk;
    QVERIFY(desk.click("xmlExportButton"));
    QVERIFY(sheetNamed(QStringLiteral("exportCustomPanel")));
    desk.close();  // comes back only when the worker is over
    QVERIFY(topSheet() == nullptr);
  }

  void tellsWhatItCouldNotDo() {
    const ExportDesk desk;
    {
      const platform::FolderLock scan(desk.controls.siteFolder("Shop"));
      QVERIFY(desk.click("htmlExportButton"));
      QVERIFY(answer(message(QStringLiteral("The site is being scanned.")), kOk));
    }
    fs::remove(desk.controls.siteFolder("Shop") / "sitemap.xml");
    QVERIFY(desk.click("xmlExportButton"));  // the one before has ended
    QVERIFY(answer(message(QStringLiteral("The sitemap you are trying to export could not be found, please "
                                          "make sure you have scanned your site before exporting.")),
                   kOk));
    desk.go(7);
    QVERIFY(desk.click("exportBrokenAsTXTButton"));
    QVERIFY(fileDialog());
    // The dialog sees a folder that takes files; when it comes to writing something else has the name.
    connect(fileDialog(), &QFileDialog::fileSelected, this,
            [&desk] { fs::create_directory(desk.folder() / "out.txt"); });
    QVERIFY(enterName(fileDialog(), desk.path("out.txt")));
    QMessageBox* alert = message(QStringLiteral("The file could not be saved."));
    QVERIFY(alert && alert->informativeText().contains(desk.path("out.txt")));
    QVERIFY(answer(alert, kOk));
    QVERIFY(!desk.status().contains(QLatin1String("Saved")));
  }

  void warnsOnceOfTextThatABrowserMayRun() {
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
};

}  // namespace window_tests

int main(int argc, char** argv) {
  // The dialogs that a test can work in place of the platform's own.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  return window_tests::run<window_tests::ExportTest>(argc, argv);
}

#include "export_test.moc"
