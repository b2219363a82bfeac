// The controls of the scan view, found when the window is made.
#pragma once

#include <QAction>
#include <QCheckBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QToolButton>

#include "crawler/scan_controls.h"
#include "platform/named_controls.h"

namespace ui {

/// Beside those that a scan uses.
struct ScanViewControls : crawler::ScanControls {
  QLineEdit& siteSearch = platform::control<QLineEdit>(window, "siteSearch");
  QTableView& siteListTable = platform::control<QTableView>(window, "siteListTable");
  QPushButton& addSiteButton = platform::control<QPushButton>(window, "addSiteButton");
  QPushButton& firstSiteButton = platform::control<QPushButton>(window, "firstSiteButton");
  QPushButton& editSiteButton = platform::control<QPushButton>(window, "editSiteButton");
  QPushButton& deleteSiteButton = platform::control<QPushButton>(window, "deleteSiteButton");

  QStackedWidget& siteArea = platform::control<QStackedWidget>(window, "siteArea");
  QWidget& noSitesPage = platform::control<QWidget>(window, "noSitesPage");
  QWidget& sitePage = platform::control<QWidget>(window, "sitePage");
  QLabel& siteName = platform::control<QLabel>(window, "siteName");
  QLabel& siteURL = platform::control<QLabel>(window, "siteURL");
  QToolButton& copyUrlButton = platform::control<QToolButton>(window, "copyUrlButton");
  QCheckBox& ignoreRobotsButton = platform::control<QCheckBox>(window, "ignoreRobotsButton");
  QPushButton& filterDrawerButton = platform::control<QPushButton>(window, "filterDrawerButton");

  QLineEdit& newFilterInput = platform::control<QLineEdit>(window, "newFilterInput");
  QPushButton& addFilterButton = platform::control<QPushButton>(window, "addFilterButton");
  QPushButton& delFilterButton = platform::control<QPushButton>(window, "delFilterButton");

  QAction& addMI = platform::control<QAction>(window, "addMI");
  QAction& editMI = platform::control<QAction>(window, "editMI");
  QAction& deleteMI = platform::control<QAction>(window, "deleteMI");
  QAction& openFolderMI = platform::control<QAction>(window, "openFolderMI");
  QAction& viewInBrowserMI = platform::control<QAction>(window, "viewInBrowserMI");
  QAction& exportBrokenTextMI = platform::control<QAction>(window, "exportBrokenTextMI");
  QAction& exportBrokenHtmlMI = platform::control<QAction>(window, "exportBrokenHtmlMI");
  QAction& copyAddressMI = platform::control<QAction>(window, "copyAddressMI");
  QAction& openAddressMI = platform::control<QAction>(window, "openAddressMI");
  QAction& findSiteMI = platform::control<QAction>(window, "findSiteMI");
  QMenu& layoutMenu = platform::control<QMenu>(window, "layoutMenu");
  QAction& continueScanMI = platform::control<QAction>(window, "continueScanMI");
  QAction& scanMI = platform::control<QAction>(window, "scanMI");
  QAction& restoreMI = platform::control<QAction>(window, "restoreMI");
  QAction& scanSettingsMI = platform::control<QAction>(window, "scanSettingsMI");
  QAction& filtersMI = platform::control<QAction>(window, "filtersMI");
  QAction& addFilterMI = platform::control<QAction>(window, "addFilterMI");
  QAction& ignoreRobotsMI = platform::control<QAction>(window, "ignoreRobotsMI");
};

}  // namespace ui
