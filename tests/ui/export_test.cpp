// Exports in the window: every kind, with its dialogs answered and cancelled.
#include <QCheckBox>
#include <QComboBox>
#include <QProgressBar>
#include <algorithm>

#include "export_steps.h"
#include "platform/files.h"
#include "platform/qt_text.h"
#include "sitemaps/html_format.h"
#include "sitemaps/xml_format.h"

namespace window_tests {

namespace fs = std::filesystem;
using platform::toQString;
using platform::toUtf8;

namespace {

/// Whether the dialog saves, and offers this name and all of these types under one heading.
bool proposes(QFileDialog* dialog, const QString& name, const QStringList& types) {
  if (dialog == nullptr || dialog->acceptMode() != QFileDialog::AcceptSave) return false;
  const QStringList filters = dialog->nameFilters();
  return nameField(*dialog).text() == name && filters.size() == 1 &&
         std::all_of(types.begin(), types.end(),
                     [&](const QString& type) { return filters.first().contains(type); });
}

}  // namespace

class ExportTest : public QObject {
  Q_OBJECT

 private slots:
  void ticksOneLayoutAtATime();
  void exportsTheTickedLayout();
  void exportsXmlWithoutEmptyElements();
  void asksBeforeReplacing();
  void leavesTheProgressSheetUpUntilReady();
  void exportsBrokenLinks();
  void remembersTheSaveFolder();
  void reloadsTheExportView();
  void closesWhileAnExportRuns();
};

void ExportTest::ticksOneLayoutAtATime() {
  const ExportDesk desk;
  const auto ticked = [&desk] {
    QStringList names;
    for (const char* box : kLayoutBoxes) {
      if (desk.control<QCheckBox>(box).isChecked()) names.append(QLatin1String(box));
    }
    return names;
  };
  QCOMPARE(ticked(), QStringList{QStringLiteral("threeCSF")});
  for (const char* box : kLayoutBoxes) {
    for (int i = 0; i < 2; ++i) {  // once more does not untick it
      QTest::mouseClick(&desk.control<QCheckBox>(box), Qt::LeftButton, {},
                        QPoint(5, desk.control<QCheckBox>(box).height() / 2));
      QCOMPARE(ticked(), QStringList{QLatin1String(box)});
    }
    QVERIFY(!desk.control<QCheckBox>(box).icon().isNull());
    QVERIFY(!desk.control<QCheckBox>(box).accessibleName().isEmpty());
  }
}

void ExportTest::exportsTheTickedLayout() {
  const ExportDesk desk;
  for (int layout = 0; layout < 6; ++layout) {
    const std::string file = "out" + std::to_string(layout) + ".php";
    desk.control<QCheckBox>(kLayoutBoxes[layout]).click();
    QVERIFY(desk.click("htmlExportButton"));
    QFileDialog* dialog = fileDialog();
    QVERIFY(proposes(dialog, QStringLiteral("sitemap.html"),
                     {QStringLiteral("*.html"), QStringLiteral("*.php"), QStringLiteral("*.asp"),
                      QStringLiteral("*.htm")}));
    QVERIFY(enterName(dialog, desk.path(file)));
    QVERIFY(noSheetLeft());
    QCOMPARE(desk.read(file),
             kLayoutFiles[layout] +
                 std::string("\n\t\t\t<div class=\"vskPageTitle\"><a href=\"http://h/\">T</a></div>\n"));
    QCOMPARE(desk.status(), QStringLiteral("Saved ") + desk.path(file));
  }
}

void ExportTest::exportsXmlWithoutEmptyElements() {
  const ExportDesk desk;
  QVERIFY(desk.click("xmlExportButton"));
  QFileDialog* dialog = fileDialog();
  QVERIFY(proposes(dialog, QStringLiteral("sitemap.xml"), {QStringLiteral("*.xml")}));
  QVERIFY(enterName(dialog, desk.path("out")));  // the extension is added
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.read("out.xml"), std::string(sitemaps::kXmlHeader) +
                                     "\n\t<url>\n\t\t<loc>http://shop.test/0</loc>\n\t\t<changefreq>monthly"
                                     "</changefreq>\n\t\t<priority>0.5</priority>\n\t</url>\n</urlset>");
  QCOMPARE(desk.file("Shop", "sitemap.xml"), xmlSitemap(1));  // the site's own stays as it is
}

void ExportTest::asksBeforeReplacing() {
  const ExportDesk desk;
  QVERIFY(platform::replaceFile(desk.folder() / "out.html", "old").ok());
  for (const bool replace : {false, true}) {
    QVERIFY(desk.click("htmlExportButton"));
    QFileDialog* dialog = fileDialog();
    bool asked = false;
    answerWhenAsked(replace ? QMessageBox::Yes : QMessageBox::No, asked);
    QVERIFY(enterName(dialog, desk.path("out.html")));
    QVERIFY(comesTrue([&] { return asked; }));
    if (!replace) {
      QCOMPARE(desk.read("out.html"), std::string("old"));
      QVERIFY(dismiss(fileDialog()));
    }
    QVERIFY(noSheetLeft());
  }
  QVERIFY(desk.read("out.html").starts_with("sitemap3c.html\n"));
}

void ExportTest::leavesTheProgressSheetUpUntilReady() {
  const ExportDesk desk;
  QVERIFY(desk.click("xmlExportButton"));
  QDialog* panel = sheetNamed(kProgressPanel);
  QVERIFY(panel);
  const auto& bar = platform::control<QProgressBar>(*panel, "exportProgress");
  QCOMPARE(bar.maximum(), 0);  // the end is not known
  pressEscape(*panel);
  panel->close();
  QVERIFY(panel->isVisible());
  QFileDialog* dialog = fileDialog();
  QVERIFY(dialog);
  nameField(*dialog).setText(desk.path("out.xml"));
  QVERIFY(dismiss(dialog));
  QVERIFY(desk.nothingWritten());

  std::string text;
  for (int i = 0; i < 200'000; ++i) text += sitemaps::linkEntry("http://shop.test/", i, "T");
  desk.writeFile("Shop", "sitemap3c.html", text);
  QVERIFY(desk.click("htmlExportButton"));
  QCOMPARE(bar.maximum(), 20);
  QCOMPARE(bar.value(), 1);
  int steps = 0;
  connect(&bar, &QProgressBar::valueChanged, panel, [&steps] { ++steps; });
  QVERIFY(enterName(fileDialog(), desk.path("out.html")));
  QVERIFY(noSheetLeft());
  QVERIFY2(steps > 100, qPrintable(QString::number(steps)));
  QCOMPARE(bar.maximum(), 200'001);
  QVERIFY(!toQString(desk.read("out.html")).contains(QLatin1String("LINKID")));
}

void ExportTest::exportsBrokenLinks() {
  struct Case {
    const char* button;
    const char* proposed;
    const char* type;
    QString end;
  };
  const Case cases[] = {
      {"exportBrokenAsTXTButton", "brokenLinksExport.txt", ".txt",
       QStringLiteral("http://shop.test/a\nhttp://shop.test/b\n\n")},
      {"exportBrokenAsHTMLButton", "brokenLinksExport.html", ".html",
       QStringLiteral("\n\t<p><a href=\"http://shop.test/b\">http://shop.test/b</a></p>"
                      "\n</body>\n</html>\n")},
  };
  const ExportDesk desk;
  desk.go("brokenMI");
  for (const Case& c : cases) {
    for (const bool save : {false, true}) {
      QVERIFY(desk.click(c.button));
      QFileDialog* dialog = fileDialog();
      QVERIFY(dialog);
      QCOMPARE(nameField(*dialog).text(), QLatin1String(c.proposed));
      const std::string name = std::string("out") + c.type;
      if (!save) {
        nameField(*dialog).setText(desk.path("out"));
        QVERIFY(dismiss(dialog));
        QCOMPARE(desk.read(name), std::string("(missing)"));
        continue;
      }
      QVERIFY(enterName(dialog, desk.path("out")));
      QVERIFY(noSheetLeft());
      QVERIFY(toQString(desk.read(name)).endsWith(c.end));
    }
  }
  // An empty list is a file, too.
  desk.window().state().qzvskBadLinkArray.clear();
  QVERIFY(desk.click("exportBrokenAsTXTButton"));
  QVERIFY(enterName(fileDialog(), desk.path("none.txt")));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.read("none.txt"), std::string("\n"));
}

void ExportTest::remembersTheSaveFolder() {
  const ExportDesk desk;
  const auto& input = desk.control<QLineEdit>("saveToInput");
  QVERIFY(input.isReadOnly() && input.text().isEmpty());
  QVERIFY(desk.click("saveToButton"));
  QVERIFY(dismiss(fileDialog()));
  QVERIFY(input.text().isEmpty());
  QVERIFY(desk.click("saveToButton"));
  QFileDialog* dialog = fileDialog();
  QVERIFY(dialog);
  QCOMPARE(dialog->labelText(QFileDialog::Accept), QStringLiteral("Set Save Folder"));
  QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
  QVERIFY(enterName(dialog, desk.path()));
  QVERIFY(noSheetLeft());
  QCOMPARE(fs::canonical(toUtf8(input.text())), fs::canonical(desk.folder()));
}

void ExportTest::reloadsTheExportView() {
  const ExportDesk desk;
  ui::MainViewControl& views = desk.window().views();
  int offered = 0;
  views.setCheckSave([&] { ++offered; });
  desk.go("scanTBI");
  offered = 0;
  desk.window().setWindowTitle(QStringLiteral("x"));
  fs::remove(desk.controls.siteFolder("Shop") / "sitemap.xml");
  views.exportReload();
  QCOMPARE(views.returnCurrentView(), 5);
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2"));
  QCOMPARE(offered, 1);
  // The buttons went by the sites known before, the picker shows those of now.
  QVERIFY(desk.enabled("htmlExportButton") && desk.enabled("xmlExportButton"));
  QCOMPARE(views.sitePickerPopUpArray(), QStringList{QStringLiteral("No Sites Have Been Scanned")});
  views.exportReload();
  QVERIFY(!desk.enabled("htmlExportButton") && !desk.enabled("xmlExportButton"));
}

void ExportTest::closesWhileAnExportRuns() {
  ExportDesk desk;
  QVERIFY(desk.click("xmlExportButton"));
  QVERIFY(sheetNamed(kProgressPanel));
  desk.close();  // comes back only when the worker is over
  QVERIFY(topSheet() == nullptr);
  desk.open();
  QVERIFY(desk.select(kShop));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::runWithQtDialogs<window_tests::ExportTest>(argc, argv);
}

#include "export_test.moc"
