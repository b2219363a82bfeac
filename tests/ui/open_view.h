// The view of the HTML sitemap without its walls, or with one of them alone.
#pragma once

#include <QSignalSpy>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <memory>

#include "html_editor/sitemap_page.h"
#include "html_steps.h"

namespace window_tests {

using html_editor::DocumentScheme;
using html_editor::SitemapPage;
using html_editor::WalledProfile;

/// Works all that a user can work in a document of baits.
inline const QString kAct = QStringLiteral(
    "for (const each of document.querySelectorAll('.act')) each.submit ? each.submit() : each.click()");

enum class Walls { none, settings, profile, page };

/// Lets windows open, in the place of its own.
class OpenPage : public QWebEnginePage {
 public:
  using QWebEnginePage::QWebEnginePage;

 protected:
  QWebEnginePage* createWindow(WebWindowType) override { return this; }
};

/// A web view with one wall, or none, in which all else is allowed.
class OpenView {
 public:
  explicit OpenView(Walls walls)
      : m_profile(walls == Walls::profile ? std::make_unique<WalledProfile>(m_scheme)
                                          : std::make_unique<QWebEngineProfile>()) {
    if (walls != Walls::profile) m_profile->installUrlSchemeHandler(DocumentScheme::kName, &m_scheme);
    if (walls == Walls::page) {
      m_page = std::make_unique<SitemapPage>(m_profile.get());
    } else {
      m_page = std::make_unique<OpenPage>(m_profile.get());
    }
    if (walls == Walls::settings) {
      html_editor::turnEverythingOff(*m_page->settings());
    } else {
      using Settings = QWebEngineSettings;
      for (const auto each :
           {Settings::LocalContentCanAccessRemoteUrls, Settings::LocalContentCanAccessFileUrls,
            Settings::JavascriptCanOpenWindows, Settings::HyperlinkAuditingEnabled})
        m_page->settings()->setAttribute(each, true);
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
    const QSignalSpy loaded(m_page.get(), &QWebEnginePage::loadFinished);
    auto* page = qobject_cast<SitemapPage*>(m_page.get());
    page != nullptr ? page->open(m_scheme.address()) : m_page->load(m_scheme.address());
    return comesTrue([&] { return !loaded.isEmpty(); });
  }
  /// Does not wait: what it does may take the page away.
  void act() { m_page->runJavaScript(kAct, QWebEngineScript::ApplicationWorld); }
  /// Whether the document is still the one that was loaded.
  bool isStill() {
    return m_page->url() == m_scheme.address() &&
           inPage(m_view, QStringLiteral("document.getElementById('end') !== null")).toBool();
  }
  QWebEngineView& view() { return m_view; }
  QWebEngineProfile& profile() { return *m_profile; }

 private:
  DocumentScheme m_scheme;
  std::unique_ptr<QWebEngineProfile> m_profile;
  std::unique_ptr<QWebEnginePage> m_page;
  QWebEngineView m_view;
};

}  // namespace window_tests
