// Closing the window, with a scan running and without.
#include <QTimer>

#include "scan_steps.h"

namespace window_tests {

namespace {

const QString kRunning = QStringLiteral("A scan is running.");
const QString kStop = QStringLiteral("Stop and Quit");

enum class Way { key, titleBar };

/// When somebody has had enough: a scan waits for a page, or for an answer.
struct Moment {
  const char* slowPage;
  QString sheetName;

  SiteServer::Pages pages() const {
    SiteServer::Pages pages = smallSite();
    if (sheetName.isEmpty()) pages["/"] = page("Start", {kLoop});
    return pages;
  }
  QDialog* sheet() const { return sheetName.isEmpty() ? message(kLooping) : sheetNamed(sheetName); }
};

const Moment kMoments[] = {{"/", kConnecting}, {"/b.html", kProgress}, {"(none)", {}}};

/// Closes the main window as far as that is possible with the sheet that is up.
void closeBy(Way way, const Desk& desk) {
  if (way == Way::titleBar) {
    closeByTitleBar(desk.window());
  } else {
    QWidget* top = topSheet() != nullptr ? static_cast<QWidget*>(topSheet()) : &desk.window();
    QTest::keyClick(top, Qt::Key_Q, Qt::ControlModifier);
  }
}

std::vector<Way> waysToClose() {
  return hasTitleBars() ? std::vector{Way::key, Way::titleBar} : std::vector{Way::key};
}

/// Those that wait for another one to go, too.
int questions(const Desk& desk) {
  return static_cast<int>(desk.window().findChildren<QMessageBox*>().size());
}

/// Whether the program quits once `act` is done. `act` tells whether it could be done.
bool quits(const std::function<bool()>& act) {
  QTimer deadline;
  QObject::connect(&deadline, &QTimer::timeout, &deadline, [] { QCoreApplication::exit(1); });
  deadline.start(kPatience);
  QTimer::singleShot(0, &deadline, [&] {
    if (!act()) QCoreApplication::exit(2);
  });
  return QApplication::exec() == 0;
}

}  // namespace

class QuitTest : public QObject {
  Q_OBJECT

 private slots:
  void asksOnceBeforeQuitting() {
    for (const Moment& moment : kMoments) {
      for (Way way : waysToClose()) {
        const SlowSite site(moment.pages(), moment.slowPage);
        Desk desk;
        desk.openShop(site.url());
        QVERIFY(desk.click("scanSiteButton"));
        QVERIFY(moment.sheet());
        const int sheets = questions(desk);
        // Keys go nowhere before the sheet has the focus; whoever is in a hurry tries again.
        QVERIFY(comesTrue([&] {
          if (questions(desk) > sheets) return true;
          closeBy(way, desk);
          return false;
        }));
        QVERIFY(message(kRunning));
        closeBy(way, desk);
        desk.window().close();
        QTest::qWait(0);
        QCOMPARE(questions(desk), sheets + 1);
        QVERIFY(answer(message(kRunning), QStringLiteral("Keep Scanning")));
        QVERIFY(moment.sheet());
        QVERIFY(desk.window().isVisible());
        desk.window().close();
        QVERIFY(quits([&] { return answer(message(kRunning), kStop); }));
        QVERIFY(!desk.window().isVisible());
        QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));
      }
    }
  }

  void quitsAfterTheScanHasEndedBehindTheQuestion() {
    SlowSite site(smallSite(), "/b.html");
    Desk desk;
    desk.openShop(site.url());
    QVERIFY(desk.click("scanSiteButton"));
    QVERIFY(sheetNamed(kProgress));
    desk.window().close();
    QVERIFY(message(kRunning));
    site.release();
    QVERIFY(scanHasEnded(desk));
    QVERIFY(quits([&] { return answer(message(kRunning), kStop); }));
  }

  void quitsAtOnceWithoutAScanOrSheet() {
    for (Way way : waysToClose()) {
      Desk desk;
      desk.openShop();
      desk.window().resize(1000, 700);
      QVERIFY(desk.click("editSiteButton"));
      QDialog* sheet = sheetNamed(QStringLiteral("aedWindow"));
      QVERIFY(sheet);
      closeBy(way, desk);
      // Sent behind the other wish, and so handled behind it.
      if (way == Way::titleBar) closeByTitleBar(*sheet);
      if (way == Way::key) pressEscape(*sheet);
      QVERIFY(noSheetLeft() && desk.window().isVisible());
      QCOMPARE(questions(desk), 0);
      QVERIFY(quits([&] { return closeBy(way, desk), true; }));
      QVERIFY(!desk.window().isVisible());
      desk.close();
      desk.open();
      QCOMPARE(desk.window().size(), QSize(1000, 700));
    }
  }

  /// The title bar of a sheet is its Cancel button.
  void stopsTheScanWithItsSheet() {
    if (!hasTitleBars()) QSKIP("windows have no title bars here; see the run on X11");
    for (const Moment& moment : kMoments) {
      const SlowSite site(moment.pages(), moment.slowPage);
      Desk desk;
      desk.openShop(site.url());
      QVERIFY(desk.click("scanSiteButton"));
      QVERIFY(moment.sheet());
      closeByTitleBar(*moment.sheet());
      QVERIFY(scanHasEnded(desk) && noSheetLeft());
      QVERIFY(desk.window().isVisible());
      QCOMPARE(desk.status(), QStringLiteral("Stopped the scan of \"Shop\""));
    }
  }

  void endsAScanWithTheWindow() {
    const SlowSite site(smallSite(), "/b.html");
    Desk desk;
    desk.openShop(site.url());
    QVERIFY(desk.click("scanSiteButton"));
    QVERIFY(comesTrue([&] { return site.isWaitedFor(); }));
    desk.close();
    QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::QuitTest>(argc, argv);
}

#include "quit_test.moc"
