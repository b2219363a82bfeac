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
  void quitsAfterTheScanHasEndedBehindTheQuestion_data();
  void quitsAfterTheScanHasEndedBehindTheQuestion();
  void quitsAtOnceWithoutAScan();
  void endsAScanWithTheWindow();
};

void QuitTest::asksOnceBeforeQuitting_data() {
  QTest::addColumn<QString>("slowPage");
  QTest::addColumn<QString>("sheet");
  QTest::addColumn<bool>("stop");
  for (const bool stop : {false, true}) {
    const char* what = stop ? "stop" : "keep";
    QTest::addRow("connecting, %s", what) << QStringLiteral("/") << kConnecting << stop;
    QTest::addRow("scanning, %s", what) << QStringLiteral("/b.html") << kProgress << stop;
    QTest::addRow("looping, %s", what) << QStringLiteral("(none)") << QString() << stop;
  }
}

void QuitTest::asksOnceBeforeQuitting() {
  QFETCH(const QString, slowPage);
  QFETCH(const QString, sheet);
  QFETCH(const bool, stop);
  support::SiteServer::Pages pages = smallSite();
  if (sheet.isEmpty()) pages["/"] = page("Start", {kLoop});
  SlowSite site(pages, platform::toUtf8(slowPage));
  Desk desk;
  openWithShop(desk, site.url());
  QVERIFY(desk.click("scanSiteButton"));
  QVERIFY(sheet.isEmpty() ? message(kLooping) : sheetNamed(sheet));

  if (sheet.isEmpty()) {
    desk.window().close();
  } else {
    QTest::keyClick(topSheet(), Qt::Key_Q, Qt::ControlModifier);
  }
  QMessageBox* question = message(kRunning);
  QVERIFY(question);
  QVERIFY(hasButtons(*question, {kStop, kKeep}));
  const int messages = messagesUp();
  desk.window().close();
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

void QuitTest::quitsAfterTheScanHasEndedBehindTheQuestion_data() {
  QTest::addColumn<bool>("stop");
  QTest::newRow("keep") << false;
  QTest::newRow("stop") << true;
}

void QuitTest::quitsAfterTheScanHasEndedBehindTheQuestion() {
  QFETCH(const bool, stop);
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
    return;
  }
  QVERIFY(answer(question, kKeep));
  QVERIFY(noSheetLeft());
  QVERIFY(desk.window().isVisible());
  QVERIFY(scan(desk));
}

void QuitTest::quitsAtOnceWithoutAScan() {
  Desk desk;
  openWithShop(desk, "http://shop.test/");
  desk.window().resize(1000, 700);
  QVERIFY(quits([&] { return QTest::keyClick(&desk.window(), Qt::Key_Q, Qt::ControlModifier), true; }));
  QVERIFY(!desk.window().isVisible());
  desk.close();
  desk.open();
  QCOMPARE(desk.window().size(), QSize(1000, 700));
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
