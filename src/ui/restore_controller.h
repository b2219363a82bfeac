// "Restore Previous Sitemaps": the menu's command, its question, and what came of it.
#pragma once

#include <QAction>
#include <QMainWindow>
#include <QObject>

#include "crawler/scan_controller.h"
#include "platform/sheet_queue.h"
#include "sitemaps/former_set.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "store/state_folder.h"

namespace ui {

/// What it works with; all borrowed.
struct RestoreServices {
  platform::SheetQueue& sheets;
  const store::GlobalControls& controls;
  const store::StateFolder& stateFolder;
  const store::SharedState& state;
  const crawler::ScanController& scan;
};

/// Puts back the edited sitemaps of the site in hand that a scan has replaced. UI thread.
class RestoreController : public QObject {
  Q_OBJECT

 public:
  RestoreController(QMainWindow& mainWindow, const RestoreServices& services);

  /// The command is on while there is something to put back.
  void offer();
  /// Asks, and restores when the answer is yes.
  void restoreAction();

 signals:
  /// The site in hand has other sitemaps: they are to be read anew.
  void restored();
  void report(const QString& sentence);

 private:
  void restore(const std::string& siteName);

  RestoreServices m_services;
  QAction& m_restoreMI;
};

}  // namespace ui
