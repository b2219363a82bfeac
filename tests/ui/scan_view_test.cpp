// The list of sites, the record of the selected one, and its filters.

#include "platform/qt_text.h"
#include "store/site_record.h"
#include "window_test.h"

namespace window_tests {

namespace {

const QString kBlog = QStringLiteral("Blog");

bool allSiteControls(const Desk& desk, bool enabled) {
  return desk.areAll(enabled, {"scanSiteButton", "editSiteButton", "deleteSiteButton", "newFilterInput",
                               "scanMI", "editMI", "deleteMI", "ignoreRobotsMI", "scanSettingsMI"});
}

bool robotsAreIgnored(const Desk& desk, bool ignored) {
  return desk.control<QCheckBox>("ignoreRobotsButton").isChecked() == ignored &&
         desk.control<QAction>("ignoreRobotsMI").isChecked() == ignored;
}

}  // namespace

class ScanViewTest : public QObject {
  Q_OBJECT

 private slots:
  void enablesWhatASelectedSiteAllows() {
    Desk desk;
    desk.open();
    QVERIFY(desk.nothingSelected() && allSiteControls(desk, false));
    QVERIFY(desk.click("firstSiteButton"));  // of a page that is there when no site is
    QVERIFY(sheetNamed(QStringLiteral("aedWindow")));
    desk.makeSite("Shop", "http://shop.test/");
    desk.makeSite("Blog", "http://blog.test/");
    QVERIFY(dismiss(topSheet()));
    std::filesystem::remove(desk.controls.returnFullFileLocation("Blog"));
    QVERIFY(desk.select(kBlog));
    QVERIFY(allSiteControls(desk, false));  // its record cannot be read
    QVERIFY(desk.enabled("openFolderMI"));
    QVERIFY(desk.select(kShop));
    QVERIFY(allSiteControls(desk, true));
    QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2 - Shop"));
    QCOMPARE(desk.label("siteName"), kShop);
    // What a label says is for the eyes: commands go by the site in hand.
    desk.control<QLabel>("siteURL").setText(QStringLiteral("http://blog.test/"));
    desk.control<QLabel>("siteName").setText(kBlog);
    desk.control<QAction>("copyAddressMI").trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://shop.test/"));
    QVERIFY(desk.select(kShop, Qt::ControlModifier));
    QVERIFY(desk.nothingSelected() && allSiteControls(desk, false));
  }

  void showsTheRecord() {
    Desk desk;
    const std::string head = "<siteName>Shop</siteName>\n<siteURL>http://shop.test/</siteURL>";
    desk.makeSite("Shop", "", head + "\n<pagesFound>1204</pagesFound>\n<totalLinks>-3</totalLinks>");
    desk.writeFile("Shop", "badLinks.txt", "http://a/\nhttp://b/\n");
    desk.makeSite("Blog", "http://blog.test/");
    desk.open();
    const auto counts = [&] {
      return (desk.label("pagesFound") + QLatin1Char(' ') + desk.label("linksScanned") + QLatin1Char(' ') +
              desk.label("totalLinksFound") + QLatin1Char(' ') + desk.label("brokenLinks"))
          .toStdString();
    };
    const auto& brokenPages = desk.control<QPushButton>("brokenLinksButton");
    QVERIFY(desk.select(kShop));
    QCOMPARE(counts(), "1,204 0 0 2");
    QVERIFY(brokenPages.isVisible());
    QVERIFY(desk.record("Shop").ends_with("-3</totalLinks>\n<pagesUsed>0</pagesUsed>"));
    // What the other site left must not show through.
    QVERIFY(desk.select(kBlog));
    QCOMPARE(counts(), "0 0 0 0");
    QVERIFY(!brokenPages.isVisible() && desk.window().state().qzvskBadLinkArray.empty());
  }

  void turnsTheRobotsSwitch() {
    Desk desk;
    desk.makeSite("Blog", "", "<siteName>Blog</siteName>\n<siteURL>http://blog.test/</siteURL>");
    desk.openShop();
    auto& box = desk.control<QCheckBox>("ignoreRobotsButton");
    auto& action = desk.control<QAction>("ignoreRobotsMI");
    // By the menu, and as a screen reader does it.
    action.trigger();
    QVERIFY(robotsAreIgnored(desk, true) && store::ignoresRobots(desk.record("Shop")));
    box.toggle();
    QVERIFY(robotsAreIgnored(desk, false) && !store::ignoresRobots(desk.record("Shop")));
    QVERIFY(desk.click("ignoreRobotsButton"));
    // A record without the switch cannot be changed, and nothing looks as if it was.
    QVERIFY(desk.select(kBlog));
    QVERIFY(robotsAreIgnored(desk, false));
    action.trigger();
    QVERIFY(answer(message(QStringLiteral("The robots switch could not be saved.")), kOk));
    QVERIFY(robotsAreIgnored(desk, false));
    QVERIFY(desk.select(kShop));
    QVERIFY(robotsAreIgnored(desk, true));
  }

  void searchesAndSortsSites() {
    Desk desk;
    for (const auto& [name, pages] :
         {std::pair("Workshop", "9"), std::pair("blog", "1204"), std::pair("Shop", "80")})
      desk.makeSite(name, "",
                    "<siteName>" + std::string(name) + "</siteName>\n<pagesFound>" + pages + "</pagesFound>");
    desk.open();
    QVERIFY(desk.select(kShop));
    QHeaderView& header = *desk.control<QTableView>("siteListTable").horizontalHeader();
    for (const auto& [column, order] :
         {std::pair(0, "blog Shop Workshop"), std::pair(1, "Workshop Shop blog")}) {
      const QPoint place(header.sectionViewportPosition(column) + 20, header.height() / 2);
      QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
      QCOMPARE(desk.listedSites().join(QLatin1Char(' ')), QLatin1String(order));
    }
    QCOMPARE(desk.label("siteName"), kShop);
    QVERIFY(desk.select(QStringLiteral("blog")));
    QTest::keyClick(&desk.window(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&desk.control<QLineEdit>("siteSearch"), QStringLiteral("sHop"));
    QCOMPARE(desk.listedSites(), (QStringList{QStringLiteral("Workshop"), kShop}));
    // A site that is not to be seen is not in hand either.
    QVERIFY(desk.nothingSelected());
  }

  void listsBrokenPages() {
    Desk desk;
    desk.writeFile("Shop", "badLinks.txt", "http://shop.test/gone\nhttp://shop.test/away\n");
    QVERIFY(desk.reasons.save("Shop", {{"http://shop.test/gone", "404 - Not Found"}}).ok());
    desk.openShop();
    QVERIFY(desk.click("brokenLinksButton"));
    auto& table = desk.control<QTableView>("badLinkTable");
    QCOMPARE(table.model()->rowCount(), 2);
    QCOMPARE(table.model()->index(0, 1).data().toString(), QStringLiteral("404 - Not Found"));
    QCOMPARE(table.model()->index(1, 1).data().toString(), QString());
    QVERIFY(!desk.enabled("copyBadLinkButton"));
    QTest::mouseClick(table.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
    table.selectAll();
    QVERIFY(desk.click("copyBadLinkButton"));
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("http://shop.test/away\nhttp://shop.test/gone"));
    table.selectRow(0);
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://shop.test/away"));
  }

  void addsAndDeletesFilters() {
    Desk desk;
    desk.makeSite("Blog", "http://blog.test/");
    desk.writeFile("Shop", "filters.vskp", "/private\n\n#\n");
    desk.openShop();
    QCOMPARE(desk.control<QTableView>("filterTable").model()->rowCount(), 2);

    // The menu leads to the field from every view; the labels have no say.
    desk.control<QLabel>("siteName").setText(kBlog);
    desk.go(6);
    desk.control<QAction>("addFilterMI").trigger();
    auto& input = desk.control<QLineEdit>("newFilterInput");
    QVERIFY(input.hasFocus());
    QTest::keyClicks(&input, QStringLiteral("  /cart "));
    QTest::keyClick(&input, Qt::Key_Return);
    QTest::keyClicks(&input, QStringLiteral("/private"));
    QVERIFY(desk.click("addFilterButton"));
    QVERIFY(desk.click("addFilterButton"));  // of a field that is empty again
    QVERIFY(answer(message(QStringLiteral("Cannot Add Filter")), kOk));
    QVERIFY(desk.file("Shop", "filters.vskp").ends_with("#\n  /cart \n/private\n"));
    QCOMPARE(desk.file("Blog", "filters.vskp"), std::string("(missing)"));

    auto& table = desk.control<QTableView>("filterTable");
    const auto selectFilter = [&](int row) {
      const QPoint place = table.visualRect(table.model()->index(row, 0)).center();
      QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier, place);
    };
    auto& remove = desk.control<QAction>("deleteFilterMI");
    QVERIFY(!remove.isEnabled());
    selectFilter(3);  // one of two alike
    remove.trigger();
    QCOMPARE(desk.file("Shop", "filters.vskp"), std::string("/private\n#\n  /cart \n"));
    selectFilter(0);
    selectFilter(2);
    QTest::keyClick(&table, Qt::Key_Delete);  // of filters, not of the site
    QCOMPARE(desk.file("Shop", "filters.vskp"), std::string("#\n"));
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::ScanViewTest>(argc, argv);
}

#include "scan_view_test.moc"
