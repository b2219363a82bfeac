// The view of the site's broken pages, and of the pages that link to them.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QObject>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStringList>
#include <QTableView>

#include "platform/named_controls.h"
#include "store/shared_state.h"
#include "ui/broken_links_model.h"
#include "ui/empty_hint.h"
#include "ui/linking_export.h"
#include "ui/report_model.h"
#include "ui/report_reader.h"
#include "ui/report_table.h"

namespace ui {

/// Of the view, found when the window is made.
struct BrokenLinksControls {
  const QMainWindow& window;

  QLabel& badLinkLabel = platform::control<QLabel>(window, "badLinkLabel");
  QLineEdit& badLinkSearch = platform::control<QLineEdit>(window, "badLinkSearch");
  QTableView& badLinkTable = platform::control<QTableView>(window, "badLinkTable");
  QLabel& badLinkPagesLabel = platform::control<QLabel>(window, "badLinkPagesLabel");
  QTableView& badLinkPages = platform::control<QTableView>(window, "badLinkPages");
  QPushButton& copyBadLinkButton = platform::control<QPushButton>(window, "copyBadLinkButton");
  QPushButton& openBadLinkButton = platform::control<QPushButton>(window, "openBadLinkButton");
  QPushButton& exportBrokenAsCSVButton = platform::control<QPushButton>(window, "exportBrokenAsCSVButton");
  QPushButton& exportBrokenAsJSONButton = platform::control<QPushButton>(window, "exportBrokenAsJSONButton");
  QPushButton& leaveOutButton = platform::control<QPushButton>(window, "leaveOutButton");
};

/// UI thread.
class BrokenLinksController : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  BrokenLinksController(const QMainWindow& mainWindow, const store::SharedState& state, ReportReader& reader);

  /// Takes what is known of the site in hand into the view, which has come up.
  void show();

 signals:
  /// The user wants no scan to meet these any more.
  void leaveOut(const QStringList& addresses);
  /// The user wants to have the list with the pages that link there.
  void exportWanted(LinkingExport::Format format);

 private:
  void buildTable();
  void connectButtons();
  void showLinks();
  QString whyNoLinks(const report::Page* page) const;
  const report::Page* pageInHand() const;
  QStringList selectedAddresses() const;

  const store::SharedState& m_state;
  ReportReader& m_reader;
  BrokenLinksControls m_view;
  BrokenLinksModel m_pages;
  QSortFilterProxyModel m_found;
  ReportModel m_linking{linkingColumns()};
  EmptyHint* m_noPages = nullptr;  // the hints belong to their tables
  EmptyHint* m_noLinks = nullptr;
  bool m_isShown = false;
};

}  // namespace ui
