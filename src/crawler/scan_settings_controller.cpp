#include "crawler/scan_settings_controller.h"

#include <QAction>

#include "platform/named_controls.h"
#include "platform/qt_text.h"

namespace crawler {

using platform::toQString;

ScanSettingsController::ScanSettingsController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                                               const store::GlobalControls& controls,
                                               const store::StateFolder& stateFolder,
                                               const store::SharedState& state)
    : m_sheets(sheets),
      m_controls(controls),
      m_stateFolder(stateFolder),
      m_state(state),
      m_sheet(&mainWindow),
      m_sheetsOfSheet(m_sheet) {
  connect(&platform::control<QAction>(mainWindow, "scanSettingsMI"), &QAction::triggered, this,
          &ScanSettingsController::showSheet);
  connect(&m_sheet, &ScanSettingsSheet::saveAsked, this, &ScanSettingsController::save);
}

void ScanSettingsController::showSheet() {
  m_siteName = m_state.qzvskCurSite;
  const store::StoredSettings stored = store::readSettings(m_stateFolder, m_siteName);
  if (!stored.problems.empty()) emit report(toQString(stored.allProblems()));
  m_sheet.showSettings(stored.settings);
  m_sheets.show(m_sheet);
}

void ScanSettingsController::save() {
  if (const QString problem = m_sheet.problem(); !problem.isEmpty()) {
    m_sheetsOfSheet.alert(tr("The settings cannot be saved like this."), problem);
    return;
  }
  const platform::FileResult result = store::changeSettings(
      m_controls, m_stateFolder, m_siteName, [this](auto& settings) { m_sheet.applyChanges(settings); });
  if (!result.ok()) {
    m_sheetsOfSheet.alert(tr("The settings could not be saved."), toQString(result.error));
    return;
  }
  m_sheets.close(m_sheet);
  emit saved();
  emit report(tr("Saved the scan settings of \"%1\"").arg(toQString(m_siteName)));
}

}  // namespace crawler
