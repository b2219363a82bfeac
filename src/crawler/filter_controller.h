// The filter drawer: the texts that keep links out of the selected site's sitemaps.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QStringListModel>

#include "platform/files.h"
#include "platform/sheet_queue.h"
#include "store/global_controls.h"
#include "store/shared_state.h"

class QLineEdit;
class QTableView;

namespace crawler {

/// Shows and changes the filters of the site in hand. UI thread.
class FilterController : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  FilterController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                   const store::GlobalControls& controls, store::SharedState& state);

  /// Reads the site's filters into the shared list, and shows them.
  void loadFilterFile();
  void reloadFilterTable();

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
  QTableView& m_filterTable;
  QLineEdit& m_newFilterInput;
};

}  // namespace crawler
