// The scan view: the table of sites, and the record of the selected one.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QSortFilterProxyModel>
#include <string>

#include "crawler/filter_controller.h"
#include "crawler/scan_controller.h"
#include "platform/sheet_queue.h"
#include "store/add_edit_delete_sites_controller.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "store/site_list.h"
#include "ui/site_table_model.h"

class QTableView;

namespace ui {

/// What the scan view works with; all borrowed.
struct ScanViewParts {
  platform::SheetQueue& sheets;
  const store::GlobalControls& controls;
  const store::BrokenReasons& reasons;
  store::SharedState& state;
  store::AddEditDeleteSitesController& siteEditor;
  crawler::ScanController& scan;
  crawler::FilterController& filters;
};

/// Selecting a site here makes it the site in hand for the whole program. UI thread.
class ScanViewController : public QObject {
  Q_OBJECT

 public:
  ScanViewController(QMainWindow& mainWindow, const ScanViewParts& parts);

  /// Reads the list of sites anew, converting older records.
  void populateSiteTable();

  /// Whether a site was selected since the flag was last cleared; setViewChanged() clears it.
  bool passViewChanged() const { return m_parts.state.qzvskViewChanged; }
  void setViewChanged() { m_parts.state.qzvskViewChanged = false; }

 signals:
  /// A site was selected: its filters have to be loaded.
  void qzvskLFF();
  void report(const QString& sentence);

 protected:
  /// Notes when the user closes the filter drawer.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildTable();
  void connectCommands();
  void buildContextMenus();
  void tableViewSelectionDidChange();
  void showNoSite();
  void showSite(const std::string& name);
  void showBrokenLinksOf(const std::string& name, const store::SiteDetails& details);
  void setSiteControlsEnabled(bool enabled);
  void setWindowTitle(const QString& title);
  void ignoreRobotsAction();
  void filterAddPanel();
  void openSiteFolder() const;
  std::string selectedName() const;

  QMainWindow& m_mainWindow;
  ScanViewParts m_parts;
  SiteTableModel m_sites;
  QSortFilterProxyModel m_found;
  QTableView& m_siteListTable;
};

}  // namespace ui
