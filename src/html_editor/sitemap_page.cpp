#include "html_editor/sitemap_page.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <cerrno>
#include <cstdio>

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace html_editor {

const QByteArray DocumentScheme::kName = "veskel-document";

namespace {

/// Whether the system lets this user have a name space of his own, as containers and hardened systems often
/// do not. To be asked while there is one thread only.
bool hasNameSpaces() {
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) _exit(unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Where the engine's sandbox cannot start, as root for one, the engine would end the program. The other
/// walls stand without it.
void goWithoutSandboxIfNeeded() {
  constexpr const char* kVariable = "QTWEBENGINE_DISABLE_SANDBOX";
  if (qEnvironmentVariableIsSet(kVariable)) return;
  const bool root = geteuid() == 0;
  if (!root && hasNameSpaces()) return;
  std::fprintf(stderr, "veskel: %s, so the HTML sitemap is shown without the web engine's sandbox\n",
               root ? "running as root" : "the system gives this user no name spaces");
  qputenv(kVariable, "1");
}

/// A document is read out to whoever needs that. The engine looks for such a program by itself, and tells
/// nobody anything as long as there is none, but on Linux it has to be told to look.
void letScreenReadersIn() {
  constexpr const char* kVariable = "QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY";
  if (!qEnvironmentVariableIsSet(kVariable)) qputenv(kVariable, "1");
}

}  // namespace

void prepareWebEngine() {
  goWithoutSandboxIfNeeded();
  letScreenReadersIn();
  QWebEngineUrlScheme scheme(DocumentScheme::kName);
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
  scheme.setFlags(QWebEngineUrlScheme::LocalScheme);
  QWebEngineUrlScheme::registerScheme(scheme);
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

QUrl DocumentScheme::address() const {
  return QUrl(QString::fromLatin1(kName) + QStringLiteral(":/") + QString::number(m_number));
}

void DocumentScheme::requestStarted(QWebEngineUrlRequestJob* job) {
  if (job->requestMethod() != "GET" || job->requestUrl() != address()) {
    job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    return;
  }
  auto* content = new QBuffer(job);
  content->setData(m_html);
  content->open(QIODevice::ReadOnly);
  m_served = true;
  job->reply("text/html;charset=utf-8", content);
}

void DocumentsOnly::interceptRequest(QWebEngineUrlRequestInfo& request) {
  const bool isDocument = request.requestUrl().scheme() == QLatin1String(DocumentScheme::kName) &&
                          request.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame;
  request.block(!isDocument);
}

WalledProfile::WalledProfile(DocumentScheme& scheme, QObject* parent) : QWebEngineProfile(parent) {
  setUrlRequestInterceptor(new DocumentsOnly(this));
  installUrlSchemeHandler(DocumentScheme::kName, &scheme);
  connect(this, &QWebEngineProfile::downloadRequested, this,
          [](QWebEngineDownloadRequest* download) { download->cancel(); });
}

void turnEverythingOff(QWebEngineSettings& settings) {
  using Settings = QWebEngineSettings;
  for (const Settings::WebAttribute each : {Settings::JavascriptEnabled,
                                            Settings::JavascriptCanOpenWindows,
                                            Settings::JavascriptCanAccessClipboard,
                                            Settings::JavascriptCanPaste,
                                            Settings::AllowWindowActivationFromJavaScript,
                                            Settings::LocalStorageEnabled,
                                            Settings::LocalContentCanAccessRemoteUrls,
                                            Settings::LocalContentCanAccessFileUrls,
                                            Settings::HyperlinkAuditingEnabled,
                                            Settings::ErrorPageEnabled,
                                            Settings::PluginsEnabled,
                                            Settings::PdfViewerEnabled,
                                            Settings::FullScreenSupportEnabled,
                                            Settings::ScreenCaptureEnabled,
                                            Settings::WebGLEnabled,
                                            Settings::AutoLoadImages,
                                            Settings::AutoLoadIconsForPage,
                                            Settings::AllowRunningInsecureContent,
                                            Settings::AllowGeolocationOnInsecureOrigins,
                                            Settings::DnsPrefetchEnabled,
                                            Settings::NavigateOnDropEnabled}) {
    settings.setAttribute(each, false);
  }
  settings.setAttribute(Settings::PlaybackRequiresUserGesture, true);
  settings.setUnknownUrlSchemePolicy(Settings::DisallowUnknownUrlSchemes);
}

void SitemapPage::open(const QUrl& address) {
  m_opened = address;
  load(address);
}

/// What the program loads counts as typed; nothing that stands in a document does, whatever it leads to.
bool SitemapPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
  return isMainFrame && type == NavigationTypeTyped && url == m_opened;
}

QWebEnginePage* SitemapPage::createWindow(WebWindowType) {
  return nullptr;
}

}  // namespace html_editor
