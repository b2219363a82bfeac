// The scan view: the table of sites, and the record of the selected one.
#pragma once

#include <QKeyEvent>
#include <QMainWindow>
#include <QMap>
#include <QObject>
#include <QSortFilterProxyModel>
#include <functional>
#include <string>
#include <utility>

#include "crawler/filter_controller.h"
#include "crawler/scan_controller.h"
#include "platform/sheet_queue.h"
#include "store/add_edit_delete_sites_controller.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "store/site_list.h"
#include "ui/empty_hint.h"
#include "ui/restore_controller.h"
#include "ui/scan_view_controls.h"
#include "ui/site_table_model.h"

namespace ui {

/// What the scan view works with; all borrowed.
struct ScanViewParts {
  platform::SheetQueue& sheets;
  const store::GlobalControls& controls;
  const store::StateFolder& stateFolder;
  store::SharedState& state;
  store::AddEditDeleteSitesController& siteEditor;
  crawler::ScanController& scan;
  crawler::FilterController& filters;
  RestoreController& restore;
};

/// Selecting a site here makes it the site in hand for the whole program. UI thread.
class ScanViewController : public QObject {
  Q_OBJECT

 public:
  ScanViewController(QMainWindow& mainWindow, const ScanViewParts& parts);

  /// Reads the list of sites anew, converting older records.
  void populateSiteTable();

  /// What asks about unsaved changes before a menu's command goes at the site in hand. It calls what it is
  /// given once the way is free.
  using Gate = std::function<void(std::function<void()>)>;
  void setBeforeChange(Gate gate) { m_beforeChange = std::move(gate); }

  /// Whether a site was selected since the flag was last cleared; setViewChanged() clears it. Nobody asks.
  bool passViewChanged() const { return m_parts.state.qzvskViewChanged; }
  void setViewChanged() { m_parts.state.qzvskViewChanged = false; }

 signals:
  /// A site was selected: its filters have to be loaded.
  void qzvskLFF();
  void report(const QString& sentence);
  /// Another site is in hand; none for an empty name.
  void siteInHandChanged(const QString& name);

 protected:
  /// Notes when the user closes the filter drawer, and when the table of sites gets another size.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool selectsFirst(const QKeyEvent& key);
  void buildSitePage();
  void buildTable();
  void measureColumns();
  void fitColumns();
  void connectCommands();
  void buildContextMenus();
  void tableViewSelectionDidChange();
  void showNoSite();
  void showSite(const std::string& name);
  void explainEmptyList(const store::SiteDetails& details);
  void showBrokenLinksOf(const std::string& name, const store::SiteDetails& details);
  /// Enables what needs a site, unless there is a reason why not.
  void setSiteControlsEnabled(const QString& whyNot);
  void setWindowTitle(const QString& title);
  void ignoreRobotsAction(bool ignore);
  void showIgnoreRobots(bool ignore);
  void filterAddPanel(bool open);
  void showSiteAt(const QString& name);
  void openSiteFolder() const;
  QString siteUrl() const;
  std::string selectedName() const;

  QMainWindow& m_mainWindow;
  ScanViewParts m_parts;
  ScanViewControls m_view;
  SiteTableModel m_sites;
  QSortFilterProxyModel m_found;
  QMap<int, int> m_columnWidths;       // in pixels, by column
  EmptyHint* m_noSiteFound = nullptr;  // the hints belong to their lists
  EmptyHint* m_noLinks;
  Gate m_beforeChange = [](const std::function<void()>& command) { command(); };
};

}  // namespace ui
