// The controls of the HTML viewer and of the style editor, found when the window is made. Those of the two
// classes of entries are in style_controls_view.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "platform/named_controls.h"

namespace html_editor {

struct HtmlViewControls {
  const QMainWindow& window;

  // Above the sitemap, in both views
  QWidget& sitemapBar = platform::control<QWidget>(window, "sitemapBar");
  QComboBox& sitemapTypePopup = platform::control<QComboBox>(window, "sitemapTypePopup");
  QLabel& siteTypeLabel = platform::control<QLabel>(window, "siteTypeLabel");
  QPushButton& vibButton = platform::control<QPushButton>(window, "vibButton");
  QPushButton& saveChangesButton = platform::control<QPushButton>(window, "saveChangesButton");
  QProgressBar& sitemapBusy = platform::control<QProgressBar>(window, "sitemapBusy");

  // The viewer
  QVBoxLayout& htmlWindowViewLayout = platform::control<QVBoxLayout>(window, "htmlWindowViewLayout");
  QVBoxLayout& htmlSitemapPlace = platform::control<QVBoxLayout>(window, "htmlSitemapPlace");
  QGroupBox& selectedLinkGroup = platform::control<QGroupBox>(window, "selectedLinkGroup");
  QLineEdit& titleEditInput = platform::control<QLineEdit>(window, "titleEditInput");
  QLineEdit& linkEditInput = platform::control<QLineEdit>(window, "linkEditInput");
  QPushButton& deleteButton = platform::control<QPushButton>(window, "deleteButton");
  QTabWidget& styleTabs = platform::control<QTabWidget>(window, "styleTabs");
  QLineEdit& urlToLoad = platform::control<QLineEdit>(window, "urlToLoad");

  // The style editor
  QVBoxLayout& htmlEditorWindowViewLayout =
      platform::control<QVBoxLayout>(window, "htmlEditorWindowViewLayout");
  QVBoxLayout& htmlEditorSitemapPlace = platform::control<QVBoxLayout>(window, "htmlEditorSitemapPlace");
  QVBoxLayout& pageTitlesPlace = platform::control<QVBoxLayout>(window, "pageTitlesPlace");
  QVBoxLayout& pageLinksPlace = platform::control<QVBoxLayout>(window, "pageLinksPlace");
};

}  // namespace html_editor
