// The sitemap as the user sees it: a web view that shows one document, tells of clicks on its links, and does
// nothing else that the document might want.
#pragma once

#include <QPointF>
#include <QString>
#include <QWebEngineView>
#include <string_view>

#include "html_editor/sitemap_page.h"

namespace html_editor {

/// Reports clicks from the script in the engine to the view.
class ClickReceiver : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 public slots:
  void receive(const QString& href, const QString& label, double scrolledX, double scrolledY) {
    emit received(href, label, {scrolledX, scrolledY});
  }

  void wantMenu(double x, double y) { emit menuWanted({x, y}); }

 signals:
  void received(const QString& href, const QString& label, QPointF scrolledTo);
  void menuWanted(QPointF place);
};

/// Makes a window that was not shown yet ready to hold a web view. Otherwise it is made anew for the window
/// system when its first web view comes, which flickers and may lose it its place and the keyboard. Starts
/// nothing of the engine.
void prepareWindow(QWidget& window);

/// UI thread.
class SitemapWebView : public QWebEngineView {
  Q_OBJECT

 public:
  explicit SitemapWebView(QWidget* parent = nullptr);
  ~SitemapWebView() override;

  /// Shows a document, UTF-8. `sameDocument`: an edit of the one that is shown.
  void showDocument(std::string_view html, bool sameDocument);

  /// Shows an edit of the document that is shown when the two differ in nothing but the text of their style
  /// sheet, without loading it anew. False, and nothing done, when they do, when the head is not as we write
  /// it, or when there is no page that could be changed.
  bool showStyleOf(std::string_view html);

  /// Where the document is scrolled to, in its own pixels.
  void scrollTo(QPointF position);

  /// Draws a line around the first link with this target and text, as linkClicked() reports them, and takes
  /// it from any other. Empty: from all.
  void markLink(const QString& href, const QString& label);

 signals:
  /// A link was clicked, or chosen with the keyboard. `href` as written in the document, `label` its text.
  void linkClicked(const QString& href, const QString& label, QPointF scrolledTo);
  /// A menu is wanted for the link that was just reported as clicked, at this place of the view.
  void menuWanted(QPoint place);
  /// What was last given is on the screen, or cannot be shown at all.
  void documentShown();

 private:
  void addClickScript();
  void run(const QString& script);
  void load();
  void loaded(bool whole);
  void rendererEnded();

  DocumentScheme m_scheme;
  WalledProfile m_profile;
  SitemapPage m_page;
  bool m_loading = false;
  bool m_loadedAgain = false;  // after the renderer ended
  bool m_lost = false;         // it ended again, and nothing is shown
};

}  // namespace html_editor
