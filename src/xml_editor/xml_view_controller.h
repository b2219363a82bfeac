// The view of a site's XML sitemap: a table in which its entries are changed and deleted.
#pragma once

#include <QMainWindow>
#include <QObject>

#include "platform/sheet_queue.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "store/state_folder.h"
#include "xml_editor/findings_panel.h"
#include "xml_editor/found_rows.h"
#include "xml_editor/xml_table_model.h"
#include "xml_editor/xml_view_controls.h"

class QActionGroup;

namespace xml_editor {

/// Shows the sitemap of the selected site. Each change is on disk when its call returns. UI thread.
class XMLViewController : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  XMLViewController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                    const store::GlobalControls& controls, const store::StateFolder& stateFolder,
                    store::SharedState& state);

  /// A view has come up. If it is this one its sitemap is read anew, whatever was shown before.
  void viewTBIAction(int number);
  /// Another site, or none, is selected.
  void siteChanged();

  /// Reads the rows from the selected site's file.
  void createTableContent();

  /// Gives the selected entry a value; without one nothing happens.
  void cfMenuChangeUpdates(std::string_view value);
  void priorityMenuChangeUpdates(std::string_view value);

  /// Asks, and deletes the selected entry when the answer is yes.
  void delLinkAction();

  /// Gives the entries the frequencies and priorities that were edited in the previous sitemap.
  void takeOverValues();

 signals:
  /// Something happened that the status line should tell.
  void report(const QString& sentence);

 protected:
  /// The keys that open a pop-up in the table.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // xml_view_cells.cpp
  void buildTable();
  void buildCells();
  void buildMenus();
  void fillMenu(QMenu& menu, Field field);
  void buildContextMenu();
  void markChosen(QActionGroup& group, Field field) const;
  void editCell();
  void popUpMenu(const QModelIndex& cell);

  // xml_view_controller.cpp
  void connectCommands();
  void showContents();
  void showEmpty(const QString& why);
  void showCount();
  void search(const QString& text);
  void enableCommands();
  void validate();
  std::filesystem::path formerSitemap() const;
  void jumpTo(const sitemaps::XmlFinding& finding);
  void deleteSelected();
  void tell(const Change& change);
  void selectRow(int row, int column);
  int selectedRow() const;
  QString selectedUrl() const;

  QMainWindow& m_mainWindow;
  platform::SheetQueue& m_sheets;
  const store::GlobalControls& m_controls;
  const store::StateFolder& m_stateFolder;
  store::SharedState& m_state;
  XmlTableModel m_model;
  FoundRows m_found;
  XmlViewControls m_view;
  FindingsPanel m_findings;
};

}  // namespace xml_editor
