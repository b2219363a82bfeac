// The view of the HTML sitemap as the program has it, in a window of its own.
#pragma once

#include "html_editor/sitemap_web_view.h"
#include "html_steps.h"

namespace window_tests {

/// A document, which isStill() finds again.
inline QString withText(const QString& body) {
  return QStringLiteral(
             "<!DOCTYPE html><html><head><title>Sitemap</title></head><body>%1"
             "<p id=end>end</p></body></html>")
      .arg(body);
}

class WalledView {
 public:
  WalledView() {
    QObject::connect(&m_view, &html_editor::SitemapWebView::documentShown, &m_view, [this] { ++m_shown; });
    QObject::connect(&m_view, &html_editor::SitemapWebView::linkClicked, &m_view,
                     [this](const QString& href, const QString& label) {
                       m_clicks.append({href, label});
                     });
    m_view.resize(400, 300);
    m_view.show();
  }
  bool load(const QString& html, bool sameDocument = false) {
    m_shown = 0;
    m_clicks.clear();
    m_view.showDocument(html.toStdString(), sameDocument);
    return isShown();
  }
  bool isShown() {
    return comesTrue([this] { return m_shown > 0; });
  }
  bool isStill() {
    return m_view.url().scheme() == QLatin1String(html_editor::DocumentScheme::kName) &&
           m_view.url().fragment().isEmpty() &&
           inPage(m_view, QStringLiteral("document.getElementById('end') !== null")).toBool();
  }
  html_editor::SitemapWebView& view() { return m_view; }
  void expectAnother() { m_shown = 0; }
  /// Target and label of every click that was told.
  const QList<QStringList>& clicks() const { return m_clicks; }

 private:
  html_editor::SitemapWebView m_view;
  int m_shown = 0;
  QList<QStringList> m_clicks;
};

}  // namespace window_tests
