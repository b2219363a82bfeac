// The controls that a scan uses, found when the window is made.
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
#include <QTableView>
#include <array>

#include "platform/named_controls.h"

namespace crawler {

struct ScanControls {
  const QMainWindow& window;

  QPushButton& scanSiteButton = platform::control<QPushButton>(window, "scanSiteButton");
  QLabel& pagesFound = platform::control<QLabel>(window, "pagesFound");
  QLabel& linksScanned = platform::control<QLabel>(window, "linksScanned");
  QLabel& totalLinksFound = platform::control<QLabel>(window, "totalLinksFound");
  QLabel& brokenLinks = platform::control<QLabel>(window, "brokenLinks");
  QPushButton& brokenLinksButton = platform::control<QPushButton>(window, "brokenLinksButton");
  QListView& scannedLinksViewer = platform::control<QListView>(window, "scannedLinksViewer");
  QAction& continueScanMI = platform::control<QAction>(window, "continueScanMI");
  QMenu& scanMenu = platform::control<QMenu>(window, "scanMenu");
  QDockWidget& filterDrawer = platform::control<QDockWidget>(window, "filterDrawer");

  /// Whatever would bring another site into hand, or change the one that is scanned.
  std::array<QAction*, 10> lockedActions = {
      &action("addMI"),          &action("editMI"),    &action("deleteMI"),    &action("scanMI"),
      &continueScanMI,           &action("filtersMI"), &action("addFilterMI"), &action("ignoreRobotsMI"),
      &action("scanSettingsMI"), &action("restoreMI")};
  std::array<QWidget*, 8> lockedWidgets = {&platform::control<QTableView>(window, "siteListTable"),
                                           &platform::control<QLineEdit>(window, "siteSearch"),
                                           &platform::control<QPushButton>(window, "addSiteButton"),
                                           &platform::control<QPushButton>(window, "editSiteButton"),
                                           &platform::control<QPushButton>(window, "deleteSiteButton"),
                                           &scanSiteButton,
                                           &platform::control<QPushButton>(window, "filterDrawerButton"),
                                           &platform::control<QCheckBox>(window, "ignoreRobotsButton")};

  QAction& action(const char* name) const { return platform::control<QAction>(window, name); }
};

}  // namespace crawler
