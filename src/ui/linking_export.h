// Exports the broken links together with the pages that they stand on.
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QString>
#include <string>

#include "platform/sheet_queue.h"
#include "store/shared_state.h"
#include "store/state_folder.h"
#include "ui/background_read.h"

namespace ui {

/// UI thread; the report is read, and the file written, on another one.
class LinkingExport : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive this.
  LinkingExport(QMainWindow& mainWindow, platform::SheetQueue& sheets, const store::StateFolder& stateFolder,
                const store::SharedState& state)
      : m_mainWindow(mainWindow), m_sheets(sheets), m_stateFolder(stateFolder), m_state(state) {}

  enum class Format { csv, json };
  /// Asks where to save those of the site in hand, beginning in the folder.
  void begin(Format format, const QString& folder);

 signals:
  void report(const QString& sentence);

 private:
  void save(const std::string& siteName, Format format, const QString& path);

  QMainWindow& m_mainWindow;
  platform::SheetQueue& m_sheets;
  const store::StateFolder& m_stateFolder;
  const store::SharedState& m_state;
  BackgroundRead m_work;  // last, so that it is over before the rest goes
};

}  // namespace ui
