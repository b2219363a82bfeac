// The seven views and the rule by which they take turns.
#include <QClipboard>
#include <QComboBox>
#include <QDockWidget>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolBar>

#include "platform/qt_text.h"
#include "window_test.h"

namespace window_tests {

namespace {

struct ViewCase {
  int number;
  const char* action;
  const char* view;
};

constexpr ViewCase kViews[] = {{1, "scanTBI", "scanWindowView"},
                               {2, "htmlTBI", "htmlWindowView"},
                               {3, "htmlEditTBI", "htmlEditorWindowView"},
                               {4, "xmlTBI", "xmlWindowView"},
                               {5, "exportTBI", "exportWindowView"},
                               {6, "uploadTBI", "uploadWindowView"},
                               {7, "brokenMI", "blWindowView"}};

const ViewCase& viewNumber(int number) {
  return kViews[number - 1];
}

void openWithShop(Desk& desk) {
  desk.makeSite("Shop", "http://shop.test/");
  desk.open();
  desk.select(kShop);
}

void go(const Desk& desk, int number) {
  desk.control<QAction>(viewNumber(number).action).trigger();
}

/// Whether this view is shown, and everything that tells of the current view says so.
bool shows(const Desk& desk, int number) {
  bool marked = true;
  for (const ViewCase& view : kViews) {
    marked = marked && desk.control<QAction>(view.action).isChecked() == (view.number == number);
  }
  const QWidget& view = desk.control<QWidget>(viewNumber(number).view);
  return marked && view.isVisible() && desk.window().state().qzvskCurrentView == number &&
         // The exports go by a choice of their own.
         desk.window().windowTitle() == QLatin1String(number == 5 ? "Veskel2" : "Veskel2 - Shop");
}

}  // namespace

class ViewSwitchTest : public QObject {
  Q_OBJECT

 private slots:
  void switchesByKeysAndButtons();
  void needsASiteForTheSitemaps();
  void offersSavingBetweenClearingAndSwitching();
  void closesTheDrawerWhereItIsInTheWay();
  void listsScannedSitesForTheExport();
  void listsBrokenPages();
};

void ViewSwitchTest::switchesByKeysAndButtons() {
  Desk desk;
  openWithShop(desk);
  for (const int number : {7, 6, 5, 4, 3, 2, 1}) {
    QTest::keyClick(&desk.window(), static_cast<Qt::Key>(Qt::Key_0 + number), Qt::ControlModifier);
    QVERIFY(shows(desk, number));
  }
  QVERIFY(
      desk.control<QLineEdit>("sitemapLine").text().endsWith(QLatin1String("http://shop.test/sitemap.xml")));
  auto& toolbar = desk.control<QToolBar>("mainToolBar");
  for (const bool byScreenReader : {false, true}) {
    for (const int number : {6, 5, 4, 3, 2, 1, 1}) {
      auto* button = qobject_cast<QAbstractButton*>(
          toolbar.widgetForAction(&desk.control<QAction>(viewNumber(number).action)));
      QVERIFY(button);
      byScreenReader ? button->toggle() : static_cast<void>(click(*button));
      QVERIFY(shows(desk, number) && button->isChecked());
    }
  }
}

void ViewSwitchTest::needsASiteForTheSitemaps() {
  Desk desk;
  openWithShop(desk);
  QVERIFY(desk.click("filterDrawerButton"));
  QVERIFY(desk.select(kShop, Qt::ControlModifier));
  desk.window().views().setCheckSave([] { QFAIL("nothing is left"); });
  for (const auto& [number, kind] : {std::pair(2, "HTML"), std::pair(4, "XML")}) {
    go(desk, number);
    QVERIFY(answer(message(QStringLiteral("You need to select a sitemap from the sites list to use the %1 "
                                          "sitemap viewer.")
                               .arg(QLatin1String(kind))),
                   kOk));
    QVERIFY(desk.control<QAction>("scanTBI").isChecked() &&
            !desk.control<QAction>(viewNumber(number).action).isChecked());
    QVERIFY(desk.control<QDockWidget>("filterDrawer").isVisible());
  }
}

void ViewSwitchTest::offersSavingBetweenClearingAndSwitching() {
  Desk desk;
  openWithShop(desk);
  auto& title = desk.control<QLineEdit>("titleEditInput");
  for (const ViewCase& view : kViews) {
    desk.window().views().setCheckSave({});
    std::filesystem::remove(desk.controls.siteFolder("Shop") / "sitemap.xml");
    go(desk, 5);
    go(desk, 2);
    desk.writeFile("Shop", "sitemap.xml", "<urlset>");
    title.setText(QStringLiteral("title"));
    int offered = 0;
    bool inOrder = true;
    desk.window().views().setCheckSave([&] {
      ++offered;
      const bool pickerIsNew = desk.control<QComboBox>("sitePickerPopUp").itemText(0) == kShop;
      inOrder = title.text().isEmpty() && pickerIsNew == (view.number == 5) &&
                desk.control<QWidget>("htmlWindowView").isVisible();
    });
    go(desk, view.number);
    // Asked for while it is shown, the view of the HTML sitemap saves by itself.
    QCOMPARE(offered, view.number == 7 || view.number == 2 ? 0 : 1);
    QVERIFY(inOrder);
    QVERIFY(shows(desk, view.number));
  }
}

void ViewSwitchTest::closesTheDrawerWhereItIsInTheWay() {
  Desk desk;
  openWithShop(desk);
  auto& drawer = desk.control<QDockWidget>("filterDrawer");
  auto& action = desk.control<QAction>("filtersMI");
  bool open = false;
  for (const auto& turn : std::initializer_list<std::function<void()>>{
           [&] { desk.click("filterDrawerButton"); }, [&] { action.trigger(); },
           [&] { desk.control<QPushButton>("filterDrawerButton").toggle(); }, [&] { drawer.close(); }}) {
    open = !open;
    turn();
    QVERIFY(drawer.isVisible() == open && action.isChecked() == open);
    for (const ViewCase& view : kViews) {
      go(desk, view.number);
      QCOMPARE(drawer.isVisible(), open && (view.number == 1 || view.number >= 6));
      go(desk, 1);
      QCOMPARE(drawer.isVisible(), open);
    }
  }
}

void ViewSwitchTest::listsScannedSitesForTheExport() {
  Desk desk;
  for (const char* name : {"Alpha", "Beta", "Never"}) desk.makeSite(name, "http://a.test/");
  desk.open();
  auto& picker = desk.control<QComboBox>("sitePickerPopUp");
  go(desk, 5);
  QCOMPARE(picker.currentText(), QStringLiteral("No Sites Have Been Scanned"));
  QVERIFY(!desk.enabled("htmlExportButton") && !desk.enabled("xmlExportButton"));

  for (const char* name : {"Alpha", "Beta"}) desk.writeFile(name, "sitemap.xml", "<urlset>");
  desk.writeFile("Never", "notes.XML", "");  // the ending is compared as written
  go(desk, 1);
  QVERIFY(desk.select(QStringLiteral("Beta")));
  go(desk, 5);
  QCOMPARE(desk.window().views().sitePickerPopUpArray(),
           (QStringList{QStringLiteral("Alpha"), QStringLiteral("Beta")}));
  QCOMPARE(picker.currentText(), QStringLiteral("Beta"));
  QVERIFY(picker.isEnabled() && desk.enabled("htmlExportButton") && desk.enabled("xmlExportButton"));
}

void ViewSwitchTest::listsBrokenPages() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.writeFile("Shop", "badLinks.txt", "http://shop.test/gone\nhttp://shop.test/away\n");
  QVERIFY(desk.reasons.save("Shop", {{"http://shop.test/gone", "404 - Not Found"}}).ok());
  desk.open();
  QVERIFY(desk.select(kShop));
  QVERIFY(desk.click("brokenLinksButton"));
  auto& table = desk.control<QTableView>("badLinkTable");
  const auto text = [&](int row, int column) { return table.model()->index(row, column).data().toString(); };
  QCOMPARE(table.model()->rowCount(), 2);
  QCOMPARE(text(0, 1), QStringLiteral("404 - Not Found"));
  QCOMPARE(text(1, 1), QString());

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

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::ViewSwitchTest>(argc, argv);
}

#include "view_switch_test.moc"
