// Closing the window, with a scan running and without.
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include "platform/qt_text.h"
#include "scan_steps.h"

namespace window_tests {

namespace {

const QString kRunning = QStringLiteral("A scan is running.");
const QString kKeep = QStringLiteral("Keep Scanning");
const QString kStop = QStringLiteral("Stop and Quit");

const QString kByKey = QStringLiteral("Ctrl+Q");
const QString kByTitleBar = QStringLiteral("title bar");

/// Closes the main window as far as that is possible with the sheet that is up.
void closeBy(const QString& way, const Desk& desk) {
  if (way == kByTitleBar) {
    closeByTitleBar(desk.window());
  } else {
    QWidget* top = topSheet() != nullptr ? static_cast<QWidget*>(topSheet()) : &desk.window();
    QTest::keyClick(top, Qt::Key_Q, Qt::ControlModifier);
  }
}

QStringList waysToClose() {
  return hasTitleBars() ? QStringList{kByKey, kByTitleBar} : QStringList{kByKey};
}

int messagesUp() {
  int count = 0;
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible() && qobject_cast<const QMessageBox*>(widget) != nullptr) ++count;
  }
  return count;
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
  void asksOnceBeforeQuitting_data();
  void asksOnceBeforeQuitting();
  void quitsAfterTheScanHasEndedBehindTheQuestion();
  void quitsAtOnceWithoutAScan();
  void staysWhileASiteIsEdited();
  void stopsTheScanWithItsSheet_data();
  void stopsTheScanWithItsSheet();
  void endsAScanWithTheWindow();
};

void QuitTest::asksOnceBeforeQuitting_data() {
  QTest::addColumn<QString>("slowPage");
  QTest::addColumn<QString>("sheet");
  QTest::addColumn<QString>("way");
  QTest::addColumn<bool>("stop");
  for (const QString& way : waysToClose()) {
    for (const bool stop : {false, true}) {
      const std::string what = platform::toUtf8(way) + (stop ? ", stop" : ", keep");
      QTest::addRow("connecting, %s", what.c_str()) << QStringLiteral("/") << kConnecting << way << stop;
      QTest::addRow("scanning, %s", what.c_str()) << QStringLiteral("/b.html") << kProgress << way << stop;
      QTest::addRow("looping, %s", what.c_str()) << QStringLiteral("(none)") << QString() << way << stop;
    }
  }
}

void QuitTest::asksOnceBeforeQuitting() {
  QFETCH(const QString, slowPage);
  QFETCH(const QString, sheet);
  QFETCH(const QString, way);
  QFETCH(const bool, stop);
  support::SiteServer::Pages pages = smallSite();
  if (sheet.isEmpty()) pages["/"] = page("Start", {kLoop});
  SlowSite site(pages, platform::toUtf8(slowPage));
  Desk desk;
  openWithShop(desk, site.url());
  QVERIFY(desk.click("scanSiteButton"));
  QVERIFY(sheet.isEmpty() ? message(kLooping) : sheetNamed(sheet));

  // Keys go nowhere before the sheet has the focus; whoever is in a hurry tries again.
  QVERIFY(comesTrue([&] {
    if (messagesUp() > (sheet.isEmpty() ? 1 : 0)) return true;
    closeBy(way, desk);
    return false;
  }));
  QMessageBox* question = message(kRunning);
  QVERIFY(question);
  QVERIFY(hasButtons(*question, {kStop, kKeep}));
  const int messages = messagesUp();
  closeBy(way, desk);
  desk.window().close();
  QTest::qWait(0);
  QCOMPARE(messagesUp(), messages);
  QVERIFY(desk.window().isVisible());
  if (stop) {
    QVERIFY(quits([&] { return answer(question, kStop); }));
    QVERIFY(!desk.window().isVisible());
    QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));
    return;
  }
  QVERIFY(answer(question, kKeep));
  QVERIFY(sheet.isEmpty() ? message(kLooping) : sheetNamed(sheet));
  site.release();
  if (sheet.isEmpty()) QVERIFY(answer(message(kLooping), QStringLiteral("Continue")));
  QVERIFY(scanHasEnded(desk));
  QVERIFY(desk.window().isVisible());
  QCOMPARE(desk.control<QStatusBar>("statusBar").currentMessage(), QStringLiteral("Scanned \"Shop\""));
}

void QuitTest::quitsAfterTheScanHasEndedBehindTheQuestion() {
  for (const bool stop : {false, true}) {
    SlowSite site(smallSite(), "/b.html");
    Desk desk;
    openWithShop(desk, site.url());
    QVERIFY(desk.click("scanSiteButton"));
    QVERIFY(sheetNamed(kProgress));
    desk.window().close();
    QVERIFY(message(kRunning));
    site.release();
    QVERIFY(scanHasEnded(desk));
    QMessageBox* question = message(kRunning);
    QVERIFY(question);
    if (stop) {
      QVERIFY(quits([&] { return answer(question, kStop); }));
    } else {
      QVERIFY(answer(question, kKeep) && noSheetLeft());
      QVERIFY(desk.window().isVisible());
      QVERIFY(scan(desk));
    }
  }
}

void QuitTest::quitsAtOnceWithoutAScan() {
  for (const QString& way : waysToClose()) {
    Desk desk;
    openWithShop(desk, "http://shop.test/");
    desk.window().resize(1000, 700);
    QVERIFY(quits([&] { return closeBy(way, desk), true; }));
    QVERIFY(!desk.window().isVisible());
    desk.close();
    desk.open();
    QCOMPARE(desk.window().size(), QSize(1000, 700));
  }
}

void QuitTest::staysWhileASiteIsEdited() {
  for (const QString& way : waysToClose()) {
    Desk desk;
    openWithShop(desk, "http://shop.test/");
    QVERIFY(desk.click("editSiteButton"));
    QDialog* sheet = sheetNamed(QStringLiteral("aedWindow"));
    QVERIFY(sheet);
    closeBy(way, desk);
    // Sent behind the other wish, and so handled behind it.
    if (way == kByTitleBar) closeByTitleBar(*sheet);
    if (way == kByKey) pressEscape(*sheet);
    QVERIFY(noSheetLeft());
    QVERIFY(desk.window().isVisible());
    QCOMPARE(messagesUp(), 0);
  }
}

void QuitTest::stopsTheScanWithItsSheet_data() {
  QTest::addColumn<QString>("slowPage");
  QTest::addColumn<QString>("sheet");
  QTest::newRow("connecting") << QStringLiteral("/") << kConnecting;
  QTest::newRow("scanning") << QStringLiteral("/b.html") << kProgress;
  QTest::newRow("looping") << QStringLiteral("(none)") << QString();
}

/// The title bar of a sheet is its Cancel button.
void QuitTest::stopsTheScanWithItsSheet() {
  QFETCH(const QString, slowPage);
  QFETCH(const QString, sheet);
  if (!hasTitleBars()) QSKIP("windows have no title bars here; see the run on X11");
  support::SiteServer::Pages pages = smallSite();
  if (sheet.isEmpty()) pages["/"] = page("Start", {kLoop});
  const SlowSite site(pages, platform::toUtf8(slowPage));
  Desk desk;
  openWithShop(desk, site.url());
  QVERIFY(desk.click("scanSiteButton"));
  QDialog* up = sheet.isEmpty() ? message(kLooping) : sheetNamed(sheet);
  QVERIFY(up);
  closeByTitleBar(*up);
  QVERIFY(scanHasEnded(desk));
  QVERIFY(noSheetLeft());
  QVERIFY(desk.window().isVisible());
  QCOMPARE(desk.control<QStatusBar>("statusBar").currentMessage(),
           QStringLiteral("Stopped the scan of \"Shop\""));
}

void QuitTest::endsAScanWithTheWindow() {
  const SlowSite site(smallSite(), "/b.html");
  Desk desk;
  openWithShop(desk, site.url());
  QVERIFY(desk.click("scanSiteButton"));
  QVERIFY(comesTrue([&] { return site.isWaitedFor(); }));
  desk.close();
  QVERIFY(desk.file("Shop", "sitemap.xml").ends_with("\n</urlset>"));
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::QuitTest>(argc, argv);
}

#include "quit_test.moc"
