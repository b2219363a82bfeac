// The list of sites, the record of the selected one, and its filters.
#include <QCheckBox>
#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QToolTip>

#include "platform/qt_text.h"
#include "store/site_record.h"
#include "window_test.h"

namespace window_tests {

namespace {

const QString kShop = QStringLiteral("Shop");

const char* const kSiteControls[] = {"scanSiteButton",     "editSiteButton",  "deleteSiteButton",
                                     "filterDrawerButton", "addFilterButton", "delFilterButton",
                                     "newFilterInput",     "copyUrlButton",   "ignoreRobotsButton"};
const char* const kSiteActions[] = {"scanMI",    "editMI",         "deleteMI",
                                    "filtersMI", "ignoreRobotsMI", "openFolderMI"};

bool allSiteControls(const Desk& desk, bool enabled) {
  for (const char* name : kSiteControls) {
    if (desk.enabled(name) != enabled) return qWarning("%s is not as it should be", name), false;
  }
  for (const char* name : kSiteActions) {
    if (desk.control<QAction>(name).isEnabled() != enabled) {
      return qWarning("%s is not as it should be", name), false;
    }
  }
  return true;
}

/// A window with "Shop" in hand and its filter drawer open.
void openFilters(Desk& desk, const std::string& filters) {
  desk.makeSite("Shop", "http://shop.test/");
  if (!filters.empty()) desk.writeFile("Shop", "filters.vskp", filters);
  desk.open();
  desk.select(kShop);
  desk.click("filterDrawerButton");
}

QStringList shownFilters(const Desk& desk) {
  const QAbstractItemModel& model = *desk.control<QTableView>("filterTable").model();
  QStringList rows;
  for (int row = 0; row < model.rowCount(); ++row) rows.append(model.index(row, 0).data().toString());
  return rows;
}

}  // namespace

class ScanViewTest : public QObject {
  Q_OBJECT

 private slots:
  void welcomesWithoutSites();
  void enablesWhatASelectedSiteAllows();
  void offersNothingForARecordWithoutAName_data();
  void offersNothingForARecordWithoutAName();
  void addsMissingCountersOnce();
  void showsStatistics_data();
  void showsStatistics();
  void countsBrokenPages_data();
  void countsBrokenPages();
  void turnsTheRobotsSwitchThereAndBack();
  void convertsOlderRecords();
  void listsSitesByName();
  void searchesSites();
  void showsEachSitesOwnFilters();
  void addsFilters_data();
  void addsFilters();
  void refusesAnEmptyFilter();
  void deletesFilters_data();
  void deletesFilters();
  void opensAndClosesTheDrawer();
  void shortensLongNamesAndAddresses();
  void staysQuickWithManySites();
};

void ScanViewTest::welcomesWithoutSites() {
  Desk desk;
  desk.open();
  auto& area = desk.control<QStackedWidget>("siteArea");
  QCOMPARE(area.currentWidget(), &desk.control<QWidget>("noSitesPage"));
  QVERIFY(allSiteControls(desk, false));
  QVERIFY(desk.nothingSelected());
  QVERIFY(desk.click("firstSiteButton"));
  QDialog* sheet = sheetNamed(QStringLiteral("aedWindow"));
  QVERIFY(sheet);
  QTest::keyClicks(&platform::control<QLineEdit>(*sheet, "aedSiteName"), kShop);
  QTest::keyClicks(&platform::control<QLineEdit>(*sheet, "aedSiteURL"), QStringLiteral("shop.test"));
  QVERIFY(click(platform::control<QPushButton>(*sheet, "defaultButton")));
  QVERIFY(noSheetLeft());
  QCOMPARE(area.currentWidget(), &desk.control<QWidget>("sitePage"));
}

void ScanViewTest::enablesWhatASelectedSiteAllows() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.open();
  QVERIFY(allSiteControls(desk, false));
  QVERIFY(!desk.control<QPushButton>("brokenLinksButton").isVisible());

  QVERIFY(desk.select(kShop));
  QVERIFY(allSiteControls(desk, true));
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2 - Shop"));
  QCOMPARE(desk.window().state().qzvskCurSite, std::string("Shop"));
  QCOMPARE(desk.window().state().qzvskWinTit, std::string("Veskel2 - Shop"));
  QVERIFY(desk.window().state().qzvskViewChanged);
  QCOMPARE(desk.label("siteName"), kShop);
  QCOMPARE(desk.label("siteURL"), QStringLiteral("http://shop.test/"));
  QVERIFY(desk.click("copyUrlButton"));
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://shop.test/"));

  QVERIFY(desk.select(kShop, Qt::ControlModifier));
  QVERIFY(desk.nothingSelected());
  QVERIFY(allSiteControls(desk, false));
}

void ScanViewTest::offersNothingForARecordWithoutAName_data() {
  QTest::addColumn<bool>("gone");
  QTest::newRow("no name in it") << false;
  QTest::newRow("gone") << true;
}

/// The commands go by the name that is shown: without one they would hit all sites.
void ScanViewTest::offersNothingForARecordWithoutAName() {
  QFETCH(const bool, gone);
  Desk desk;
  desk.makeSite("Blog", "http://blog.test/");
  desk.makeSite("Shop", "", "<siteURL>http://shop.test/</siteURL>");
  desk.open();
  if (gone) std::filesystem::remove(desk.controls.returnFullFileLocation("Shop"));
  QVERIFY(desk.select(kShop));
  QCOMPARE(desk.label("siteName"), QString());
  for (const char* name : kSiteControls) {
    QVERIFY2(!desk.enabled(name), name);
    QCOMPARE(desk.control<QWidget>(name).toolTip(), QStringLiteral("The record of this site cannot be read"));
  }
  for (const char* name : {"scanMI", "editMI", "deleteMI"}) QVERIFY(!desk.control<QAction>(name).isEnabled());
  QVERIFY(desk.control<QAction>("openFolderMI").isEnabled());
  QVERIFY(desk.select(QStringLiteral("Blog")));
  QVERIFY(allSiteControls(desk, true));
  QCOMPARE(desk.control<QWidget>("scanSiteButton").toolTip(),
           QStringLiteral("Build the sitemaps of this site anew"));
}

void ScanViewTest::addsMissingCountersOnce() {
  Desk desk;
  const std::string old =
      "<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>\n<ignoreRobotFile>NO</ignoreRobotFile>"
      "\n<pagesFound>3</pagesFound>\n<totalLinks>8</totalLinks>";
  desk.makeSite("Shop", "", old);
  desk.makeSite("Blog", "", "<siteName>Blog</siteName>\n<siteURL>http://blog.test/</siteURL>");
  desk.open();
  QCOMPARE(desk.record("Shop"), old);
  for (int times = 0; times < 2; ++times) {
    QVERIFY(desk.select(kShop));
    QCOMPARE(desk.record("Shop"), old + "\n<pagesUsed>0</pagesUsed>");
    QVERIFY(desk.select(QStringLiteral("Blog")));
    QCOMPARE(
        desk.record("Blog"),
        std::string("<siteName>Blog</siteName>\n<siteURL>http://blog.test/</siteURL>"
                    "\n<pagesFound>0</pagesFound>\n<totalLinks>0</totalLinks>\n<pagesUsed>0</pagesUsed>"));
  }
}

void ScanViewTest::showsStatistics_data() {
  QTest::addColumn<QString>("stored");
  QTest::addColumn<QString>("shown");
  const std::pair<const char*, const char*> cases[] = {{"7", "7"},
                                                       {"1204", "1,204"},
                                                       {"0", "0"},
                                                       {"-3", "0"},
                                                       {"many", "0"},
                                                       {"", "0"},
                                                       {"99999999999999999999", "0"}};
  for (const auto& [stored, shown] : cases) {
    QTest::addRow("\"%s\"", stored) << QString::fromLatin1(stored) << QString::fromLatin1(shown);
  }
}

void ScanViewTest::showsStatistics() {
  QFETCH(const QString, stored);
  QFETCH(const QString, shown);
  const std::string number = platform::toUtf8(stored);
  const std::string head = "<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>";
  const std::pair<const char*, const char*> fields[] = {
      {"pagesFound", "pagesFound"}, {"totalLinks", "totalLinksFound"}, {"pagesUsed", "linksScanned"}};
  // One counter at a time, so that none can stand for another.
  for (const auto& [element, field] : fields) {
    std::string record = head;
    for (const auto& [each, ignored] : fields) {
      const std::string value = each == element ? number : "55";
      record.append("\n<").append(each).append(">").append(value).append("</").append(each).append(">");
    }
    Desk desk;
    desk.makeSite("Shop", "", record);
    desk.open();
    QVERIFY(desk.select(kShop));
    QCOMPARE(desk.label(field), shown);
    QCOMPARE(desk.record("Shop"), record);
  }
}

void ScanViewTest::countsBrokenPages_data() {
  QTest::addColumn<QString>("file");
  QTest::addColumn<QString>("count");
  QTest::newRow("no file") << QString() << QStringLiteral("0");
  QTest::newRow("empty file") << QStringLiteral("") << QStringLiteral("0");
  QTest::newRow("line end behind the last")
      << QStringLiteral("http://a/\nhttp://b/\n") << QStringLiteral("2");
  QTest::newRow("no line end behind the last")
      << QStringLiteral("http://a/\nhttp://b/") << QStringLiteral("2");
}

void ScanViewTest::countsBrokenPages() {
  QFETCH(const QString, file);
  QFETCH(const QString, count);
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.makeSite("Other", "http://other.test/");
  desk.writeFile("Other", "badLinks.txt", "http://other.test/x\n");
  if (!file.isNull()) desk.writeFile("Shop", "badLinks.txt", platform::toUtf8(file));
  desk.open();
  // What another site left must not show through.
  QVERIFY(desk.select(QStringLiteral("Other")));
  QVERIFY(desk.control<QPushButton>("brokenLinksButton").isVisible());
  QVERIFY(desk.select(kShop));
  QCOMPARE(desk.label("brokenLinks"), count);
  const auto& button = desk.control<QPushButton>("brokenLinksButton");
  QCOMPARE(button.isVisible(), count != QLatin1String("0"));
  QCOMPARE(button.isEnabled(), count != QLatin1String("0"));
  QCOMPARE(QString::number(desk.window().state().qzvskBadLinkArray.size()), count);
}

void ScanViewTest::turnsTheRobotsSwitchThereAndBack() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.makeSite("Blog", "http://blog.test/");
  desk.open();
  QVERIFY(desk.select(kShop));
  const std::string before = desk.record("Shop");
  auto& box = desk.control<QCheckBox>("ignoreRobotsButton");
  auto& action = desk.control<QAction>("ignoreRobotsMI");
  QVERIFY(desk.click("ignoreRobotsButton"));
  QVERIFY(box.isChecked() && action.isChecked());
  QVERIFY(store::ignoresRobots(desk.record("Shop")));

  QVERIFY(desk.select(QStringLiteral("Blog")));
  QVERIFY(!box.isChecked() && !action.isChecked());
  QVERIFY(desk.select(kShop));
  QVERIFY(box.isChecked() && action.isChecked());
  QVERIFY(desk.select(kShop, Qt::ControlModifier));
  QVERIFY(!box.isChecked() && !action.isChecked());

  QVERIFY(desk.select(kShop));
  action.trigger();
  QVERIFY(!box.isChecked() && !action.isChecked());
  QCOMPARE(desk.record("Shop"), before);
}

void ScanViewTest::convertsOlderRecords() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  std::filesystem::remove(desk.controls.returnFullFileLocation("Shop"));
  desk.writeFile("Shop", "Shop.qzvsk",
                 "<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>\nmore");
  desk.writeFile("Shop", "sitemap.html", "old");
  desk.writeFile("Shop", "sitemap.xml", "kept");
  desk.open();
  QCOMPARE(desk.listedSites(), QStringList{kShop});
  QCOMPARE(desk.file("Shop", "Shop.qzvsk"), std::string("(missing)"));
  QCOMPARE(desk.file("Shop", "sitemap.html"), std::string("(missing)"));
  QCOMPARE(desk.file("Shop", "sitemap.xml"), std::string("kept"));
  QCOMPARE(desk.record("Shop"),
           std::string("<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>"
                       "\n<ignoreRobotFile>NO</ignoreRobotFile>\n<pagesFound>0</pagesFound>"
                       "\n<totalLinks>0</totalLinks>"));
}

void ScanViewTest::listsSitesByName() {
  Desk desk;
  for (const char* name : {"Zoo", "Blog", "Shop"}) desk.makeSite(name, "http://a.test/");
  desk.writeFile("Shop", "Shop.qzVSK",
                 store::newSiteRecord("Shop", "http://shop.test/") + "\n<pagesUsed>2</pagesUsed>");
  desk.open();
  QCOMPARE(desk.listedSites(), (QStringList{QStringLiteral("Blog"), kShop, QStringLiteral("Zoo")}));
}

void ScanViewTest::searchesSites() {
  Desk desk;
  for (const char* name : {"Shop", "Workshop", "Blog"}) desk.makeSite(name, "http://a.test/");
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Blog")));
  QTest::keyClick(&desk.window(), Qt::Key_F, Qt::ControlModifier);
  auto& search = desk.control<QLineEdit>("siteSearch");
  QVERIFY(search.hasFocus());
  QTest::keyClicks(&search, QStringLiteral("sHop"));
  QCOMPARE(desk.listedSites(), (QStringList{kShop, QStringLiteral("Workshop")}));
  // A site that is not to be seen is not in hand either.
  QVERIFY(desk.nothingSelected());
  QVERIFY(allSiteControls(desk, false));
  QVERIFY(desk.select(QStringLiteral("Workshop")));
  QCOMPARE(desk.label("siteName"), QStringLiteral("Workshop"));
  search.clear();
  QCOMPARE(desk.listedSites().size(), 3);
  QCOMPARE(desk.label("siteName"), QStringLiteral("Workshop"));
}

void ScanViewTest::showsEachSitesOwnFilters() {
  Desk desk;
  desk.makeSite("Blog", "http://blog.test/");
  openFilters(desk, "/private\n\n#\n");
  QCOMPARE(shownFilters(desk), (QStringList{QStringLiteral("/private"), QStringLiteral("#")}));
  QVERIFY(desk.select(QStringLiteral("Blog")));
  QCOMPARE(shownFilters(desk), QStringList());
  QCOMPARE(desk.file("Blog", "filters.vskp"), std::string());
  QVERIFY(desk.select(kShop));
  QCOMPARE(desk.window().state().qzvskFiltersArray, (std::vector<std::string>{"/private", "#"}));
}

void ScanViewTest::addsFilters_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("file");
  QTest::addColumn<int>("rows");
  QTest::newRow("another") << QStringLiteral("/cart") << QStringLiteral("/private\n/cart\n") << 2;
  QTest::newRow("the same again") << QStringLiteral("/private") << QStringLiteral("/private\n/private\n")
                                  << 2;
  QTest::newRow("with blanks") << QStringLiteral("  /cart ") << QStringLiteral("/private\n  /cart \n") << 2;
  QTest::newRow("a blank alone") << QStringLiteral(" ") << QStringLiteral("/private\n \n") << 2;
}

void ScanViewTest::addsFilters() {
  QFETCH(const QString, typed);
  QFETCH(const QString, file);
  QFETCH(const int, rows);
  for (const bool byReturn : {false, true}) {
    Desk desk;
    openFilters(desk, "/private\n");
    auto& input = desk.control<QLineEdit>("newFilterInput");
    QTest::keyClicks(&input, typed);
    if (byReturn) {
      QTest::keyClick(&input, Qt::Key_Return);
    } else {
      QVERIFY(desk.click("addFilterButton"));
    }
    QCOMPARE(desk.file("Shop", "filters.vskp"), platform::toUtf8(file));
    QCOMPARE(shownFilters(desk).size(), rows);
    QCOMPARE(shownFilters(desk).last(), typed);
    QCOMPARE(input.text(), QString());
    QVERIFY(topSheet() == nullptr);
  }
}

void ScanViewTest::refusesAnEmptyFilter() {
  Desk desk;
  openFilters(desk, "/private\n");
  QVERIFY(desk.click("addFilterButton"));
  QMessageBox* alert = message(QStringLiteral("Cannot Add Filter"));
  QVERIFY(alert);
  QCOMPARE(alert->informativeText(), QStringLiteral("There is nothing to add!"));
  QVERIFY(answer(alert, QStringLiteral("OK")));
  QCOMPARE(desk.file("Shop", "filters.vskp"), std::string("/private\n"));
  QCOMPARE(shownFilters(desk), QStringList{QStringLiteral("/private")});
}

void ScanViewTest::deletesFilters_data() {
  QTest::addColumn<QList<int>>("rows");
  QTest::addColumn<QString>("file");
  QTest::newRow("none selected") << QList<int>() << QStringLiteral("a\nb\na\nc\n");
  QTest::newRow("one of two alike") << QList<int>{2} << QStringLiteral("a\nb\nc\n");
  QTest::newRow("several") << QList<int>{0, 1, 3} << QStringLiteral("a\n");
  QTest::newRow("all") << QList<int>{0, 1, 2, 3} << QStringLiteral("");
}

void ScanViewTest::deletesFilters() {
  QFETCH(const QList<int>, rows);
  QFETCH(const QString, file);
  for (const bool byKey : {false, true}) {
    Desk desk;
    openFilters(desk, "a\nb\na\nc\n");
    auto& table = desk.control<QTableView>("filterTable");
    for (const int row : rows) {
      const QPoint place = table.visualRect(table.model()->index(row, 0)).center();
      QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier, place);
    }
    if (byKey) {
      table.setFocus();
      QTest::keyClick(&table, Qt::Key_Delete);
    } else {
      QVERIFY(desk.click("delFilterButton"));
    }
    QCOMPARE(desk.file("Shop", "filters.vskp"), platform::toUtf8(file));
    QCOMPARE(shownFilters(desk).join(QLatin1String("\n")), file.trimmed());
    QVERIFY(topSheet() == nullptr);  // the key deletes filters, not the site
  }
}

void ScanViewTest::opensAndClosesTheDrawer() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.open();
  QVERIFY(desk.select(kShop));
  auto& drawer = desk.control<QDockWidget>("filterDrawer");
  const auto& button = desk.control<QPushButton>("filterDrawerButton");
  const bool& meantToBeOpen = desk.window().state().qzvskPLastState;
  for (const bool open : {true, false, true}) {
    QVERIFY(desk.click("filterDrawerButton"));
    QCOMPARE(drawer.isVisible(), open);
    QCOMPARE(meantToBeOpen, open);
    QCOMPARE(button.isChecked(), open);
  }
  drawer.close();  // by its own button
  QVERIFY(!meantToBeOpen);
  QVERIFY(!button.isChecked());
  QVERIFY(desk.click("filterDrawerButton"));
  QVERIFY(drawer.isVisible());
}

void ScanViewTest::shortensLongNamesAndAddresses() {
  Desk desk;
  const std::string name(200, 'W');
  const std::string url = "http://shop.test/" + std::string(3000, 'w');
  desk.makeSite(name, url);
  desk.open();
  const int width = desk.window().width();
  QVERIFY(desk.select(platform::toQString(name)));
  QTest::qWait(0);
  QCOMPARE(desk.window().width(), width);
  QCOMPARE(desk.label("siteName"), platform::toQString(name));
  QCOMPARE(desk.label("siteURL"), platform::toQString(url));
  for (const char* field : {"siteName", "siteURL"}) {
    auto& label = desk.control<QLabel>(field);
    QVERIFY(label.width() < label.fontMetrics().horizontalAdvance(label.text()));
    QVERIFY(label.mapTo(&desk.window(), label.rect().bottomRight()).x() < width);
    QHelpEvent hover(QEvent::ToolTip, label.rect().center(), label.mapToGlobal(label.rect().center()));
    QApplication::sendEvent(&label, &hover);
    QCOMPARE(QToolTip::text(), label.text());
  }
}

void ScanViewTest::staysQuickWithManySites() {
  Desk desk;
  constexpr int kSites = 1000;
  for (int i = 0; i < kSites; ++i) {
    desk.makeSite("Site " + std::to_string(10'000 + i), "http://a.test/" + std::to_string(i));
  }
  desk.open();
  QCOMPARE(desk.listedSites().size(), kSites);
  auto& search = desk.control<QLineEdit>("siteSearch");
  QTest::keyClicks(&search, QStringLiteral("10777"));
  QCOMPARE(desk.listedSites(), QStringList{QStringLiteral("Site 10777")});
  QVERIFY(desk.select(QStringLiteral("Site 10777")));
  QCOMPARE(desk.label("siteURL"), QStringLiteral("http://a.test/777"));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::ScanViewTest>(argc, argv);
}

#include "scan_view_test.moc"
