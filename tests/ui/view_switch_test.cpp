// The seven views and the rule by which they take turns.
#include <QClipboard>
#include <QComboBox>
#include <QDockWidget>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QToolBar>

#include "platform/qt_text.h"
#include "window_test.h"

namespace window_tests {

namespace {

const QString kShop = QStringLiteral("Shop");
const QString kNoSites = QStringLiteral("No Sites Have Been Scanned");

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

void addViewRows() {
  QTest::addColumn<int>("number");
  for (const ViewCase& view : kViews) QTest::newRow(view.view) << view.number;
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
  return marked && view.isVisible() &&
         desk.control<QStackedWidget>("mainViewArea").currentWidget() == &view &&
         desk.window().views().returnCurrentView() == number &&
         desk.window().state().qzvskCurrentView == number &&
         desk.window().views().mainViewsList(number) == &view;
}

/// The fields in which a link of the HTML sitemap is edited.
class LinkEdit {
 public:
  explicit LinkEdit(QWidget& window)
      : m_title(field(window, "titleEditInput")), m_link(field(window, "linkEditInput")) {}

  void fill() const {
    m_title.setText(QStringLiteral("title"));
    m_link.setText(QStringLiteral("link"));
  }
  bool isEmpty() const { return m_title.text().isEmpty() && m_link.text().isEmpty(); }

 private:
  static QLineEdit& field(QWidget& window, const char* name) {
    auto* found = window.findChild<QLineEdit*>(QLatin1String(name));
    if (found == nullptr) {
      found = new QLineEdit(&window);
      found->setObjectName(QLatin1String(name));
    }
    return *found;
  }

  QLineEdit& m_title;
  QLineEdit& m_link;
};

}  // namespace

class ViewSwitchTest : public QObject {
  Q_OBJECT

 private slots:
  void startsWithTheScanView();
  void showsTheViewOfEachAction_data() { addViewRows(); }
  void showsTheViewOfEachAction();
  void switchesByKeys_data() { addViewRows(); }
  void switchesByKeys();
  void exportsByKey();
  void switchesByTheToolbar();
  void needsASiteForTheSitemaps_data();
  void needsASiteForTheSitemaps();
  void offersSavingBetweenClearingAndSwitching_data() { addViewRows(); }
  void offersSavingBetweenClearingAndSwitching();
  void keepsLinkEditsOfOtherViews();
  void closesTheDrawerWhereItIsInTheWay_data();
  void closesTheDrawerWhereItIsInTheWay();
  void reopensTheDrawerOnlyIfItWasOpen();
  void listsScannedSitesForTheExport();
  void saysThatNoSiteWasScanned();
  void looksForScannedSitesAnew();
  void listsBrokenPagesWithReasons();
  void listsNoBrokenPagesOfAnotherSite();
  void givesTheSitemapLine();
};

void ViewSwitchTest::startsWithTheScanView() {
  Desk desk;
  desk.open();
  QVERIFY(shows(desk, 1));
  for (const int outside : {0, 8, -1}) QVERIFY(desk.window().views().mainViewsList(outside) == nullptr);
}

void ViewSwitchTest::showsTheViewOfEachAction() {
  QFETCH(const int, number);
  Desk desk;
  openWithShop(desk);
  for (const ViewCase& before : kViews) {
    go(desk, before.number);
    QVERIFY(shows(desk, before.number));
    go(desk, number);
    QVERIFY(shows(desk, number));
    go(desk, number);  // to itself
    QVERIFY(shows(desk, number));
  }
  QVERIFY(topSheet() == nullptr);
  QCOMPARE(desk.label("siteName"), kShop);
}

void ViewSwitchTest::switchesByKeys() {
  QFETCH(const int, number);
  Desk desk;
  openWithShop(desk);
  QTest::keyClick(&desk.window(), static_cast<Qt::Key>(Qt::Key_0 + number), Qt::ControlModifier);
  QVERIFY(shows(desk, number));
}

void ViewSwitchTest::exportsByKey() {
  Desk desk;
  openWithShop(desk);
  QTest::keyClick(&desk.window(), Qt::Key_E, Qt::ControlModifier);
  QVERIFY(shows(desk, 5));
}

void ViewSwitchTest::switchesByTheToolbar() {
  Desk desk;
  openWithShop(desk);
  auto& toolbar = desk.control<QToolBar>("mainToolBar");
  for (const int number : {6, 5, 4, 3, 2, 1}) {
    auto* button = qobject_cast<QAbstractButton*>(
        toolbar.widgetForAction(&desk.control<QAction>(viewNumber(number).action)));
    QVERIFY(button);
    QVERIFY(click(*button));
    QVERIFY(shows(desk, number));
  }
}

void ViewSwitchTest::needsASiteForTheSitemaps_data() {
  QTest::addColumn<int>("number");
  QTest::addColumn<QString>("title");
  const QString title =
      QStringLiteral("You need to select a sitemap from the sites list to use the %1 sitemap viewer.");
  QTest::newRow("HTML") << 2 << title.arg(QLatin1String("HTML"));
  QTest::newRow("XML") << 4 << title.arg(QLatin1String("XML"));
}

void ViewSwitchTest::needsASiteForTheSitemaps() {
  QFETCH(const int, number);
  QFETCH(const QString, title);
  Desk desk;
  openWithShop(desk);
  QVERIFY(desk.click("filterDrawerButton"));
  QVERIFY(desk.select(kShop, Qt::ControlModifier));
  int offered = 0;
  desk.window().views().setCheckSave([&] { ++offered; });
  for (const int from : {1, 6}) {
    go(desk, from);
    offered = 0;
    go(desk, number);
    QMessageBox* alert = message(title);
    QVERIFY(alert);
    QVERIFY(hasButtons(*alert, {QStringLiteral("OK")}));
    QVERIFY(answer(alert, QStringLiteral("OK")));
    QVERIFY(shows(desk, from));
    QCOMPARE(offered, 0);
    QVERIFY(desk.control<QDockWidget>("filterDrawer").isVisible());
  }
}

void ViewSwitchTest::offersSavingBetweenClearingAndSwitching() {
  QFETCH(const int, number);
  Desk desk;
  openWithShop(desk);
  desk.writeFile("Shop", "sitemap.xml", "<urlset>");
  const LinkEdit edit(desk.window());
  go(desk, 2);
  edit.fill();
  int offered = 0;
  bool inOrder = true;
  desk.window().views().setCheckSave([&] {
    ++offered;
    const bool pickerIsNew = desk.control<QComboBox>("sitePickerPopUp").itemText(0) == kShop;
    inOrder = edit.isEmpty() && shows(desk, 2) && pickerIsNew == (number == 5);
  });
  // The action that is triggered checks itself before anything else happens.
  desk.control<QAction>(viewNumber(number).action).setCheckable(false);
  desk.control<QAction>(viewNumber(number).action).trigger();
  desk.control<QAction>(viewNumber(number).action).setCheckable(true);
  if (number == 7) {
    QCOMPARE(offered, 0);
    QVERIFY(!edit.isEmpty());
  } else {
    QCOMPARE(offered, number == 2 ? 0 : 1);  // the viewer asks by itself before it loads anew
    QVERIFY(edit.isEmpty());
  }
  QCOMPARE(desk.window().views().returnCurrentView(), number);
}

void ViewSwitchTest::keepsLinkEditsOfOtherViews() {
  Desk desk;
  openWithShop(desk);
  const LinkEdit edit(desk.window());
  int offered = 0;
  desk.window().views().setCheckSave([&] { ++offered; });
  edit.fill();
  for (const int number : {4, 5, 6, 1}) go(desk, number);
  QVERIFY(!edit.isEmpty());
  QCOMPARE(offered, 4);
}

void ViewSwitchTest::closesTheDrawerWhereItIsInTheWay_data() {
  QTest::addColumn<int>("number");
  QTest::addColumn<bool>("stays");
  for (const ViewCase& view : kViews) {
    QTest::newRow(view.view) << view.number << (view.number == 1 || view.number >= 6);
  }
}

void ViewSwitchTest::closesTheDrawerWhereItIsInTheWay() {
  QFETCH(const int, number);
  QFETCH(const bool, stays);
  Desk desk;
  openWithShop(desk);
  QVERIFY(desk.click("filterDrawerButton"));
  go(desk, number);
  QCOMPARE(desk.control<QDockWidget>("filterDrawer").isVisible(), stays);
  QVERIFY(desk.window().state().qzvskPLastState);
}

void ViewSwitchTest::reopensTheDrawerOnlyIfItWasOpen() {
  Desk desk;
  openWithShop(desk);
  auto& drawer = desk.control<QDockWidget>("filterDrawer");
  const auto thereAndBack = [&] {
    go(desk, 5);
    go(desk, 1);
    return drawer.isVisible();
  };
  QVERIFY(!thereAndBack());
  QVERIFY(desk.click("filterDrawerButton"));
  QVERIFY(thereAndBack());
  QVERIFY(desk.click("filterDrawerButton"));
  QVERIFY(!thereAndBack());
  QVERIFY(desk.click("filterDrawerButton"));
  drawer.close();  // by its own button
  QVERIFY(!thereAndBack());
}

void ViewSwitchTest::listsScannedSitesForTheExport() {
  Desk desk;
  for (const char* name : {"Alpha", "Beta", "Gamma", "Never"}) desk.makeSite(name, "http://a.test/");
  for (const char* name : {"Alpha", "Beta", "Gamma"}) desk.writeFile(name, "sitemap.xml", "<urlset>");
  desk.writeFile("Gamma", "copied.xml", "<urlset>");
  desk.writeFile("Never", "notes.XML", "");  // the ending is compared as written
  desk.open();
  QVERIFY(desk.select(QStringLiteral("Beta")));
  go(desk, 5);
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2"));
  const QStringList sites = {QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma"),
                             QStringLiteral("Gamma")};
  QCOMPARE(desk.window().views().sitePickerPopUpArray(), sites);
  auto& picker = desk.control<QComboBox>("sitePickerPopUp");
  QStringList shown;
  for (int i = 0; i < picker.count(); ++i) shown.append(picker.itemText(i));
  QCOMPARE(shown, sites);
  QCOMPARE(picker.currentText(), QStringLiteral("Beta"));
  QVERIFY(picker.isEnabled());
  QVERIFY(desk.enabled("htmlExportButton") && desk.enabled("xmlExportButton"));
}

void ViewSwitchTest::saysThatNoSiteWasScanned() {
  Desk desk;
  openWithShop(desk);
  go(desk, 5);
  QCOMPARE(desk.window().views().sitePickerPopUpArray(), QStringList{kNoSites});
  QCOMPARE(desk.control<QComboBox>("sitePickerPopUp").currentText(), kNoSites);
  QVERIFY(!desk.enabled("htmlExportButton") && !desk.enabled("xmlExportButton"));
}

void ViewSwitchTest::looksForScannedSitesAnew() {
  Desk desk;
  openWithShop(desk);
  go(desk, 5);
  desk.writeFile("Shop", "sitemap.xml", "<urlset>");
  go(desk, 5);
  QCOMPARE(desk.control<QComboBox>("sitePickerPopUp").currentText(), kShop);
  QVERIFY(desk.enabled("htmlExportButton") && desk.enabled("xmlExportButton"));
  std::filesystem::remove(desk.controls.siteFolder("Shop") / "sitemap.xml");
  go(desk, 5);
  QCOMPARE(desk.window().views().sitePickerPopUpArray(), QStringList{kNoSites});
  QVERIFY(!desk.enabled("htmlExportButton"));
}

void ViewSwitchTest::listsBrokenPagesWithReasons() {
  Desk desk;
  desk.makeSite("Shop", "http://shop.test/");
  desk.writeFile("Shop", "badLinks.txt", "http://shop.test/gone\nhttp://shop.test/new\n");
  QVERIFY(desk.reasons.save("Shop", {{"http://shop.test/gone", "404 - Not Found"}}).ok());
  desk.open();
  QVERIFY(desk.select(kShop));
  QVERIFY(desk.click("brokenLinksButton"));
  QVERIFY(shows(desk, 7));
  auto& table = desk.control<QTableView>("badLinkTable");
  QCOMPARE(table.model()->rowCount(), 2);
  QCOMPARE(table.model()->index(0, 0).data().toString(), QStringLiteral("http://shop.test/gone"));
  QCOMPARE(table.model()->index(0, 1).data().toString(), QStringLiteral("404 - Not Found"));
  QCOMPARE(table.model()->index(1, 0).data().toString(), QStringLiteral("http://shop.test/new"));
  QCOMPARE(table.model()->index(1, 1).data().toString(), QString());

  QVERIFY(!desk.enabled("copyBadLinkButton"));
  table.selectAll();
  QVERIFY(desk.click("copyBadLinkButton"));
  QCOMPARE(QGuiApplication::clipboard()->text(),
           QStringLiteral("http://shop.test/gone\nhttp://shop.test/new"));
  QGuiApplication::clipboard()->clear();
  table.selectRow(1);
  table.setFocus();
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("http://shop.test/new"));
  QVERIFY(desk.click("backToScanButton"));
  QVERIFY(shows(desk, 1));
}

void ViewSwitchTest::listsNoBrokenPagesOfAnotherSite() {
  Desk desk;
  desk.makeSite("Blog", "http://blog.test/");
  desk.makeSite("Shop", "http://shop.test/");
  desk.writeFile("Shop", "badLinks.txt", "http://shop.test/gone\n");
  desk.open();
  QVERIFY(desk.select(kShop));
  go(desk, 7);
  const QAbstractItemModel& rows = *desk.control<QTableView>("badLinkTable").model();
  QCOMPARE(rows.rowCount(), 1);
  go(desk, 1);
  QVERIFY(desk.select(QStringLiteral("Blog")));
  go(desk, 7);
  QCOMPARE(rows.rowCount(), 0);
}

void ViewSwitchTest::givesTheSitemapLine() {
  Desk desk;
  openWithShop(desk);
  go(desk, 6);
  QVERIFY(desk.click("copySitemapLine"));
  QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Sitemap: http://shop.test/sitemap.xml"));
  go(desk, 1);
  QVERIFY(desk.select(kShop, Qt::ControlModifier));
  go(desk, 6);
  QCOMPARE(desk.control<QLineEdit>("sitemapLine").text(),
           QStringLiteral("Sitemap: http://www.example.com/sitemap.xml"));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::ViewSwitchTest>(argc, argv);
}

#include "view_switch_test.moc"
