// The whole way of a sitemap: scanned, edited in both views, exported, and found valid.
#include <QComboBox>
#include <QTableView>

#include "export_steps.h"
#include "platform/files.h"
#include "platform/qt_text.h"
#include "sitemaps/xml_validation.h"

namespace window_tests {

class ExportCycleTest : public QObject {
  Q_OBJECT

 private slots:
  void scansEditsExportsAndValidates();
};

namespace {

std::size_t count(const std::string& text, const std::string& what) {
  std::size_t found = 0;
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += what.size()) ++found;
  return found;
}

/// Opens the editor of a cell and types a text in place of the old one.
bool typeInto(QTableView& table, const QModelIndex& cell, const QString& text) {
  table.setFocus();
  table.setCurrentIndex(cell);
  QTest::keyClick(&table, Qt::Key_F2);
  const auto editor = [&table] { return table.viewport()->findChild<QLineEdit*>(); };
  if (!comesTrue([&] { return editor() != nullptr; })) return false;
  QLineEdit* line = editor();
  line->selectAll();
  QTest::keyClicks(line, text);
  QTest::keyClick(line, Qt::Key_Return);
  return comesTrue([&] { return editor() == nullptr; });
}

bool exportTo(const Desk& desk, const char* button, const std::filesystem::path& file) {
  return desk.click(button) && enterName(fileDialog(), platform::toQString(file.native())) && noSheetLeft();
}

}  // namespace

void ExportCycleTest::scansEditsExportsAndValidates() {
  const support::SiteServer server(smallSite());
  const support::TempFolder folder;
  HtmlDesk desk(kNeverScanned);
  desk.makeSite("Shop", server.url());
  desk.open();
  QVERIFY(desk.select(kShop));
  QVERIFY(scan(desk));

  desk.go(2);
  QVERIFY(desk.shown());
  QVERIFY(desk.clickLink(QStringLiteral("a.html")));
  QVERIFY(desk.type("titleEditInput", QStringLiteral("Tea and more")));  // is saved at once

  desk.go(4);
  auto& table = desk.control<QTableView>("xmlTableView");
  const QAbstractItemModel& model = *table.model();
  QCOMPARE(model.rowCount(), 4);
  QVERIFY(typeInto(table, model.index(1, 1), QStringLiteral("2011-02-03")));
  desk.control<QAction>("highestPriority").trigger();
  table.setCurrentIndex(model.index(3, 0));
  QVERIFY(desk.click("delLinkButton"));
  QVERIFY(comesTrue([] { return answer(topSheet(), QStringLiteral("Delete Link")); }));
  QVERIFY(noSheetLeft());

  desk.go(5);
  QVERIFY(exportTo(desk, "htmlExportButton", folder.path() / "map.html"));
  QVERIFY(exportTo(desk, "xmlExportButton", folder.path() / "map.xml"));
  const std::string html = platform::readFile(folder.path() / "map.html").text;
  QVERIFY(html.find("LINKID") == std::string::npos);
  QVERIFY(html.find("/a.html\">Tea and more</a>") != std::string::npos);

  const std::string xml = platform::readFile(folder.path() / "map.xml").text;
  sitemaps::XmlValidationBase base = sitemaps::validationBaseNow();
  base.siteUrl = server.url();
  const auto findings = sitemaps::validateXmlSitemap(xml, base);
  QVERIFY2(findings.empty(), findings.empty() ? "" : findings.front().message.c_str());
  QCOMPARE(count(xml, "<url>"), std::size_t{3});
  QCOMPARE(count(xml, "<lastmod>"), std::size_t{1});
  QVERIFY(xml.find("<lastmod>2011-02-03</lastmod>\n\t\t<changefreq>monthly</changefreq>"
                   "\n\t\t<priority>1</priority>\n\t</url>") != std::string::npos);
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::runWithQtDialogs<window_tests::ExportCycleTest>(argc, argv);
}

#include "export_cycle_test.moc"
