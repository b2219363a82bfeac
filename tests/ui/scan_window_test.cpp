// A scan in the window, from its button to the final counts.
#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>

#include "platform/files.h"
#include "platform/qt_text.h"
#include "scan_steps.h"
#include "store/site_record.h"

namespace window_tests {

namespace {

using support::ServedPage;
using support::SiteServer;

QStringList shownLinks(const Desk& desk) {
  const QAbstractItemModel& model = *desk.control<QListView>("scannedLinksViewer").model();
  QStringList links;
  for (int row = 0; row < model.rowCount(); ++row) links.append(model.index(row, 0).data().toString());
  return links;
}

QStringList addresses(const std::string& base, const QStringList& paths) {
  QStringList all;
  for (const QString& path : paths) all.append(platform::toQString(base) + path);
  return all;
}

QString counter(const char* name) {
  const QDialog* sheet = topSheet();
  return sheet == nullptr ? QString() : platform::control<QLabel>(*sheet, name).text();
}

}  // namespace

class ScanWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void scansFromTheButtonToTheFinalCounts();
  void showsHowFarItIs();
  void startsByKey();
  void endsExactlyHoweverFastLinksCome();
  void honoursFiltersAndTheRobotsSwitch();
  void forgetsTheBrokenPagesOfTheLastScan();
  void stopsInMidPage();
  void stopsWhileConnecting();
  void asksAboutLooping();
  void tellsOfAnUnreachableSite();
  void refusesASiteThatIsScannedElsewhere();
  void tellsOfALostDocument();
  void tellsOfReasonsThatCannotBeKept();
  void noticesASiteWithoutEnd();
};

void ScanWindowTest::scansFromTheButtonToTheFinalCounts() {
  const SiteServer server(smallSite());
  Desk desk;
  openWithShop(desk, server.url());
  QVERIFY(scan(desk));
  QCOMPARE(desk.label("pagesFound"), QStringLiteral("5"));
  QCOMPARE(desk.label("linksScanned"), QStringLiteral("4"));
  QCOMPARE(desk.label("brokenLinks"), QStringLiteral("1"));
  QCOMPARE(desk.label("totalLinksFound"), QStringLiteral("9"));  // four pages with five anchors
  QVERIFY(desk.control<QPushButton>("brokenLinksButton").isVisible());
  QCOMPARE(shownLinks(desk),
           addresses(server.url(), {QString(), QStringLiteral("a.html"), QStringLiteral("b.html"),
                                    QStringLiteral("private/c.html"), QStringLiteral("gone.html")}));
  QCOMPARE(desk.control<QStatusBar>("statusBar").currentMessage(), QStringLiteral("Scanned \"Shop\""));

  QCOMPARE(desk.file("Shop", "badLinks.txt"), server.url("gone.html") + "\n");
  const std::string record = desk.record("Shop");
  QCOMPARE(store::recordCount(record, store::kPagesFound), std::optional(5));
  QCOMPARE(store::recordCount(record, store::kPagesUsed), std::optional(4));
  QCOMPARE(store::recordCount(record, store::kTotalLinks), std::optional(9));
  for (const char* name : {"sitemap1c.html", "sitemap1cpo.html", "sitemap2c.html", "sitemap2cpo.html",
                           "sitemap3c.html", "sitemap3cpo.html"}) {
    QVERIFY2(desk.file("Shop", name).ends_with("</html>"), name);
  }
  QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));

  const QAbstractItemModel& sites = *desk.control<QTableView>("siteListTable").model();
  QCOMPARE(sites.index(0, 1).data().toString(), QStringLiteral("5"));
  QCOMPARE(sites.index(0, 2).data().toString(), QStringLiteral("9"));
  QCOMPARE(sites.index(0, 3).data().toString(), QStringLiteral("1"));
  QVERIFY(!sites.index(0, 4).data().toString().isEmpty());
  for (const char* action : {"addMI", "editMI", "deleteMI", "scanMI"}) {
    QVERIFY2(desk.control<QAction>(action).isEnabled(), action);
  }
  QCOMPARE(desk.window().windowTitle(), QStringLiteral("Veskel2 - Shop"));
  QVERIFY(desk.click("brokenLinksButton"));
  const QAbstractItemModel& broken = *desk.control<QTableView>("badLinkTable").model();
  QCOMPARE(broken.rowCount(), 1);
  QCOMPARE(broken.index(0, 0).data().toString(), platform::toQString(server.url("gone.html")));
  QCOMPARE(broken.index(0, 1).data().toString(), QStringLiteral("404 - Not Found"));
}

void ScanWindowTest::showsHowFarItIs() {
  SlowSite site(smallSite(), "/b.html");
  Desk desk;
  openWithShop(desk, site.url());
  QVERIFY(desk.click("filterDrawerButton"));
  QVERIFY(desk.click("scanSiteButton"));
  QVERIFY(!desk.control<QDockWidget>("filterDrawer").isVisible());
  QDialog* sheet = sheetNamed(kProgress);
  QVERIFY(sheet);
  QCOMPARE(sheet->windowModality(), Qt::WindowModal);
  // Start and A are done, B is waited for, C and the broken page come behind.
  QVERIFY(comesTrue([] { return counter("caPagesScanned") == QLatin1String("2"); }));
  QCOMPARE(counter("caPagesLeft"), QStringLiteral("3"));
  QCOMPARE(counter("caBrokenLinks"), QStringLiteral("0"));
  QCOMPARE(counter("tlsf"), QStringLiteral("7"));
  const auto& bar = platform::control<QProgressBar>(*sheet, "scanProgressBar");
  QCOMPARE(bar.maximum(), 5);
  QCOMPARE(bar.value(), 2);
  QCOMPARE(shownLinks(desk), addresses(site.url(), {QStringLiteral("a.html"), QStringLiteral("b.html"),
                                                    QStringLiteral("private/c.html"),
                                                    QStringLiteral("gone.html"), QStringLiteral("a.html")}));
  for (const char* action : {"addMI", "editMI", "deleteMI", "scanMI", "ignoreRobotsMI"}) {
    QVERIFY2(!desk.control<QAction>(action).isEnabled(), action);
  }
  // No other site can come into hand, not even between two sheets.
  for (const char* widget : {"siteListTable", "siteSearch", "scanSiteButton", "addSiteButton",
                             "editSiteButton", "deleteSiteButton", "ignoreRobotsButton"}) {
    QVERIFY2(!desk.enabled(widget), widget);
  }

  site.release();
  QVERIFY(scanHasEnded(desk));
  QVERIFY(noSheetLeft());
  QCOMPARE(desk.label("pagesFound"), QStringLiteral("5"));
  QVERIFY(desk.control<QDockWidget>("filterDrawer").isVisible());
  QVERIFY(desk.enabled("siteListTable"));
  QVERIFY(desk.window().state().qzvskPLastState);
}

void ScanWindowTest::startsByKey() {
  const SiteServer server({{"/", page("Only", {})}});
  Desk desk;
  openWithShop(desk, server.url());
  desk.control<QAction>("xmlTBI").trigger();
  for (const char* keys : {"F5", "Ctrl+R"}) {
    QTest::keySequence(&desk.window(), QKeySequence(QString::fromLatin1(keys)));
    QVERIFY(!desk.enabled("scanSiteButton"));
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
    QCOMPARE(desk.label("pagesFound"), QStringLiteral("1"));
    QCOMPARE(desk.control<QTableView>("xmlTableView").model()->rowCount(), 1);  // the open view shows it
    desk.control<QLabel>("pagesFound").clear();
  }
}

void ScanWindowTest::endsExactlyHoweverFastLinksCome() {
  std::vector<std::string> links;
  for (int i = 0; i < 3'000; ++i) links.push_back("http://b.test/" + std::to_string(i));
  const SiteServer server({{"/", page("Links", links)}});
  Desk desk;
  openWithShop(desk, server.url());
  QVERIFY(scan(desk));
  QCOMPARE(desk.label("totalLinksFound"), QStringLiteral("3,001"));
  QCOMPARE(desk.label("pagesFound"), QStringLiteral("1"));
  QCOMPARE(shownLinks(desk), addresses(server.url(), {QString()}));
}

void ScanWindowTest::honoursFiltersAndTheRobotsSwitch() {
  SiteServer::Pages pages = smallSite();
  pages["//robots.txt"] = {"User-agent: *\nDisallow: /private\n", "text/plain"};
  const SiteServer server(pages);
  Desk desk;
  openWithShop(desk, server.url());
  QVERIFY(scan(desk));
  QCOMPARE(desk.label("pagesFound"), QStringLiteral("4"));
  QVERIFY(desk.click("ignoreRobotsButton"));
  QVERIFY(scan(desk));
  QCOMPARE(desk.label("pagesFound"), QStringLiteral("5"));

  QVERIFY(desk.click("filterDrawerButton"));
  QTest::keyClicks(&desk.control<QLineEdit>("newFilterInput"), QStringLiteral("/PRIVATE"));
  QVERIFY(desk.click("addFilterButton"));
  QVERIFY(scan(desk));
  QCOMPARE(desk.label("pagesFound"), QStringLiteral("4"));
}

void ScanWindowTest::forgetsTheBrokenPagesOfTheLastScan() {
  const SiteServer server([](const std::string& target, int times) {
    if (target == "/") return page("Start", {"a.html"});
    return times == 1 ? ServedPage{.status = 500} : page("A", {});
  });
  Desk desk;
  openWithShop(desk, server.url());
  QVERIFY(scan(desk));
  QCOMPARE(desk.label("brokenLinks"), QStringLiteral("1"));
  QVERIFY(scan(desk));
  QCOMPARE(desk.label("brokenLinks"), QStringLiteral("0"));
  QVERIFY(!desk.control<QPushButton>("brokenLinksButton").isVisible());
  QCOMPARE(desk.file("Shop", "badLinks.txt"), std::string());
}

void ScanWindowTest::stopsInMidPage() {
  const SlowSite site(smallSite(), "/b.html");
  Desk desk;
  openWithShop(desk, site.url());
  for (const bool escape : {false, true}) {
    QVERIFY(desk.click("scanSiteButton"));
    QDialog* sheet = sheetNamed(kProgress);
    QVERIFY(sheet);
    QVERIFY(comesTrue([&] { return counter("caPagesScanned") == QLatin1String("2") && site.isWaitedFor(); }));
    if (escape) pressEscape(*sheet);
    if (!escape) QVERIFY(click(platform::control<QPushButton>(*sheet, "cancelScanButton")));
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
    // Found are also the pages that were never visited.
    QCOMPARE(desk.label("pagesFound"), QStringLiteral("5"));
    QCOMPARE(shownLinks(desk).size(), 5);
    QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));
    QCOMPARE(store::recordCount(desk.record("Shop"), store::kPagesFound), std::optional(5));
    QCOMPARE(desk.control<QStatusBar>("statusBar").currentMessage(),
             QStringLiteral("Stopped the scan of \"Shop\""));
  }
}

void ScanWindowTest::stopsWhileConnecting() {
  const SlowSite site(smallSite(), "/");
  Desk desk;
  openWithShop(desk, site.url());
  QVERIFY(desk.click("scanSiteButton"));
  QDialog* sheet = sheetNamed(kConnecting);
  QVERIFY(sheet);
  QVERIFY(comesTrue([&] { return site.isWaitedFor(); }));
  pressEscape(*sheet);
  QVERIFY(scanHasEnded(desk));
  QVERIFY(noSheetLeft());
  QVERIFY(topSheet() == nullptr);
  QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));
}

void ScanWindowTest::asksAboutLooping() {
  const SiteServer server({{"/", page("Start", {kLoop, "b.html"})}, {"/b.html", page("B", {})}});
  Desk desk;
  openWithShop(desk, server.url());
  for (const char* choice : {"", "Cancel Scan", "Continue"}) {
    QVERIFY(desk.click("scanSiteButton"));
    QMessageBox* question = message(kLooping);
    QVERIFY(question);
    QCOMPARE(question->informativeText(),
             QStringLiteral("URL parameters have been found containing multiple ?s which may be invalid."));
    QVERIFY(hasButtons(*question, {QStringLiteral("Continue"), QStringLiteral("Cancel Scan")}));
    // One sheet at a time, and the scan waits behind it.
    QVERIFY(!platform::control<QDialog>(desk.window(), "scanCustomAlertPanel").isVisible());
    QVERIFY(!desk.enabled("scanSiteButton"));
    QCOMPARE(server.timesAsked("GET /b.html"), 0);
    if (*choice == '\0') pressEscape(*question);
    if (*choice != '\0') QVERIFY(answer(question, QString::fromLatin1(choice)));
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
    QCOMPARE(desk.label("linksScanned"),
             *choice == 'C' && choice[1] == 'o' ? QStringLiteral("2") : QStringLiteral("1"));
    QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));
  }
}

void ScanWindowTest::tellsOfAnUnreachableSite() {
  auto server = std::make_unique<SiteServer>(SiteServer::Pages{});
  Desk desk;
  openWithShop(desk, server->url());
  const QString title = QStringLiteral("The Site URL Could Not Be Reached");
  for (const char* told : {"Error Code: 404 - Not Found", "Error Code: 0 - "}) {
    QVERIFY(desk.click("filterDrawerButton"));
    QVERIFY(desk.click("scanSiteButton"));
    QMessageBox* alert = message(title);
    QVERIFY(alert);
    QVERIFY2(alert->informativeText().startsWith(QLatin1String(told)), qPrintable(alert->informativeText()));
    QVERIFY(hasButtons(*alert, {QStringLiteral("OK")}));
    QVERIFY(answer(alert, QStringLiteral("OK")));
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
    QVERIFY(desk.control<QAction>("addMI").isEnabled());
    QCOMPARE(desk.control<QStatusBar>("statusBar").currentMessage(), title);
    QVERIFY(!desk.control<QDockWidget>("filterDrawer").isVisible());
    server.reset();
  }
}

void ScanWindowTest::refusesASiteThatIsScannedElsewhere() {
  const SiteServer server(smallSite());
  Desk desk;
  openWithShop(desk, server.url());
  const platform::FolderLock elsewhere(desk.controls.siteFolder("Shop"));
  QVERIFY(elsewhere.result().ok());
  QVERIFY(desk.click("scanSiteButton"));
  QVERIFY(
      answer(message(QStringLiteral("The site \"Shop\" is being scanned already.")), QStringLiteral("OK")));
  QVERIFY(scanHasEnded(desk));
  QVERIFY(server.requests().empty());
  QCOMPARE(desk.file("Shop", "sitemap.xml"), std::string("(missing)"));
}

void ScanWindowTest::tellsOfALostDocument() {
  SlowSite site(smallSite(), "/b.html");
  Desk desk;
  openWithShop(desk, site.url());
  QVERIFY(desk.click("scanSiteButton"));
  QVERIFY(comesTrue([&] { return site.isWaitedFor(); }));
  QVERIFY(std::filesystem::remove(desk.controls.siteFolder("Shop") / "sitemap.xml"));
  site.release();
  QMessageBox* alert = message(QStringLiteral("Not everything could be written."));
  QVERIFY(alert);
  QVERIFY2(alert->informativeText().startsWith(QLatin1String("sitemap.xml: ")),
           qPrintable(alert->informativeText()));
  QCOMPARE(alert->informativeText().count(QLatin1Char('\n')), 0);
  QVERIFY(answer(alert, QStringLiteral("OK")));
  QVERIFY(scanHasEnded(desk));
  QCOMPARE(desk.file("Shop", "sitemap.xml"), std::string("(missing)"));
  QVERIFY(desk.file("Shop", "sitemap3c.html").ends_with("</html>"));
}

void ScanWindowTest::tellsOfReasonsThatCannotBeKept() {
  const SiteServer server(smallSite());
  Desk desk;
  // A file where their folder belongs.
  const std::filesystem::path folder = desk.reasons.state().location();
  std::filesystem::create_directories(folder);
  QVERIFY(platform::replaceFile(folder / "sites", "x").ok());
  openWithShop(desk, server.url());
  QVERIFY(scan(desk));
  const QString told = desk.control<QStatusBar>("statusBar").currentMessage();
  QVERIFY2(
      told.startsWith(QLatin1String("Scanned \"Shop\". The reasons of the broken pages could not be kept: ")),
      qPrintable(told));
  QCOMPARE(desk.label("brokenLinks"), QStringLiteral("1"));
}

void ScanWindowTest::noticesASiteWithoutEnd() {
  std::vector<std::string> links;
  for (int i = 0; i < 220; ++i) links.push_back("same.html?session=" + std::to_string(i));
  const SiteServer server([&](const std::string& target, int) {
    return target == "/" ? page("Start", links) : page("The same", {});
  });
  Desk desk;
  desk.makeSite("Blog", "http://blog.test/");
  openWithShop(desk, server.url());
  const auto& notice = desk.control<QLabel>("scanNotice");
  QVERIFY(!notice.isVisible());
  QVERIFY(scan(desk));
  QVERIFY(notice.isVisible());
  QVERIFY(
      notice.text().startsWith(QLatin1String("This scan may not end: 200 addresses gave the same page as ")));
  QVERIFY(notice.text().endsWith(QLatin1String("The filter \"?\" keeps such addresses out.")));
  QVERIFY(desk.select(QStringLiteral("Blog")));
  QVERIFY(!notice.isVisible());
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::ScanWindowTest>(argc, argv);
}

#include "scan_window_test.moc"
