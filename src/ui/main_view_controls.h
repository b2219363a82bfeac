// The frame's controls, and those of the views that have no controller of their own, found when the window is
// made.
#pragma once

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <array>

#include "platform/named_controls.h"

namespace ui {

struct MainViewControls {
  const QMainWindow& window;

  QStackedWidget& mainViewArea = platform::control<QStackedWidget>(window, "mainViewArea");
  QDockWidget& filterDrawer = platform::control<QDockWidget>(window, "filterDrawer");
  /// In the order of their numbers, as the actions that show them.
  std::array<QWidget*, 7> views = {&page("scanWindowView"),       &page("htmlWindowView"),
                                   &page("htmlEditorWindowView"), &page("xmlWindowView"),
                                   &page("exportWindowView"),     &page("uploadWindowView"),
                                   &page("blWindowView")};
  std::array<QAction*, 7> viewActions = {&action("scanTBI"), &action("htmlTBI"),   &action("htmlEditTBI"),
                                         &action("xmlTBI"),  &action("exportTBI"), &action("uploadTBI"),
                                         &action("brokenMI")};
  QAction& openFolderMI = action("openFolderMI");
  QAction& reportProblemMI = action("reportProblemMI");

  QPushButton& brokenLinksButton = button("brokenLinksButton");
  QPushButton& xmlWindowViewFolder = button("xmlWindowViewFolder");

  // HTML sitemap
  QLineEdit& titleEditInput = platform::control<QLineEdit>(window, "titleEditInput");
  QLineEdit& linkEditInput = platform::control<QLineEdit>(window, "linkEditInput");

  // Export
  QComboBox& sitePickerPopUp = platform::control<QComboBox>(window, "sitePickerPopUp");
  QPushButton& htmlExportButton = button("htmlExportButton");
  QPushButton& xmlExportButton = button("xmlExportButton");
  QWidget& noExportsHint = page("noExportsHint");
  QPushButton& exportToScanButton = button("exportToScanButton");

  // Upload
  QLineEdit& sitemapLine = platform::control<QLineEdit>(window, "sitemapLine");
  QPushButton& copySitemapLine = button("copySitemapLine");

  // Broken links
  QPushButton& backToScanButton = button("backToScanButton");

  QWidget& page(const char* name) const { return platform::control<QWidget>(window, name); }
  QAction& action(const char* name) const { return platform::control<QAction>(window, name); }
  QPushButton& button(const char* name) const { return platform::control<QPushButton>(window, name); }
};

}  // namespace ui
