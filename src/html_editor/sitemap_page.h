// The page behind the sitemap view: walls around a document that a stranger's site has filled.
#pragma once

#include <QByteArray>
#include <QUrl>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>
#include <cstddef>
#include <string_view>

namespace html_editor {

/// Makes the web engine ready to be used: it wants the scheme of the documents before the application object
/// exists. Nothing of the engine runs before a view is made.
void prepareWebEngine();

/// Serves one document from memory. The engine's own way for texts fails above about a megabyte.
class DocumentScheme : public QWebEngineUrlSchemeHandler {
 public:
  using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

  static const QByteArray kName;

  /// The address of the document in hand. It stays as long as the same document is shown, so that the engine
  /// keeps its place when it is loaded again.
  QUrl address() const;

  void setDocument(QByteArray html) {
    m_html = std::move(html);
    m_served = false;
  }

  /// The document that was last set.
  std::string_view document() const { return {m_html.constData(), static_cast<std::size_t>(m_html.size())}; }

  /// Whether the document was asked for since it was last set.
  bool wasServed() const { return m_served; }

  /// From now on it is another document.
  void startAnother() { ++m_number; }

  void requestStarted(QWebEngineUrlRequestJob* job) override;

 private:
  QByteArray m_html;
  int m_number = 0;
  bool m_served = false;
};

/// Lets requests for documents through and nothing else: no file, no host.
class DocumentsOnly : public QWebEngineUrlRequestInterceptor {
 public:
  using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

  void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

/// A profile that keeps nothing and reaches nothing. `scheme` is borrowed.
class WalledProfile : public QWebEngineProfile {
 public:
  explicit WalledProfile(DocumentScheme& scheme, QObject* parent = nullptr);
};

/// Turns off all that a document could use to act.
void turnEverythingOff(QWebEngineSettings& settings);

/// Goes nowhere: it takes the loads that its owner starts, and no other.
class SitemapPage : public QWebEnginePage {
  Q_OBJECT

 public:
  using QWebEnginePage::QWebEnginePage;

  /// Loads `address`, which no link in the page can do.
  void open(const QUrl& address);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  QWebEnginePage* createWindow(WebWindowType type) override;

 private:
  QUrl m_opened;  // empty before the first load
};

}  // namespace html_editor
