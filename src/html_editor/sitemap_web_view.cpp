#include "html_editor/sitemap_web_view.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QOpenGLContext>
#include <QQuickWidget>
#include <QWebChannel>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <optional>

#include "platform/qt_text.h"
#include "sitemaps/html_format.h"

namespace html_editor {

namespace {

constexpr quint32 kWorld = QWebEngineScript::ApplicationWorld;  // the document's own scripts cannot see it

// Capturing, so that nothing in the document comes before it. Every click on a link ends here. One that comes
// before the program is there to be told waits for it.
constexpr const char* kClickScript = R"(
(() => {
  // Laid out once and not after each piece that arrives: the columns of a long table depend on all of it.
  const unseen = new CSSStyleSheet();
  unseen.replaceSync(':root { display: none }');
  document.adoptedStyleSheets = [unseen];
  addEventListener('DOMContentLoaded', () => { document.adoptedStyleSheets = []; });

  const receiver = new Promise(done => {
    new QWebChannel(qt.webChannelTransport, channel => done(channel.objects.clicks));
  });
  const quiet = event => { event.preventDefault(); event.stopImmediatePropagation(); };
  const linkOf = event => event.target instanceof Element ? event.target.closest('a[href]') : null;
  const report = event => {
    const link = linkOf(event);
    quiet(event);
    if (!link) return false;
    const click = [link.getAttribute('href'), link.textContent, scrollX, scrollY];
    receiver.then(clicks => clicks.receive(...click));
    return true;
  };
  addEventListener('click', report, true);
  addEventListener('contextmenu', event => {
    if (report(event)) receiver.then(clicks => clicks.wantMenu(event.clientX, event.clientY));
  }, true);
  for (const kind of ['auxclick', 'dragstart', 'submit', 'drop']) addEventListener(kind, quiet, true);
  // The engine asks nobody before it saves what a link leads to.
  addEventListener('keydown', event => { if (event.altKey && event.key === 'Enter') quiet(event); }, true);
})();
)";

// With this line around it the link that was clicked is found again.
constexpr const char* kMarkScript = R"({
  for (const each of document.querySelectorAll('a[data-marked]')) {
    each.style.outline = '';
    delete each.dataset.marked;
  }
  const [href, label] = %1;
  const isIt = each => each.getAttribute('href') === href && each.textContent === label;
  const link = href && Array.from(document.querySelectorAll('a[href]')).find(isIt);
  if (link) {
    link.style.outline = '2px solid %2';
    link.dataset.marked = '';
  }
})";

/// Where the style sheet of a document stands whose head is as we write it: in others what the text says and
/// what the engine makes of it may be two things.
struct StyleText {
  std::size_t begin;
  std::size_t end;
};

std::optional<StyleText> styleTextOf(std::string_view html) {
  constexpr std::string_view kStart = "<style type=\"text/css\">";
  constexpr std::string_view kEnd = "</style>";
  const std::size_t begin = sitemaps::kHtmlHeader.find(kStart) + kStart.size();
  if (!html.starts_with(sitemaps::kHtmlHeader.substr(0, begin))) return std::nullopt;
  const std::size_t end = html.find("</", begin);
  if (end == std::string_view::npos || !html.substr(end).starts_with(kEnd)) return std::nullopt;
  return StyleText{begin, end};
}

/// As an array of texts in a script.
QString inScript(const QStringList& texts) {
  return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact));
}

QWebEngineScript scriptWith(const QString& source) {
  QWebEngineScript script;
  script.setSourceCode(source);
  script.setInjectionPoint(QWebEngineScript::DocumentCreation);
  script.setWorldId(kWorld);
  script.setRunsOnSubFrames(false);
  return script;
}

}  // namespace

void prepareWindow(QWidget& window) {
  // Where there is no OpenGL the web view draws like any other widget.
  const QOpenGLContext* shared = QOpenGLContext::globalShareContext();
  if (shared == nullptr || !shared->isValid()) return;
  // The web view draws as this one would, and the window is made for what is in it, seen or not.
  auto* example = new QQuickWidget(&window);
  example->setObjectName(QStringLiteral("drawnAsWebView"));
  example->setFocusPolicy(Qt::NoFocus);
  example->hide();
}

SitemapWebView::SitemapWebView(QWidget* parent)
    : QWebEngineView(parent), m_scheme(), m_profile(m_scheme), m_page(&m_profile) {
  turnEverythingOff(*m_page.settings());
  addClickScript();
  setPage(&m_page);
  setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(false);
  connect(&m_page, &QWebEnginePage::loadFinished, this, &SitemapWebView::loaded);
  connect(&m_page, &QWebEnginePage::renderProcessTerminated, this, &SitemapWebView::rendererEnded);
}

SitemapWebView::~SitemapWebView() {
  setPage(nullptr);  // which goes before the profile it uses
}

void SitemapWebView::addClickScript() {
  auto* clicks = new ClickReceiver(this);
  connect(clicks, &ClickReceiver::received, this, &SitemapWebView::linkClicked);
  connect(clicks, &ClickReceiver::menuWanted, this,
          [this](QPointF place) { emit menuWanted((place * zoomFactor()).toPoint()); });
  auto* channel = new QWebChannel(this);
  channel->registerObject(QStringLiteral("clicks"), clicks);
  m_page.setWebChannel(channel, kWorld);
  QFile library(QStringLiteral(":/qtwebchannel/qwebchannel.js"));
  if (!library.open(QIODevice::ReadOnly)) qFatal("The web channel's script is missing");
  m_page.scripts().insert(
      scriptWith(QString::fromUtf8(library.readAll()) + QString::fromLatin1(kClickScript)));
}

void SitemapWebView::showDocument(std::string_view html, bool sameDocument) {
  if (!sameDocument) m_scheme.startAnother();
  m_loadedAgain = false;
  m_lost = false;
  m_scheme.setDocument(QByteArray(html.data(), static_cast<qsizetype>(html.size())));
  load();
}

bool SitemapWebView::showStyleOf(std::string_view html) {
  const std::string_view shown = m_scheme.document();
  const auto before = styleTextOf(shown);
  const auto now = styleTextOf(html);
  if (m_loading || m_lost || !before || !now || html.substr(now->end) != shown.substr(before->end)) {
    return false;
  }
  const QString text = platform::toQString(html.substr(now->begin, now->end - now->begin));
  run(QStringLiteral("[document.querySelector('style').textContent] = ") + inScript({text}));
  m_scheme.setDocument(QByteArray(html.data(), static_cast<qsizetype>(html.size())));
  return true;
}

void SitemapWebView::scrollTo(QPointF position) {
  run(QStringLiteral("scrollTo(%1, %2)").arg(position.x()).arg(position.y()));
}

void SitemapWebView::markLink(const QString& href, const QString& label) {
  run(QString::fromLatin1(kMarkScript)
          .arg(inScript({href, label}), palette().color(QPalette::Highlight).name()));
}

void SitemapWebView::run(const QString& script) {
  m_page.runJavaScript(script, kWorld);
}

void SitemapWebView::load() {
  m_loading = true;
  m_page.open(m_scheme.address());
}

/// A load that gave way to another one reports its end too; and a load may have fetched its text before the
/// last edit.
void SitemapWebView::loaded(bool whole) {
  if (m_page.isLoading()) return;
  if (whole && !m_scheme.wasServed()) return load();
  m_loading = false;
  emit documentShown();
}

/// Once may be bad luck. A document that ends it again would go on doing so.
void SitemapWebView::rendererEnded() {
  if (m_loadedAgain) {
    m_lost = true;
    m_loading = false;
    emit documentShown();
    return;
  }
  m_loadedAgain = true;
  load();
}

}  // namespace html_editor
