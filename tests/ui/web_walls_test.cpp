// The walls around a document that a stranger's site has filled: each bait has to bite where there is no
// wall, and none may bite where there are all.
#include <QDropEvent>
#include <QMimeData>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QWebEngineDownloadRequest>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <functional>
#include <memory>
#include <optional>

#include "html_editor/sitemap_page.h"
#include "walled_view.h"

namespace window_tests {

using html_editor::DocumentScheme;
using html_editor::SitemapPage;
using html_editor::WalledProfile;

namespace {

/// A server that notes every connection, also one over which nothing is asked.
class Lure : public QTcpServer {
 public:
  Lure() {
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this] {
      QTcpSocket* socket = nextPendingConnection();
      ++m_connections;
      connect(socket, &QTcpSocket::readyRead, socket, [socket] {
        socket->readAll();
        socket->write(
            "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
        socket->disconnectFromHost();
      });
      connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    });
  }
  QString url() const { return QStringLiteral("http://127.0.0.1:%1/").arg(serverPort()); }
  int connections() const { return m_connections; }

 private:
  int m_connections = 0;
};

/// Something in a document that wants to get out. LURE stands for the lure's address.
struct Bait {
  const char* name;
  const char* html;
  const char* act = "";    // what a user may do to it
  bool navigates = false;  // which is what the page by itself holds back
};

constexpr const char* kClick = "document.getElementById('x').click()";

constexpr Bait kBaits[] = {
    {"image", "<img src='LURE'>"},
    {"picture of a video", "<video poster='LURE'></video>"},
    {"video", "<video src='LURE' preload=auto></video>"},
    {"script of another site", "<script src='LURE'></script>"},
    {"script", "<script>new Image().src = 'LURE'</script>"},
    {"handler of an image", "<img src='x:' onerror=\"fetch('LURE')\">"},
    {"socket", "<script>new WebSocket('LURE'.replace('http', 'ws'))</script>"},
    {"worker", "<script>new Worker(URL.createObjectURL(new Blob([\"fetch('LURE')\"])))</script>"},
    {"refresh", "<meta http-equiv=refresh content='0;url=LURE'>", "", true},
    {"frame", "<iframe src='LURE'></iframe>", "", true},
    {"frame with data", "<iframe src=\"data:text/html,<img src='LURE'>\"></iframe>", "", true},
    {"object", "<object data='LURE'></object>", "", true},
    {"style sheet", "<link rel=stylesheet href='LURE'>"},
    {"background", "<p style=\"background: url('LURE')\">x</p>"},
    {"font", "<style>@font-face { font-family: f; src: url('LURE') } p { font-family: f }</style>"},
    {"prefetch", "<link rel=prefetch href='LURE'>"},
    {"base", "<base href='LURE'><img src='x'>"},
    {"link", "<a id=x href='LURE'>x</a>", kClick, true},
    {"link to a new window", "<a id=x target=_blank href='LURE'>x</a>", kClick, true},
    {"link to a download", "<a id=x download href='LURE'>x</a>", kClick, true},
    {"link that tells", "<a id=x href='#y' ping='LURE'>x</a>", kClick},
    {"link to a script", "<a id=x href=\"javascript:fetch('LURE')\">x</a>", kClick},
    {"form", "<form action='LURE'></form>", "document.forms[0].submit()", true},
    {"jump by script", "<script>location = 'LURE'</script>", "", true},
    {"window by script", "<script>open('LURE')</script>", "", true},
};

enum class Walls { none, settings, profile, page };

/// Opens windows, as browsers do.
class OpenPage : public QWebEnginePage {
 public:
  using QWebEnginePage::QWebEnginePage;

  int windows() const { return m_windows; }

 protected:
  QWebEnginePage* createWindow(WebWindowType) override {
    ++m_windows;
    return new QWebEnginePage(profile(), this);
  }

 private:
  int m_windows = 0;
};

/// A web view with one wall, or none, in which all else is allowed.
class OpenView {
 public:
  explicit OpenView(Walls walls)
      : m_profile(walls == Walls::profile ? std::make_unique<WalledProfile>(m_scheme)
                                          : std::make_unique<QWebEngineProfile>()) {
    if (walls != Walls::profile) m_profile->installUrlSchemeHandler(DocumentScheme::kName, &m_scheme);
    if (walls == Walls::page) {
      auto page = std::make_unique<SitemapPage>(m_profile.get());
      m_open = [target = page.get()](const QUrl& url) { target->open(url); };
      m_page = std::move(page);
    } else {
      m_page = std::make_unique<OpenPage>(m_profile.get());
      m_open = [target = m_page.get()](const QUrl& url) { target->load(url); };
    }
    if (walls == Walls::settings) {
      html_editor::turnEverythingOff(*m_page->settings());
    } else {
      using Settings = QWebEngineSettings;
      for (const auto each :
           {Settings::LocalContentCanAccessRemoteUrls, Settings::LocalContentCanAccessFileUrls,
            Settings::JavascriptCanOpenWindows, Settings::HyperlinkAuditingEnabled}) {
        m_page->settings()->setAttribute(each, true);
      }
      m_page->settings()->setAttribute(Settings::PlaybackRequiresUserGesture, false);
    }
    m_view.setPage(m_page.get());
    m_view.resize(400, 300);
    m_view.show();
  }
  ~OpenView() { m_view.setPage(nullptr); }

  bool load(const QString& html) {
    m_scheme.startAnother();
    m_scheme.setDocument(html.toUtf8());
    m_windowsBefore += windows();
    bool loaded = false;
    const auto connection =
        QObject::connect(m_page.get(), &QWebEnginePage::loadFinished, m_page.get(), [&] { loaded = true; });
    m_open(m_scheme.address());
    const bool result = comesTrue([&] { return loaded; });
    QObject::disconnect(connection);
    return result;
  }
  /// Does not wait: what it does may take the page away.
  void act(const char* script) {
    m_page->runJavaScript(QString::fromUtf8(script), QWebEngineScript::ApplicationWorld);
  }
  /// Whether the document is still the one that was loaded.
  bool isStill() {
    return m_page->url() == m_scheme.address() &&
           inPage(m_view, QStringLiteral("document.getElementById('end') !== null")).toBool();
  }
  /// How many windows the page has opened, not counting those of documents before this one.
  int windows() const {
    const auto* page = dynamic_cast<const OpenPage*>(m_page.get());
    return page == nullptr ? 0 : page->windows() - m_windowsBefore;
  }
  QWebEngineView& view() { return m_view; }
  QWebEngineProfile& profile() { return *m_profile; }

 private:
  DocumentScheme m_scheme;
  std::unique_ptr<QWebEngineProfile> m_profile;
  std::unique_ptr<QWebEnginePage> m_page;
  std::function<void(const QUrl&)> m_open;
  QWebEngineView m_view;
  int m_windowsBefore = 0;
};

}  // namespace

class WebWallsTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void cleanupTestCase();
  void holdsEveryBait_data();
  void holdsEveryBait();
  void readsNoFiles();
  void goesNowhere();
  void savesNothing();
  void takesNoDrops();
  void takesNoCommandsFromADocument();

 private:
  void goesNowhere(const QString& target);

  std::unique_ptr<OpenView> m_open;      // no walls,
  std::unique_ptr<OpenView> m_settings;  // one each,
  std::unique_ptr<OpenView> m_profile;
  std::unique_ptr<OpenView> m_page;
  std::unique_ptr<WalledView> m_walled;  // and all
};

void WebWallsTest::initTestCase() {
  m_open = std::make_unique<OpenView>(Walls::none);
  m_settings = std::make_unique<OpenView>(Walls::settings);
  m_profile = std::make_unique<OpenView>(Walls::profile);
  m_page = std::make_unique<OpenView>(Walls::page);
  m_walled = std::make_unique<WalledView>();
}

void WebWallsTest::cleanupTestCase() {
  m_open.reset();
  m_settings.reset();
  m_profile.reset();
  m_page.reset();
  m_walled.reset();
}

void WebWallsTest::holdsEveryBait_data() {
  QTest::addColumn<int>("number");
  int number = 0;
  for (const Bait& bait : kBaits) QTest::newRow(bait.name) << number++;
}

void WebWallsTest::holdsEveryBait() {
  QFETCH(const int, number);
  const Bait& bait = kBaits[number];
  const auto baited = [&](const Lure& lure) {
    return withText(QString::fromUtf8(bait.html).replace(QLatin1String("LURE"), lure.url()));
  };
  const Lure settings;
  const Lure profile;
  const Lure page;
  const Lure walled;
  const Lure open;
  QVERIFY(m_settings->load(baited(settings)));
  m_settings->act(bait.act);
  QVERIFY(m_profile->load(baited(profile)));
  m_profile->act(bait.act);
  if (bait.navigates) {
    QVERIFY(m_page->load(baited(page)));
    m_page->act(bait.act);
  }
  QVERIFY(m_walled->load(baited(walled)));
  inPage(m_walled->view(), QString::fromUtf8(bait.act));
  // Where there is no wall it is taken. By then those before would have taken it, too.
  QVERIFY(m_open->load(baited(open)));
  m_open->act(bait.act);
  QVERIFY(comesTrue([&] { return open.connections() > 0 || m_open->windows() > 0; }));
  QVERIFY(m_walled->isStill());
  QCOMPARE(settings.connections(), 0);
  QCOMPARE(profile.connections(), 0);
  QCOMPARE(page.connections(), 0);
  QCOMPARE(walled.connections(), 0);
}

void WebWallsTest::readsNoFiles() {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("picture.png"));
  QImage picture(7, 7, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QVERIFY(picture.save(file));
  const QString html =
      withText(QStringLiteral("<img src='file://%1'><iframe src='file://%1'></iframe>").arg(file));
  const QString width = QStringLiteral("document.images[0].complete && document.images[0].naturalWidth");
  QVERIFY(m_settings->load(html));
  QVERIFY(m_profile->load(html));
  QVERIFY(m_walled->load(html));
  QVERIFY(m_open->load(html));
  QVERIFY(comesTrue([&] { return inPage(m_open->view(), width).toInt() == 7; }));
  QCOMPARE(inPage(m_settings->view(), width).toInt(), 0);
  QCOMPARE(inPage(m_profile->view(), width).toInt(), 0);
  QCOMPARE(inPage(m_walled->view(), width).toInt(), 0);
}

void WebWallsTest::goesNowhere() {
  for (const char* each : {"about:blank", "data:text/html,x", "file:///etc/hostname", "veskel-document:/0",
                           "mailto:x@a.test", "http://127.0.0.1:1/", "blob:null/x", "chrome://version"}) {
    goesNowhere(QString::fromLatin1(each));
  }
}

void WebWallsTest::goesNowhere(const QString& target) {
  // Every way there is, with scripts on.
  const QString html =
      withText(QStringLiteral("<meta http-equiv=refresh content='0;url=%1'><a id=x href='%1'>x</a>"
                              "<form id=f action='%1'></form><form id=p method=post action='%1'></form>"
                              "<script>onload = () => setTimeout(() => {"
                              "  x.click(); f.submit(); p.submit(); location.replace('%1'); location = '%1';"
                              "  location.reload(); history.go(-1); open('%1');"
                              "  document.body.dataset.tried = 1; })</script>")
                   .arg(target));
  QVERIFY(m_page->load(html));
  QVERIFY(comesTrue([&] {
    return inPage(m_page->view(), QStringLiteral("document.body.dataset.tried")).toString() ==
           QLatin1String("1");
  }));
  QVERIFY(m_page->isStill());
  QVERIFY(m_walled->load(html));
  QVERIFY(m_walled->isStill());
  QVERIFY(inPage(m_walled->view(), QStringLiteral("document.body.dataset.tried")).isNull());
}

void WebWallsTest::savesNothing() {
  const QString html =
      withText(QStringLiteral("<a id=x download=kept.txt>x</a><script>"
                              "x.href = URL.createObjectURL(new Blob(['text'])); x.click()</script>"));
  const QTemporaryDir folder;
  const auto saved = [&](OpenView& view) {
    view.profile().setDownloadPath(folder.path());
    std::optional<QWebEngineDownloadRequest::DownloadState> end;
    const auto connection =
        QObject::connect(&view.profile(), &QWebEngineProfile::downloadRequested, this,
                         [&](QWebEngineDownloadRequest* download) {
                           download->accept();
                           if (download->isFinished()) end = download->state();
                           QObject::connect(download, &QWebEngineDownloadRequest::isFinishedChanged, this,
                                            [&end, download] { end = download->state(); });
                         });
    view.load(html);
    const bool ended = comesTrue([&] { return end.has_value(); });
    QObject::disconnect(connection);
    return ended && end == QWebEngineDownloadRequest::DownloadCompleted;
  };
  QVERIFY(!saved(*m_profile));
  QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("kept.txt"))));
  QVERIFY(saved(*m_open));
}

void WebWallsTest::takesNoDrops() {
  QMimeData data;
  data.setUrls({QUrl(QStringLiteral("http://127.0.0.1:1/"))});
  data.setText(QStringLiteral("http://127.0.0.1:1/"));
  const auto takes = [&](QWidget& target) {
    QDragEnterEvent event(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(&target, &event);
    return target.acceptDrops() && event.isAccepted();
  };
  QVERIFY(m_walled->load(withText({})));
  QVERIFY(takes(m_open->view()));
  QVERIFY(!m_walled->view().acceptDrops());
  for (QWidget* each : m_walled->view().findChildren<QWidget*>()) QVERIFY(!takes(*each));
}

/// The way from the script to the program is not the document's.
void WebWallsTest::takesNoCommandsFromADocument() {
  const QString html = withText(
      QStringLiteral("<script>document.body.dataset.seen = typeof qt + typeof QWebChannel</script>"));
  QVERIFY(m_walled->load(html));
  QVERIFY(inPage(m_walled->view(), QStringLiteral("document.body.dataset.seen")).isNull());
  // With scripts allowed they still see nothing of it.
  m_walled->view().page()->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, true);
  QVERIFY(m_walled->load(html));
  QCOMPARE(inPage(m_walled->view(), QStringLiteral("document.body.dataset.seen")).toString(),
           QStringLiteral("undefinedundefined"));
  m_walled->view().page()->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
}

}  // namespace window_tests

int main(int argc, char** argv) {
  return window_tests::run<window_tests::WebWallsTest>(argc, argv);
}

#include "web_walls_test.moc"
