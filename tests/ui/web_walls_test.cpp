// The walls around a document that a stranger's site has filled: each bait has to bite where there is no
// wall, and none may bite where there are all.
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>
#include <memory>
#include <span>

#include "open_view.h"
#include "walled_view.h"

namespace window_tests {

namespace {

/// A server that notes every connection, also one over which nothing is asked, and what is asked for.
class Lure : public QTcpServer {
 public:
  Lure() {
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this] {
      QTcpSocket* socket = nextPendingConnection();
      ++m_connections;
      connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
        m_asked += socket->readAll();
        socket->write(
            "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
        socket->disconnectFromHost();
      });
      connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    });
  }
  /// The address of a bait.
  QString url(int number) const {
    return QStringLiteral("http://127.0.0.1:%1/bait%2/").arg(serverPort()).arg(number);
  }
  int connections() const { return m_connections; }
  bool isAskedFor(int number) const { return m_asked.contains("/bait" + QByteArray::number(number) + '/'); }

 private:
  int m_connections = 0;
  QByteArray m_asked;
};

/// Something in a document that wants to get out. LURE stands for the lure's address; what a user has to work
/// is of the class "act".
struct Bait {
  const char* name;
  const char* html;
  bool leaves = false;  // which the page by itself holds back
};

/// All that a document can hold at the same time.
constexpr Bait kBaits[] = {
    {"image", "<img src='LURE'>"},
    {"video", "<video src='LURE' preload=auto></video>"},
    {"script", "<script>new Image().src = 'LURE'</script>"},
    {"socket", "<script>new WebSocket('LURE'.replace('http', 'ws'))</script>"},
    {"worker", "<script>new Worker(URL.createObjectURL(new Blob([\"fetch('LURE')\"])))</script>"},
    {"frame", "<iframe src='LURE'></iframe>", true},
    {"frame with data", "<iframe src=\"data:text/html,<img src='LURE'>\"></iframe>", true},
    {"object", "<object data='LURE'></object>", true},
    {"style sheet", "<link rel=stylesheet href='LURE'>"},
    {"font", "<style>@font-face { font-family: f; src: url('LURE') } p { font-family: f }</style>"},
    {"prefetch", "<link rel=prefetch href='LURE'>"},
    {"link that tells", "<a class=act href='#y' ping='LURE'>x</a>"},
    {"link to a script", "<a class=act href=\"javascript:fetch('LURE')\">x</a>"},
};

/// Each of these takes the document away.
constexpr Bait kLast[] = {
    {"refresh", "<meta http-equiv=refresh content='0;url=LURE'>", true},
    {"link", "<a class=act href='LURE'>x</a>", true},
    {"link to a download", "<a class=act download href='LURE'>x</a>", true},
    {"form", "<form class=act action='LURE'></form>", true},
    {"link to a window", "<a class=act target=_blank href='LURE'>x</a>", true},
    {"window by script", "<script>open('LURE')</script>", true},
};

struct Views {
  OpenView open{Walls::none};
  OpenView settings{Walls::settings};  // with one wall each,
  OpenView profile{Walls::profile};
  OpenView page{Walls::page};
  WalledView walled;  // and with all
};

}  // namespace

class WebWallsTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { m_views = std::make_unique<Views>(); }
  void cleanupTestCase() { m_views.reset(); }
  void holdsEveryBait() {
    holds(kBaits);
    for (const Bait& each : kLast) holds({&each, 1});
  }

  void readsNoFiles() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("picture.png"));
    QImage picture(7, 7, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(file));
    const QString html =
        withText(QStringLiteral("<img src='file://%1'><iframe src='file://%1'></iframe>").arg(file));
    const auto isRead = [](QWebEngineView& view) {
      return inPage(view, QStringLiteral("document.images[0].naturalWidth")).toInt() == 7;
    };
    for (OpenView* each : {&m_views->settings, &m_views->profile, &m_views->open}) QVERIFY(each->load(html));
    QVERIFY(m_views->walled.load(html));
    QVERIFY(comesTrue([&] { return isRead(m_views->open.view()); }));
    QVERIFY(!isRead(m_views->settings.view()) && !isRead(m_views->profile.view()));
    QVERIFY(!isRead(m_views->walled.view()));
  }

  void goesNowhere() {
    for (const char* target : {"about:blank", "data:text/html,x", "file:///etc/hostname",
                               "veskel-document:/0", "http://127.0.0.1:1/", "chrome://version"}) {
      // Every way there is, with scripts on.
      const QString html = withText(
          QStringLiteral("<meta http-equiv=refresh content='0;url=%1'><a id=x href='%1'>x</a>"
                         "<form id=f action='%1'></form><form id=p method=post action='%1'></form>"
                         "<script>onload = () => setTimeout(() => {"
                         "  x.click(); f.submit(); p.submit(); location.replace('%1'); location = '%1';"
                         "  location.reload(); history.go(-1); open('%1');"
                         "  document.body.dataset.tried = 1; })</script>")
              .arg(QLatin1String(target)));
      const QString tried = QStringLiteral("document.body.dataset.tried");
      QVERIFY(m_views->page.load(html));
      QVERIFY(
          comesTrue([&] { return inPage(m_views->page.view(), tried).toString() == QLatin1String("1"); }));
      QVERIFY(m_views->page.isStill());
      QVERIFY(m_views->walled.load(html));
      QVERIFY(m_views->walled.isStill());
      QVERIFY(inPage(m_views->walled.view(), tried).isNull());
    }
  }

  void savesNothing() {
    const QString html =
        withText(QStringLiteral("<a id=x download=kept.txt>x</a><script>"
                                "x.href = URL.createObjectURL(new Blob(['text'])); x.click()</script>"));
    const QTemporaryDir folder;
    const auto saved = [&](OpenView& view) {
      const QObject context;
      QPointer<QWebEngineDownloadRequest> download;
      connect(&view.profile(), &QWebEngineProfile::downloadRequested, &context, [&](auto* requested) {
        requested->accept();
        download = requested;
      });
      view.profile().setDownloadPath(folder.path());
      view.load(html);
      return comesTrue([&] { return download && download->isFinished(); }) &&
             download->state() == QWebEngineDownloadRequest::DownloadCompleted;
    };
    QVERIFY(!saved(m_views->profile));
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("kept.txt"))));
    QVERIFY(saved(m_views->open));
  }

  void takesNoDrops() {
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("http://127.0.0.1:1/"))});
    const auto takes = [&](QWidget& target) {
      QDragEnterEvent event(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
      event.ignore();
      QApplication::sendEvent(&target, &event);
      return target.acceptDrops() && event.isAccepted();
    };
    QVERIFY(m_views->walled.load(withText({})));
    QVERIFY(takes(m_views->open.view()));
    QVERIFY(!m_views->walled.view().acceptDrops());
    for (QWidget* each : m_views->walled.view().findChildren<QWidget*>()) QVERIFY(!takes(*each));
  }

  /// The way from the script to the program is not the document's.
  void takesNoCommandsFromADocument() {
    const QString html = withText(
        QStringLiteral("<script>document.body.dataset.seen = typeof qt + typeof QWebChannel</script>"));
    // With scripts allowed they still see nothing of it.
    for (const bool allowed : {true, false}) {
      m_views->walled.view().page()->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, allowed);
      QVERIFY(m_views->walled.load(html));
      QCOMPARE(inPage(m_views->walled.view(), QStringLiteral("document.body.dataset.seen")).toString(),
               allowed ? QStringLiteral("undefinedundefined") : QString());
    }
  }

 private:
  void holds(std::span<const Bait> baits) {
    const auto baited = [&](const Lure& lure) {
      QString html;
      for (int i = 0; i < static_cast<int>(baits.size()); ++i)
        html += QString::fromUtf8(baits[i].html).replace(QLatin1String("LURE"), lure.url(i));
      return withText(html);
    };
    const Lure settings;
    const Lure profile;
    const Lure page;
    const Lure walled;
    const Lure open;
    const std::pair<OpenView*, const Lure*> views[] = {
        {&m_views->settings, &settings}, {&m_views->profile, &profile}, {&m_views->page, &page}};
    for (const auto& [view, lure] : views) {
      QVERIFY(view->load(baited(*lure)));
      view->act();
    }
    QVERIFY(m_views->walled.load(baited(walled)));
    inPage(m_views->walled.view(), kAct);
    // Where there is no wall it is taken. By then those before would have taken it, too.
    QVERIFY(m_views->open.load(baited(open)));
    m_views->open.act();
    for (int i = 0; i < static_cast<int>(baits.size()); ++i) {
      const Bait& bait = baits[i];
      QVERIFY2(comesTrue([&] { return open.isAskedFor(i); }), bait.name);
      QVERIFY2(!bait.leaves || !page.isAskedFor(i), bait.name);
    }
    QVERIFY(m_views->walled.isStill());
    QCOMPARE(settings.connections(), 0);
    QCOMPARE(profile.connections(), 0);
    QCOMPARE(walled.connections(), 0);
  }

  std::unique_ptr<Views> m_views;
};

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::WebWallsTest>(argc, argv);
}

#include "web_walls_test.moc"
