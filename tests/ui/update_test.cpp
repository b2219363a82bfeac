// The check for updates in the window, from the command to the browser.
#include <QDesktopServices>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QUrl>

#include "platform/named_controls.h"
#include "support/appcasts.h"
#include "support/secured_client.h"
#include "support/slow_site.h"
#include "ui/update_controller.h"
#include "ui/wrapped_text.h"
#include "window_test.h"

namespace window_tests {

namespace {

using support::appcastItem;
using support::appcastOf;
using support::SecuredClient;
using support::SiteServer;

/// A window that can ask one server.
struct UpdateDesk {
  explicit UpdateDesk(const std::string& plainOrigin)
      : controller(window, sheets,
                   {.address = std::string(SecuredClient::kOrigin) + "list", .programVersion = "2.0.0"},
                   [plainOrigin] { return std::make_unique<SecuredClient>(plainOrigin); }) {
    QObject::connect(&controller, &ui::UpdateController::report, &window,
                     [this](const QString& sentence) { said = sentence; });
    window.show();
  }

  QMainWindow window;
  platform::SheetQueue sheets{window};
  QString said;
  ui::UpdateController controller;
};

QString textIn(const QDialog& sheet, const char* label) {
  return platform::control<QLabel>(sheet, label).text();
}

}  // namespace

class UpdateTest : public QObject {
  Q_OBJECT

 public slots:
  void open(const QUrl& address) { m_opened = address.toString(); }

 private:
  QString m_opened;

 private slots:
  void showsWhatIsNewAndOpensItsPage() {
    const SiteServer server(SiteServer::Pages{
        {"/list",
         {.body = appcastOf(appcastItem("2.1",
                                        "<link>https://a.test/get?a=1&amp;b</link><description>"
                                        "&lt;h1&gt;News&lt;/h1&gt;&lt;img src='https://b.test/'&gt;"
                                        "&lt;a href='https://b.test/'&gt;More</description>"))}}});
    UpdateDesk desk(server.url());
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open");
    desk.controller.check();
    QDialog* sheet = sheetNamed(QStringLiteral("updateSheet"));
    QVERIFY(sheet);
    QCOMPARE(textIn(*sheet, "updateTitle"), QStringLiteral("Veskel 2.1 is available."));
    QCOMPARE(textIn(*sheet, "updateMessage"), QStringLiteral("This is version 2.0.0."));
    QCOMPARE(desk.said, QStringLiteral("Veskel 2.1 is available."));
    const auto& notes = platform::control<QPlainTextEdit>(*sheet, "updateNotes");
    QCOMPARE(notes.toPlainText(), QStringLiteral("News\n\nMore"));
    QVERIFY(notes.isReadOnly() && !notes.accessibleName().isEmpty());
    QVERIFY(sheet->accessibleDescription().contains(QLatin1String("2.1 is available")));
    QTest::keyClick(sheet, Qt::Key_Return);
    QVERIFY(noSheetLeft());
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    QCOMPARE(m_opened, QStringLiteral("https://a.test/get?a=1&b"));
    QCOMPARE(server.requests().size(), std::size_t{1});
  }

  void tellsWhereNotesCouldNotBeRead() {
    const SiteServer server(SiteServer::Pages{
        {"/list",
         {.body = appcastOf(appcastItem("2.1",
                                        "<sparkle:releaseNotesLink>https://secure.test/x</sparkle:"
                                        "releaseNotesLink>"))}}});
    UpdateDesk desk(server.url());
    desk.controller.check();
    QDialog* sheet = sheetNamed(QStringLiteral("updateSheet"));
    QVERIFY(sheet);
    QCOMPARE(
        platform::control<ui::WrappedText>(*sheet, "updateNotesProblem").toPlainText(),
        QStringLiteral("The release notes at https://secure.test/x could not be read: The server answers "
                       "404 - Not Found."));
    // Without a page there is nothing to open.
    QVERIFY(!sheet->findChild<QPushButton*>(QStringLiteral("openDownloadPageButton")));
    QVERIFY(!sheet->findChild<QPlainTextEdit*>());
    QVERIFY(dismiss(sheet));
  }

  void tellsThatThereIsNothingNewer() {
    const SiteServer server(SiteServer::Pages{{"/list", {.body = appcastOf(appcastItem("2.0"))}}});
    UpdateDesk desk(server.url());
    for (int i = 0; i < 2; ++i) {
      desk.controller.check();
      QMessageBox* box = message(QStringLiteral("Veskel 2.0.0 is the newest version."));
      QVERIFY(answer(box, kOk));
    }
    QCOMPARE(server.requests().size(), std::size_t{2});
  }

  void tellsWhatWentWrong() {
    const SiteServer server(SiteServer::Pages{});
    UpdateDesk desk(server.url());
    desk.controller.check();
    QMessageBox* box = message(QStringLiteral("The list of versions could not be reached."));
    QVERIFY(box);
    QCOMPARE(box->informativeText(),
             QStringLiteral("https://secure.test/list: The server answers 404 - Not Found."));
    QVERIFY(answer(box, kOk));
  }

  void stopsByButtonByKeyAndWithItsWindow() {
    for (const char* way : {"button", "key", "window"}) {
      support::SlowSite site({}, "/list");
      UpdateDesk desk(site.url());
      desk.controller.check();
      desk.controller.check();  // which asks no second time
      QDialog* sheet = sheetNamed(QStringLiteral("updateProgressSheet"));
      QVERIFY(sheet && comesTrue([&] { return site.isWaitedFor(); }));
      QVERIFY(!sheet->findChild<QProgressBar*>()->accessibleName().isEmpty());
      if (QLatin1String(way) == QLatin1String("window")) break;
      if (QLatin1String(way) == QLatin1String("key")) {
        pressEscape(*sheet);
        QVERIFY(noSheetLeft());
      } else {
        QVERIFY(answer(sheet, QStringLiteral("Stop")));
      }
      QVERIFY(comesTrue([&] { return !desk.said.isEmpty(); }));
      QCOMPARE(desk.said, QStringLiteral("The check for updates was stopped"));
      QCOMPARE(site.timesAsked("GET /list"), 1);
    }
  }

  void isInTheMenuOnlyWithAnAddress() {
    Desk desk;
    desk.open();
    QCOMPARE(desk.control<QAction>("checkUpdatesMI").isVisible(), !update::appcastAddress().empty());
  }
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::UpdateTest>(argc, argv);
}

#include "update_test.moc"
