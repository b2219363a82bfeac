// The filter drawer: the texts that keep links out of the selected site's sitemaps.
#pragma once

#include <QAction>
#include <QLineEdit>
#include <QMainWindow>
#include <QObject>
#include <QPushButton>
#include <QStringList>
#include <QStringListModel>
#include <QTableView>

#include "platform/files.h"
#include "platform/named_controls.h"
#include "platform/sheet_queue.h"
#include "store/global_controls.h"
#include "store/shared_state.h"

namespace crawler {

/// Of the drawer, found when the window is made.
struct FilterControls {
  const QMainWindow& window;

  QTableView& filterTable = platform::control<QTableView>(window, "filterTable");
  QLineEdit& newFilterInput = platform::control<QLineEdit>(window, "newFilterInput");
  QPushButton& addFilterButton = platform::control<QPushButton>(window, "addFilterButton");
  QPushButton& delFilterButton = platform::control<QPushButton>(window, "delFilterButton");
  QAction& deleteFilterMI = platform::control<QAction>(window, "deleteFilterMI");
};

/// Shows and changes the filters of the site in hand. UI thread.
class FilterController : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  FilterController(const QMainWindow& mainWindow, platform::SheetQueue& sheets,
                   const store::GlobalControls& controls, store::SharedState& state);

  /// Reads the site's filters into the shared list, and shows them.
  void loadFilterFile();
  void reloadFilterTable();

  /// Adds a filter for each of these addresses that has none of its own yet, and says what the next scan will
  /// do.
  void leaveOut(const QStringList& addresses);

 signals:
  void report(const QString& sentence);

 private:
  void addFilterCommand();
  void deleteFilter();
  void tellFailure(const QString& what, const platform::FileResult& result);

  platform::SheetQueue& m_sheets;
  const store::GlobalControls& m_controls;
  store::SharedState& m_state;
  QStringListModel m_model;
  FilterControls m_drawer;
};

}  // namespace crawler
