// A scan in the window, from its button to the final counts. What a scan finds is tested with its rules.
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSpinBox>
#include <QTextEdit>

#include "platform/files.h"
#include "platform/qt_text.h"
#include "scan_steps.h"
#include "store/site_record.h"
#include "store/site_settings.h"
#include "support/raw_server.h"

namespace window_tests {

namespace {

/// The paths of the listed links.
QString shownLinks(const Desk& desk, const std::string& base) {
  const QAbstractItemModel& model = *desk.control<QListView>("scannedLinksViewer").model();
  QStringList links;
  for (int row = 0; row < model.rowCount(); ++row)
    links.append(model.index(row, 0).data().toString().remove(platform::toQString(base)));
  return links.join(QLatin1Char(' '));
}

QString counter(const char* name) {
  const QDialog* sheet = topSheet();
  return sheet == nullptr ? QString() : platform::control<QLabel>(*sheet, name).text();
}

}  // namespace

class ScanWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void scansFromTheButtonToTheFinalCounts() {
    const SiteServer server([pages = smallSite()](const std::string& target, int times) {
      const auto page = pages.find(target);
      if (page != pages.end()) return page->second;
      return times == 1 ? ServedPage{.status = 404} : ServedPage{"<title>Back</title>"};
    });
    Desk desk;
    desk.openShop(server.url());
    desk.go(4);
    QTest::keyClick(&desk.window(), Qt::Key_F5);
    QVERIFY(!desk.enabled("scanSiteButton"));
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
    QCOMPARE(desk.label("pagesFound"), QStringLiteral("5"));
    QCOMPARE(desk.label("linksScanned"), QStringLiteral("4"));
    QCOMPARE(desk.label("brokenLinks"), QStringLiteral("1"));
    QCOMPARE(desk.label("totalLinksFound"), QStringLiteral("9"));  // four pages with five anchors
    QCOMPARE(shownLinks(desk, server.url()), QStringLiteral(" a.html b.html private/c.html gone.html"));
    QCOMPARE(desk.status(), QStringLiteral("Scanned \"Shop\""));
    QCOMPARE(desk.control<QTableView>("xmlTableView").model()->rowCount(), 4);  // the open view shows it
    QCOMPARE(store::recordCount(desk.record("Shop"), store::kPagesFound), std::optional(5));
    const QTableView& sites = desk.control<QTableView>("siteListTable");
    QCOMPARE(sites.model()->index(0, 1).data().toString(), QStringLiteral("5"));
    QVERIFY(desk.commandsAre(true));
    QCOMPARE(desk.reasons.lookUp("Shop", {server.url("gone.html")}).front().reason, "404 - Not Found");
    // The next one forgets the broken page.
    desk.go(1);
    QVERIFY(scan(desk));
    QCOMPARE(desk.label("brokenLinks"), QStringLiteral("0"));
    QVERIFY(!desk.control<QPushButton>("brokenLinksButton").isVisible());
  }

  void showsHowFarItIs() {
    SlowSite site(smallSite(), "/b.html");
    Desk desk;
    desk.openShop(site.url());
    auto& drawer = desk.control<QDockWidget>("filterDrawer");
    QVERIFY(desk.click("filterDrawerButton") && desk.click("scanSiteButton"));
    QVERIFY(!drawer.isVisible() && sheetNamed(kProgress));
    // Start and A are done, B is waited for, C and the broken page come behind.
    QVERIFY(comesTrue([] { return counter("caPagesScanned") == QLatin1String("2"); }));
    QCOMPARE(counter("caPagesLeft"), QStringLiteral("3"));
    QCOMPARE(counter("tlsf"), QStringLiteral("7"));
    QCOMPARE(platform::control<QProgressBar>(*topSheet(), "scanProgressBar").value(), 2);
    QCOMPARE(shownLinks(desk, site.url()), QStringLiteral("a.html b.html private/c.html gone.html a.html"));
    // No other site can come into hand, not even between two sheets.
    QVERIFY(desk.commandsAre(false));
    site.release();
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
    QCOMPARE(desk.label("pagesFound"), QStringLiteral("5"));
    QVERIFY(drawer.isVisible());
  }

  void waitsAndGoesOnWhereItWasStopped() {
    SlowSite site(smallSite(), "/a.html");
    Desk desk;
    desk.openShop(site.url());
    const auto& continueScan = desk.control<QAction>("continueScanMI");
    QVERIFY(!continueScan.isEnabled() && desk.click("scanSiteButton") && sheetNamed(kProgress));
    QVERIFY(comesTrue([&] { return site.isWaitedFor() && counter("caPagesScanned") == QLatin1String("1"); }));
    QVERIFY(click(platform::control<QPushButton>(*topSheet(), "pauseScanButton")));
    QCOMPARE(counter("caText"), QStringLiteral("Paused"));
    pressEscape(*topSheet());
    QVERIFY(scanHasEnded(desk) && continueScan.isEnabled());
    QCOMPARE(desk.label("linksScanned"), QStringLiteral("1"));
    site.release();
    QTest::keyClick(&desk.window(), Qt::Key_F5, Qt::ShiftModifier);
    QVERIFY(scanHasEnded(desk));
    QCOMPARE(desk.label("linksScanned"), QStringLiteral("4"));
    QVERIFY(!continueScan.isEnabled() && !desk.control<QTextEdit>("scanNotice").isVisible());
  }

  void putsEditedSitemapsBack() {
    const SiteServer server(smallSite());
    Desk desk;
    desk.openShop(server.url());
    auto& restore = desk.control<QAction>("restoreMI");
    QVERIFY(scan(desk) && !restore.isEnabled());
    const std::string scanned = desk.file("Shop", "sitemap.xml");
    std::string edited = scanned;
    edited.replace(edited.find("0.5"), 3, "0.9");
    desk.writeFile("Shop", "sitemap.xml", edited);
    desk.writeFile("Shop", "badLinks.txt", "http://shop.test/1\nhttp://shop.test/2\n");
    QVERIFY(scan(desk) && restore.isEnabled());
    QVERIFY(desk.control<QTextEdit>("scanNotice")
                .toPlainText()
                .contains(QLatin1String("Restore Previous Sitemaps puts them back.")));
    const QString question =
        QStringLiteral("Do you really want to restore the previous sitemaps of \"Shop\"?");
    const auto priority = [&] {
      return desk.control<QTableView>("xmlTableView").model()->index(0, 3).data().toString();
    };
    desk.go(4);
    restore.trigger();
    QVERIFY(answer(message(question), kCancel));
    QCOMPARE(desk.file("Shop", "sitemap.xml"), scanned);
    {
      const platform::FolderLock elsewhere(desk.controls.siteFolder("Shop"));
      restore.trigger();
      QVERIFY(answer(message(question), QStringLiteral("Restore")));
      QVERIFY(answer(message(QStringLiteral("The site \"Shop\" is being scanned.")), kOk));
    }
    QCOMPARE(priority(), QStringLiteral("0.5"));
    // What is shown follows, there and back.
    for (const bool isEdited : {true, false}) {
      restore.trigger();
      QVERIFY(answer(message(question), QStringLiteral("Restore")) && noSheetLeft());
      QCOMPARE(desk.file("Shop", "sitemap.xml"), isEdited ? edited : scanned);
      QCOMPARE(priority(), isEdited ? QStringLiteral("0.9") : QStringLiteral("0.5"));
      QCOMPARE(desk.label("brokenLinks"), isEdited ? QStringLiteral("2") : QStringLiteral("1"));
      QCOMPARE(desk.status(), QStringLiteral("Restored the previous sitemaps of \"Shop\""));
    }
  }

  void goesByFiltersAndTheRobotsSwitch() {
    SiteServer::Pages pages = smallSite();
    pages["//robots.txt"] = {"User-agent: *\nDisallow: /private\n", "text/plain"};
    const SiteServer server(pages);
    Desk desk;
    desk.writeFile("Shop", "filters.vskp", "/B.html\n");
    desk.openShop(server.url());
    const auto& notice = desk.control<QTextEdit>("scanNotice");
    for (const char* found : {"3", "4"}) {
      QVERIFY(scan(desk));
      QVERIFY(notice.isVisible());
      QVERIFY(
          notice.toPlainText().startsWith(QLatin1String("Left out: 1 link by the filter \"/B.html\" (for")));
      QVERIFY(desk.status().startsWith(QLatin1String("Scanned \"Shop\". Left out")));
      QCOMPARE(desk.label("pagesFound"), QLatin1String(found));
      QVERIFY(desk.click("ignoreRobotsButton"));
    }
  }

  void followsLinksAsBrowsersDoFromTheNotice() {
    const SiteServer server({{"/", page("Start", {"ch01.en.html", "b.html"})},
                             {"/ch01.en.html", page("One", {})},
                             {"/b.html", page("B", {})}});
    Desk desk;
    desk.openShop(server.url());
    const auto& button = desk.control<QPushButton>("followLinksButton");
    QVERIFY(!button.isVisible() && scan(desk));
    {
      const platform::FolderLock scanned(desk.controls.siteFolder("Shop"));
      QVERIFY(desk.click("followLinksButton"));
      QVERIFY(answer(message(QStringLiteral("The settings could not be saved.")), kOk));
      QVERIFY(button.isVisible());
    }
    QVERIFY(desk.click("followLinksButton"));
    QVERIFY(!button.isVisible());
    QCOMPARE(desk.status(),
             QStringLiteral("Links of \"Shop\" are followed as browsers do from the next scan on"));
    // Where that is taken back in the sheet, it is on offer again.
    desk.control<QAction>("scanSettingsMI").trigger();
    QDialog* sheet = sheetNamed(QStringLiteral("scanSettingsSheet"));
    QVERIFY(sheet);
    auto& links = platform::control<QComboBox>(*sheet, "links");
    QCOMPARE(links.currentIndex(), 1);
    links.setCurrentIndex(0);
    QVERIFY(answer(sheet, QStringLiteral("Save")) && button.isVisible());
    QVERIFY(desk.click("followLinksButton"));
    QTest::keyClick(&desk.control<QPushButton>("scanSiteButton"), Qt::Key_Space);
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
    QCOMPARE(desk.label("pagesFound"), QStringLiteral("3"));
    QVERIFY(!button.isVisible());
  }

  void stopsInMidPageAndWhileConnecting() {
    for (const auto& [slow, sheetName, found] :
         {std::tuple("/b.html", kProgress, "5"), std::tuple("/", kConnecting, "1")}) {
      const SlowSite site(smallSite(), slow);
      Desk desk;
      desk.openShop(site.url());
      QVERIFY(desk.click("scanSiteButton"));
      QDialog* sheet = sheetNamed(sheetName);
      QVERIFY(sheet);
      // Of the five pages two are done then, and the others are known.
      const bool connecting = sheet->objectName() == kConnecting;
      QVERIFY(comesTrue([&] {
        return site.isWaitedFor() && (connecting || counter("caPagesScanned") == QLatin1String("2"));
      }));
      QVERIFY(dismiss(sheet) && scanHasEnded(desk));
      // Found are also the pages that were never visited.
      QCOMPARE(desk.label("pagesFound"), QLatin1String(found));
      QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));
      QCOMPARE(desk.status(), QStringLiteral("Stopped the scan of \"Shop\""));
    }
  }

  void tellsThatItWaits() {
    SiteServer::Pages pages = smallSite();
    pages["/b.html"] = {.status = 503, .retryAfter = "60"};
    const SiteServer server(pages);
    Desk desk;
    desk.openShop(server.url());
    QVERIFY(desk.click("scanSiteButton"));
    QDialog* sheet = sheetNamed(kProgress);
    QVERIFY(sheet);
    const auto& text = platform::control<QLabel>(*sheet, "caText");
    QVERIFY(comesTrue([&] {
      return text.toolTip() == QLatin1String("Waiting: the server asks for patience, 60 seconds");
    }));
    QVERIFY(dismiss(sheet) && scanHasEnded(desk));
  }

  void asksAboutLooping() {
    const SiteServer server({{"/", page("Start", {kLoop, "b.html"})}, {"/b.html", page("B", {})}});
    Desk desk;
    desk.openShop(server.url());
    for (const bool goOn : {false, true}) {
      QVERIFY(desk.click("scanSiteButton"));
      QMessageBox* question = message(kLooping);
      QVERIFY(question);
      // One sheet at a time, and the scan waits behind it.
      QVERIFY(!platform::control<QDialog>(desk.window(), "scanCustomAlertPanel").isVisible());
      QVERIFY(!desk.enabled("scanSiteButton"));
      QCOMPARE(server.timesAsked("GET /b.html"), 0);
      QVERIFY(goOn ? answer(question, QStringLiteral("Continue")) : dismiss(question));
      QVERIFY(scanHasEnded(desk) && noSheetLeft());
      QCOMPARE(desk.label("linksScanned"), goOn ? QStringLiteral("2") : QStringLiteral("1"));
    }
  }

  void tellsWhyItCannotScan() {
    const SiteServer server(SiteServer::Pages{});
    Desk desk;
    desk.openShop(server.url());
    {
      const platform::FolderLock elsewhere(desk.controls.siteFolder("Shop"));
      QVERIFY(desk.click("scanSiteButton"));
      QVERIFY(answer(message(QStringLiteral("The site \"Shop\" is being scanned already.")), kOk));
      QVERIFY(scanHasEnded(desk) && server.requests().empty());
    }
    QVERIFY(desk.click("scanSiteButton"));
    QMessageBox* alert = message(QStringLiteral("The Site URL Could Not Be Reached"));
    QVERIFY(alert);
    QCOMPARE(alert->informativeText(), QStringLiteral("Error Code: 404 - Not Found"));
    QVERIFY(answer(alert, kOk));
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
  }

  void scansAsTheSettingsSay() {
    const SiteServer server(smallSite());
    Desk desk;
    desk.openShop(server.url());
    desk.control<QAction>("scanSettingsMI").trigger();
    QDialog* sheet = sheetNamed(QStringLiteral("scanSettingsSheet"));
    QVERIFY(sheet);
    auto& pages = platform::control<QSpinBox>(*sheet, "max-pages");
    pages.selectAll();
    QTest::keyClicks(&pages, QStringLiteral("2"));
    // Meanwhile another program changes what is not touched here, and scans.
    const auto file = store::settingsFile(desk.stateFolder, "Shop");
    std::filesystem::create_directories(file.parent_path());
    QVERIFY(platform::replaceFile(file, "connections 9\n").ok());
    {
      const platform::FolderLock scanned(desk.controls.siteFolder("Shop"));
      QTest::keyClick(&pages, Qt::Key_Return);
      QVERIFY(answer(message(QStringLiteral("The settings could not be saved.")), kOk));
    }
    platform::control<QDoubleSpinBox>(*sheet, "delay").setValue(0.125);
    auto& headers = platform::control<QPlainTextEdit>(*sheet, "header");
    headers.setPlainText(QStringLiteral("A: 1\n\nHost: x"));
    QTest::keyClick(&pages, Qt::Key_Return);
    QVERIFY(answer(message(QStringLiteral("The settings cannot be saved like this.")), kOk));
    headers.setPlainText(QStringLiteral("A: 1\n\nB: 2\n"));
    QVERIFY(answer(sheet, QStringLiteral("Save")));
    QCOMPARE(platform::readFile(file).text,
             std::string("max-pages 2\nconnections 9\ndelay 0.125\nheader A: 1\nheader B: 2\n"));
    QVERIFY(platform::replaceFile(file, "max-pages 2\nconnections 99\n").ok());
    QVERIFY(scan(desk));
    QCOMPARE(desk.label("linksScanned"), QStringLiteral("2"));
    QVERIFY(desk.status().endsWith(QLatin1String("\"connections\" was ignored: it has to be 1 to 64.")));
  }

  void asksWithThePasswordOfTheSite() {
    const support::RawServer server(support::RawServer::answering([](const support::RawRequest& request) {
      if (request.contains("\r\nAuthorization: Basic bWU6cHc=\r\n"))
        return support::rawAnswer("200 OK", "Content-Type: text/html\r\n", "<title>In</title>");
      return support::rawAnswer("401 Unauthorized", "WWW-Authenticate: Basic realm=\"r\"\r\n", "");
    }));
    Desk desk;
    desk.openShop(server.url());
    const auto openSheet = [&] {
      desk.control<QAction>("scanSettingsMI").trigger();
      QDialog* sheet = sheetNamed(QStringLiteral("scanSettingsSheet"));
      const auto& place = platform::control<QLabel>(*sheet, "passwordPlace");
      const auto text = QStringLiteral("Kept until the program ends only, as there is no secret service");
      return comesTrue([&] { return place.text() == text; }) ? sheet : nullptr;
    };
    QDialog* sheet = openSheet();
    QVERIFY(sheet);
    auto& password = platform::control<QLineEdit>(*sheet, "http-password");
    QCOMPARE(password.placeholderText(), QStringLiteral("not set"));
    platform::control<QLineEdit>(*sheet, "http-user").setText(QStringLiteral("me"));
    QTest::keyClicks(&password, QStringLiteral("pw"));
    QVERIFY(password.displayText() != password.text());
    QVERIFY(answer(sheet, QStringLiteral("Save")));
    QCOMPARE(platform::readFile(store::settingsFile(desk.stateFolder, "Shop")).text,
             std::string("http-user me\n"));
    QVERIFY(scan(desk));
    QCOMPARE(desk.label("linksScanned"), QStringLiteral("1"));

    QVERIFY(openSheet() == sheet && password.text().isEmpty());
    QVERIFY(password.placeholderText().startsWith(QLatin1String("set")));
    QVERIFY(click(platform::control<QPushButton>(*sheet, "removePassword")));
    QVERIFY(answer(sheet, QStringLiteral("Save")));
    QVERIFY(desk.click("scanSiteButton"));
    QMessageBox* alert = message(QStringLiteral("The Site URL Could Not Be Reached"));
    QVERIFY(alert);
    QVERIFY(alert->informativeText().endsWith(QLatin1String("the password of \"me\" (none is kept)")));
    QVERIFY(answer(alert, kOk));
    QVERIFY(scanHasEnded(desk) && noSheetLeft());
  }

  void tellsOfALostDocument() {
    SlowSite site(smallSite(), "/b.html");
    Desk desk;
    desk.openShop(site.url());
    QVERIFY(desk.click("scanSiteButton"));
    QVERIFY(comesTrue([&] { return site.isWaitedFor(); }));
    QVERIFY(std::filesystem::remove(desk.controls.siteFolder("Shop") / "sitemap.xml"));
    site.release();
    QMessageBox* alert = message(QStringLiteral("Not everything could be written."));
    QVERIFY(alert && alert->informativeText().startsWith(QLatin1String("sitemap.xml: ")));
    QVERIFY(answer(alert, kOk));
    QVERIFY(scanHasEnded(desk));
  }

  void noticesASiteWithoutEnd() {
    std::vector<std::string> links;
    for (int i = 0; i < 220; ++i) links.push_back("same.html?session=" + std::to_string(i));
    const SiteServer server([&](const std::string&, int) { return page("The same", links); });
    Desk desk;
    desk.makeSite("Blog", "http://blog.test/");
    desk.openShop(server.url());
    const auto& notice = desk.control<QTextEdit>("scanNotice");
    for (int i = 0; i < 2; ++i) {  // the second scan says it anew, not once more
      QVERIFY(scan(desk));
      QVERIFY(notice.isVisible());
      QVERIFY(notice.toPlainText().endsWith(QLatin1String("The filter \"?\" keeps such addresses out.")));
      QCOMPARE(notice.toPlainText().count(QLatin1String("filter")), 1);
    }
    QVERIFY(desk.select(QStringLiteral("Blog")));
    QVERIFY(!notice.isVisible());
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::ScanWindowTest>(argc, argv);
}

#include "scan_window_test.moc"
