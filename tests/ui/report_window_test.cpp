// Where broken links stand, and the window of the report.
#include "ui/report_window.h"

#include <QAccessible>
#include <QHeaderView>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QWindow>

#include "platform/qt_text.h"
#include "report/report_database.h"
#include "scan_steps.h"
#include "ui/plot_view.h"

namespace window_tests {

namespace {

using crawler::LinkReason;
using crawler::PageStanding;
using report::Page;
using report::ReportDatabase;

constexpr const char* kTitle = "<b>Tea</b>\nand more";

/// "http://shop.test/" and the rest.
std::string at(const std::string& path) {
  return "http://shop.test/" + path;
}

/// A page linked from the start page by "to NAME", if it is linked.
Page page(std::uint32_t number, const std::string& path, const Page& more = {}) {
  Page page = more;
  page.number = number;
  page.address = at(path);
  if (page.status == 0) page.status = page.brokenReason.empty() ? 200 : 404;
  if (!page.brokenReason.empty()) page.standing = PageStanding::broken;
  return page;
}

std::vector<Page> shopPages() {
  return {page(0, "", {.title = "Start", .bytes = 100}),
          page(1, "tea", {.title = kTitle, .bytes = 2'000, .linkedFrom = 1}),
          page(2, "cups", {.title = "Cups", .bytes = 30'000, .linkedFrom = 1}),
          page(3, "gone", {.brokenReason = "404 - Not Found", .linkedFrom = 1}),
          page(4, "old",
               {.redirectedTo = at("tea"),
                .standing = PageStanding::leftOut,
                .leftOutBy = LinkReason::redirected,
                .linkedFrom = 1})};
}

void keepScan(const Desk& desk, const std::vector<Page>& pages, const std::string& end = "complete") {
  ReportDatabase database(desk.stateFolder, "Shop", ReportDatabase::Use::write);
  std::string links;
  for (const Page& each : pages) {
    if (each.linkedFrom > 0) report::packLink(links, {false, each.number}, "to " + each.address);
  }
  report::packLink(links, {true, 0}, "Away");
  database.begin({.started = 1'000, .ended = 1'012, .end = end, .pagesUsed = 3, .broken = 1, .links = 9});
  for (const Page& each : pages)
    database.add({each, each.number == 0 ? std::string_view(links) : std::string_view()});
  database.add(report::OutsideAddress{0, "http://away.test/", 1});
  database.commit(true);
}

/// What the table shows, cell by cell.
QString textOf(const QTableView& table) {
  QStringList cells;
  for (int row = 0; row < table.model()->rowCount(); ++row) {
    for (int column = 0; column < table.model()->columnCount(); ++column) {
      if (!table.isColumnHidden(column)) cells.append(table.model()->index(row, column).data().toString());
    }
  }
  return cells.join(QLatin1Char('|'));
}

bool comesToShow(const QTableView& table, const QString& text) {
  return comesTrue([&] { return textOf(table) == text; });
}

}  // namespace

class ReportWindowTest : public QObject {
  Q_OBJECT

  static ui::ReportWindow* openReport(const Desk& desk) {
    desk.control<QAction>("scanReportMI").trigger();
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* report = qobject_cast<ui::ReportWindow*>(window); report && report->isVisible())
        return report;
    }
    return nullptr;
  }
  template <typename Control>
  static Control& in(const ui::ReportWindow& window, const char* name) {
    return platform::control<Control>(window, name);
  }

 private slots:
  void tellsWhereBrokenLinksStand() {
    Desk desk;
    desk.writeFile("Shop", "badLinks.txt", at("gone") + "\n" + at("lost") + "\n");
    desk.writeFile("Shop", "filters.vskp", "/private\n");
    QVERIFY(desk.reasons.save("Shop", {{at("gone"), "404 - Not Found"}}).ok());
    desk.openShop();
    auto& linking = desk.control<QTableView>("badLinkPages");
    const auto says = [&](const char* words) {
      const auto* hint = linking.viewport()->findChild<QLabel*>();
      return comesTrue([&] { return hint->isVisible() && hint->text().contains(QLatin1String(words)); });
    };
    desk.go(7);
    QVERIFY(says("Nothing is known"));
    const auto selectAgain = [&] {
      desk.go(1);
      return desk.select(kShop, Qt::ControlModifier) && desk.select(kShop);
    };
    keepScan(desk, shopPages());
    QVERIFY(selectAgain());
    desk.go(7);
    QVERIFY(says("Select a page"));
    auto& table = desk.control<QTableView>("badLinkTable");
    table.selectRow(0);
    QVERIFY(comesToShow(linking, QStringLiteral("http://shop.test/|to http://shop.test/gone")));
    QVERIFY(desk.click("exportBrokenAsCSVButton"));
    QVERIFY(comesTrue([] { return topSheet() != nullptr; }));
    const QString file = platform::toQString((desk.controls.siteFolder("Shop") / "links.csv").native());
    topSheet()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
    QVERIFY(answer(topSheet(), QStringLiteral("Save")));
    QVERIFY(comesTrue(
        [&] { return desk.file("Shop", "links.csv").find("to " + at("gone")) != std::string::npos; }));
    desk.control<QLineEdit>("badLinkSearch").setText(QStringLiteral("LOST"));
    QCOMPARE(table.model()->rowCount(), 1);
    QVERIFY(says("Select a page"));
    QVERIFY(!desk.enabled("leaveOutButton"));
    table.selectRow(0);
    QVERIFY(says("does not have this address"));
    for (const char* said : {"Added the filter", "There is a filter for that already"}) {
      QVERIFY(desk.click("leaveOutButton"));
      QVERIFY(desk.window().statusBar()->toolTip().startsWith(QLatin1String(said)));
      QCOMPARE(desk.file("Shop", "filters.vskp"), "/private\n" + at("lost") + "\n");
    }
    keepScan(desk, {}, "cancelled");
    QVERIFY(selectAgain());
    desk.go(7);
    QVERIFY(says("did not come to its end"));
  }

  void leadsFromEachRowToItsPage() {
    Desk desk;
    desk.writeFile("Shop", "filters.vskp", "/private\n");
    keepScan(desk, {page(0, "", {.title = "Start"}), page(1, "tea", {.title = "Coffee"})});
    keepScan(desk, shopPages());
    desk.openShop();
    ui::ReportWindow* window = openReport(desk);
    QVERIFY(window);
    QCOMPARE(window->windowTitle(), QStringLiteral("Report of Shop"));
    auto& tabs = in<QTabWidget>(*window, "reportTabs");
    QVERIFY(comesTrue([&] { return tabs.tabText(2) == QLatin1String("&Changes 3"); }));
    QCOMPARE(tabs.tabText(1), QStringLiteral("&Broken 1"));
    QVERIFY(in<QLabel>(*window, "reportCounts").text().startsWith(QLatin1String("3 pages   1 broken")));
    for (const ui::PlotView* plot : window->findChildren<ui::PlotView*>())
      QVERIFY(!plot->accessibleName().isEmpty() && !plot->accessibleDescription().isEmpty());

    tabs.setCurrentIndex(5);
    auto& outside = in<QTableView>(*window, "reportOutsideTable");
    outside.selectRow(0);
    auto& linking = in<QTableView>(*window, "reportOutsideDetails");
    QVERIFY(comesToShow(linking, QStringLiteral("http://shop.test/|Away")));
    QVERIFY(QTest::qWaitForWindowActive(window, kPatience));
    linking.setFocus();
    linking.selectRow(0);
    QTest::keyClick(&linking, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://shop.test/"));
    QTest::keyClick(&linking, Qt::Key_Return);
    QCOMPARE(tabs.currentIndex(), 4);
    auto& pages = in<QTableView>(*window, "reportPagesTable");
    QCOMPARE(pages.currentIndex().data().toString(), QStringLiteral("http://shop.test/"));

    tabs.setCurrentIndex(2);
    in<QComboBox>(*window, "reportChangedChooser").setCurrentText(QStringLiteral("Renamed pages"));
    QCOMPARE(textOf(in<QTableView>(*window, "reportChangedTable")),
             QStringLiteral("Renamed|http://shop.test/tea|<b>Tea</b> and more|Coffee"));
    // Another site is in hand, and the window goes with the main one.
    QVERIFY(desk.select(kShop, Qt::ControlModifier));
    QCOMPARE(window->windowTitle(), QStringLiteral("Scan Report"));
    QCOMPARE(pages.model()->rowCount(), 0);
    desk.window().close();
    QVERIFY(!window->isVisible());
  }

  void searchesSortsAndChoosesPages() {
    Desk desk;
    desk.writeFile("Shop", "filters.vskp", "/private\n");
    keepScan(desk, shopPages());
    desk.openShop();
    ui::ReportWindow* window = openReport(desk);
    QVERIFY(window);
    in<QTabWidget>(*window, "reportTabs").setCurrentIndex(4);
    auto& pages = in<QTableView>(*window, "reportPagesTable");
    QVERIFY(comesTrue([&] { return pages.model()->rowCount() == 5; }));
    QVERIFY(pages.isColumnHidden(3));
    const auto addresses = [&] {
      QStringList all;
      for (int i = 0; i < pages.model()->rowCount(); ++i)
        all.append(pages.model()->index(i, 0).data().toString().section(QLatin1Char('/'), 3));
      return all.join(QLatin1Char(' ')).toStdString();
    };
    pages.selectRow(1);
    pages.sortByColumn(5, Qt::DescendingOrder);
    QCOMPARE(addresses(), "cups tea  gone old");
    QCOMPARE(pages.selectionModel()->selectedRows().at(0).row(), 1);  // the same page
    pages.sortByColumn(-1, Qt::AscendingOrder);
    auto& chooser = in<QComboBox>(*window, "reportPagesChooser");
    const std::pair<const char*, const char*> choices[] = {{"Largest", "cups tea "},
                                                           {"Missing titles", ""},
                                                           {"Left out", "old"},
                                                           {"All pages", " tea cups gone old"}};
    for (const auto& [choice, expected] : choices) {
      chooser.setCurrentText(QLatin1String(choice));
      QCOMPARE(addresses(), expected);
    }
    auto& search = in<QLineEdit>(*window, "reportPagesSearch");
    search.setText(QStringLiteral("TEA</b>"));
    QCOMPARE(addresses(), "tea");
    QCOMPARE(pages.model()->index(0, 0).data(Qt::ToolTipRole).toString().contains(QLatin1String("<b>")),
             false);
    search.setText(QStringLiteral("shop.test/old"));
    QVERIFY(in<QLabel>(*window, "reportPagesDetailText")
                .text()
                .startsWith(QLatin1String("Left out, as it leads to")));
    const auto* hint = pages.viewport()->findChild<QLabel*>();
    search.setText(QStringLiteral("http://shop.test/Private/x"));
    QVERIFY(hint->isVisible() &&
            hint->text().startsWith(QLatin1String("The filter \"/private\" keeps it out.")));
    search.setText(QStringLiteral("http://shop.test/nowhere"));
    QVERIFY(hint->text().startsWith(QLatin1String("No page of the last complete scan links to it.")));
  }

  void keepsTheSelectionWhenTheSiteIsScannedAgain() {
    const SiteServer site(smallSite());
    Desk desk;
    desk.openShop(site.url());
    QVERIFY(scan(desk));
    ui::ReportWindow* window = openReport(desk);
    QVERIFY(window);
    auto& tabs = in<QTabWidget>(*window, "reportTabs");
    QVERIFY(comesTrue([&] { return tabs.tabText(1) == QLatin1String("&Broken 1"); }));
    auto& pages = in<QTableView>(*window, "reportPagesTable");
    const auto selected = [&] {
      const QModelIndexList rows = pages.selectionModel()->selectedRows();
      return rows.size() == 1 ? rows.at(0).data().toString() : QString();
    };
    pages.sortByColumn(0, Qt::DescendingOrder);
    pages.selectRow(2);
    const QString address = selected();
    QVERIFY(!address.isEmpty());
    QVERIFY(scan(desk));
    QVERIFY(comesTrue([&] { return tabs.tabText(2) == QLatin1String("&Changes 0"); }));
    QCOMPARE(selected(), address);
    QVERIFY(in<QLabel>(*window, "reportPagesDetailText").text().contains(QLatin1String("link")));
    // Of another site nothing is taken for the same.
    QVERIFY(desk.select(kShop, Qt::ControlModifier));
    QVERIFY(desk.select(kShop));
    QVERIFY(comesTrue([&] { return pages.model()->rowCount() > 0; }));
    QCOMPARE(selected(), QString());
  }

  /// As in the main window.
  void givesEachTabItsKeysNamesAndRoom() {
    Desk desk;
    keepScan(desk, shopPages());
    desk.openShop();
    ui::ReportWindow* window = openReport(desk);
    QVERIFY(window);
    auto& tabs = in<QTabWidget>(*window, "reportTabs");
    QVERIFY(comesTrue([&] { return tabs.tabText(1) == QLatin1String("&Broken 1"); }));
    for (int i = 0; i < tabs.count(); ++i) {
      tabs.setCurrentIndex(i);
      QVERIFY2(window->minimumSizeHint().width() <= 800 && window->minimumSizeHint().height() <= 480,
               qPrintable(tabs.tabText(i)));
      QStringList keys;
      for (int each = 0; each < tabs.count(); ++each)
        keys.append(QKeySequence::mnemonic(tabs.tabText(each)).toString());
      for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        const QString key = QKeySequence::mnemonic(widget->property("text").toString()).toString();
        if (!key.isEmpty()) keys.append(key);
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith(QLatin1String("qt_")) || qobject_cast<QLabel*>(widget))
          continue;
        if ((widget->focusPolicy() & Qt::TabFocus) == 0) continue;
        const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(interface && !interface->text(QAccessible::Name).isEmpty(), qPrintable(name));
      }
      QVERIFY2(keys.size() >= 6 && keys.removeDuplicates() == 0, qPrintable(tabs.tabText(i)));
    }
    QTest::keyClick(window, Qt::Key_Escape);
    QVERIFY(!window->isVisible() && desk.window().isVisible());
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::ReportWindowTest>(argc, argv);
}

#include "report_window_test.moc"
