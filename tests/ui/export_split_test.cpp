// The export of large sites in the window, as several files with an index.
#include <QCheckBox>
#include <QComboBox>

#include "export_steps.h"
#include "platform/files.h"
#include "platform/qt_text.h"
#include "sitemaps/split_sitemaps.h"

namespace window_tests {

namespace fs = std::filesystem;

class ExportSplitTest : public QObject {
  Q_OBJECT

 private slots:
  void offersToSplitLargeSites();
  void splitsIntoAFolder();
  void asksBeforeReplacingASplitExport();
};

void ExportSplitTest::offersToSplitLargeSites() {
  ExportDesk desk(recordOf(50'001));
  auto& split = desk.control<QCheckBox>("splitXmlBox");
  auto& gzip = desk.control<QCheckBox>("gzipXmlBox");
  QVERIFY(split.isEnabled() && split.isChecked() && gzip.isEnabled());
  split.click();
  QVERIFY(!gzip.isEnabled());
  QVERIFY(desk.click("xmlExportButton"));  // one file all the same
  QFileDialog* dialog = fileDialog();
  QVERIFY(dialog);
  QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
  QVERIFY(dismiss(dialog));
  desk.makeSite("Small", "http://small.test/");
  desk.writeFile("Small", "sitemap.xml", xmlSitemap(1));
  desk.go("exportTBI");
  QVERIFY(split.isEnabled() && split.isChecked());
  desk.control<QComboBox>("sitePickerPopUp").setCurrentText(QStringLiteral("Small"));
  QVERIFY(!split.isEnabled() && !split.isChecked() && !gzip.isEnabled());
  QVERIFY(!split.toolTip().isEmpty());
}

void ExportSplitTest::splitsIntoAFolder() {
  const ExportDesk desk(recordOf(50'001), 50'001);
  desk.control<QCheckBox>("gzipXmlBox").setChecked(true);
  QVERIFY(desk.click("xmlExportButton"));
  QVERIFY(enterName(fileDialog(), desk.path()));
  QVERIFY(comesTrue([&] { return desk.status().startsWith(QLatin1String("Saved 3 file")); }));
  QVERIFY(noSheetLeft());
  QCOMPARE(platform::filesBelow(desk.folder()), sitemaps::splitFileNames(2, sitemaps::Compression::gzip));
  QCOMPARE(desk.read("sitemap-index.xml"),
           sitemaps::sitemapIndex("http://shop.test/", 2, sitemaps::Compression::gzip));
}

void ExportSplitTest::asksBeforeReplacingASplitExport() {
  const ExportDesk desk(recordOf(50'001));
  std::string text = xmlSitemap(3);
  const auto put = [&text](const std::string& old, const std::string& in) {
    text.replace(text.find(old), old.size(), in);
  };
  put("shop.test/0", "shop.test/?a&b");  // is escaped on the way
  put("monthly", "often");
  desk.writeFile("Shop", "sitemap.xml", text);
  const QString title = QStringLiteral("The folder holds an earlier export.");
  QVERIFY(platform::replaceFile(desk.folder() / "sitemap-index.xml", "old").ok());
  for (const QString& choice : {kCancel, QStringLiteral("Replace")}) {
    QVERIFY(desk.click("xmlExportButton"));
    QVERIFY(enterName(fileDialog(), desk.path()));
    QMessageBox* question = message(title);
    QVERIFY(question);
    QCOMPARE(desk.read("sitemap-index.xml"), std::string("old"));
    QCOMPARE(desk.read("sitemap-1.xml"), std::string("(missing)"));
    QVERIFY(answer(question, choice));
  }
  QVERIFY(answer(message(QStringLiteral("The exported sitemap has one fault.")), kOk));
  QVERIFY(desk.status().startsWith(QLatin1String("Saved 2 file")));
  QVERIFY(noSheetLeft());
  const std::string written = desk.read("sitemap-1.xml");
  QCOMPARE(sitemaps::sitemapEntries(written).size(), std::size_t{3});
  QVERIFY(written.find("<loc>http://shop.test/?a&amp;b</loc>") != std::string::npos);

  fs::remove(desk.folder() / "sitemap-1.xml");
  fs::create_directory(desk.folder() / "sitemap-1.xml");  // in the way
  QVERIFY(desk.click("xmlExportButton"));
  QVERIFY(enterName(fileDialog(), desk.path()));
  QVERIFY(answer(message(title), QStringLiteral("Replace")));
  QVERIFY(answer(message(QStringLiteral("The sitemap could not be saved.")), kOk));
  QVERIFY(noSheetLeft());
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::runWithQtDialogs<window_tests::ExportSplitTest>(argc, argv);
}

#include "export_split_test.moc"
