// The controls of the view of the XML sitemap, found when the window is made.
#pragma once

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QToolButton>

#include "platform/named_controls.h"

namespace xml_editor {

struct XmlViewControls {
  const QMainWindow& window;

  QLineEdit& xmlSearch = platform::control<QLineEdit>(window, "xmlSearch");
  QLabel& xmlCount = platform::control<QLabel>(window, "xmlCount");
  QPushButton& validateXmlButton = platform::control<QPushButton>(window, "validateXmlButton");
  QPushButton& delLinkButton = platform::control<QPushButton>(window, "delLinkButton");

  QStackedWidget& xmlArea = platform::control<QStackedWidget>(window, "xmlArea");
  QWidget& xmlTablePage = platform::control<QWidget>(window, "xmlTablePage");
  QLabel& xmlNotice = platform::control<QLabel>(window, "xmlNotice");
  QTableView& xmlTableView = platform::control<QTableView>(window, "xmlTableView");
  QMenu& chFreqMenu = platform::control<QMenu>(window, "chFreqMenu");
  QMenu& prMenu = platform::control<QMenu>(window, "prMenu");
  QWidget& xmlEmptyPage = platform::control<QWidget>(window, "xmlEmptyPage");
  QLabel& xmlEmptyHint = platform::control<QLabel>(window, "xmlEmptyHint");
  QPushButton& xmlScanButton = platform::control<QPushButton>(window, "xmlScanButton");
  QPushButton& xmlWindowViewFolder = platform::control<QPushButton>(window, "xmlWindowViewFolder");

  QAction& editEntryMI = platform::control<QAction>(window, "editEntryMI");
  QAction& delLinkMI = platform::control<QAction>(window, "delLinkMI");
  QAction& takeOverMI = platform::control<QAction>(window, "takeOverMI");
  QAction& validateXmlMI = platform::control<QAction>(window, "validateXmlMI");
  QAction& findSiteMI = platform::control<QAction>(window, "findSiteMI");
  QAction& scanTBI = platform::control<QAction>(window, "scanTBI");
  QAction& scanMI = platform::control<QAction>(window, "scanMI");
};

struct FindingsControls {
  const QMainWindow& window;

  QWidget& xmlFindingsPanel = platform::control<QWidget>(window, "xmlFindingsPanel");
  QLabel& xmlFindingsLabel = platform::control<QLabel>(window, "xmlFindingsLabel");
  QToolButton& closeFindingsButton = platform::control<QToolButton>(window, "closeFindingsButton");
  QListView& xmlFindings = platform::control<QListView>(window, "xmlFindings");
};

}  // namespace xml_editor
