// The command "Scan Settings".
#pragma once

#include <QMainWindow>
#include <QObject>
#include <QThreadPool>
#include <optional>
#include <stop_token>
#include <string>

#include "crawler/scan_settings_sheet.h"
#include "crawler/site_password.h"
#include "platform/sheet_queue.h"
#include "store/global_controls.h"
#include "store/shared_state.h"
#include "store/state_folder.h"

namespace crawler {

/// Shows the settings of the site in hand in a sheet and saves what is changed there. UI thread.
class ScanSettingsController : public QObject {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  ScanSettingsController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                         const store::GlobalControls& controls, const store::StateFolder& stateFolder,
                         const store::SharedState& state, PasswordKeeper& passwords);
  /// Gives up whatever the secret service is asked for.
  ~ScanSettingsController() override;

 signals:
  /// The site in hand may be scanned otherwise from now on.
  void saved();
  void report(const QString& sentence);

 private:
  void showSheet();
  void save();
  void lookForPassword(const store::SiteSettings& settings);
  void savePassword(const store::SiteSettings& now);

  platform::SheetQueue& m_sheets;
  const store::GlobalControls& m_controls;
  const store::StateFolder& m_stateFolder;
  const store::SharedState& m_state;
  PasswordKeeper& m_passwords;
  ScanSettingsSheet m_sheet;
  platform::SheetQueue m_sheetsOfSheet;
  std::string m_siteName;  // whose settings are shown
  std::string m_startUrl;  // likewise
  std::optional<platform::SecretKey> m_shownKey;
  int m_timesShown = 0;
  std::stop_source m_stop;
  QThreadPool m_secrets;  // asks the secret service, which may take its time, for one thing at a time
};

}  // namespace crawler
