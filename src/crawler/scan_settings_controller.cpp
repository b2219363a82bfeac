#include "crawler/scan_settings_controller.h"

#include <QAction>
#include <QMetaObject>
#include <optional>

#include "platform/named_controls.h"
#include "platform/qt_text.h"
#include "store/site_list.h"

namespace crawler {

using platform::toQString;

ScanSettingsController::ScanSettingsController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                                               const store::GlobalControls& controls,
                                               const store::StateFolder& stateFolder,
                                               const store::SharedState& state, PasswordKeeper& passwords)
    : m_sheets(sheets),
      m_controls(controls),
      m_stateFolder(stateFolder),
      m_state(state),
      m_passwords(passwords),
      m_sheet(&mainWindow),
      m_sheetsOfSheet(m_sheet) {
  connect(&platform::control<QAction>(mainWindow, "scanSettingsMI"), &QAction::triggered, this,
          &ScanSettingsController::showSheet);
  connect(&m_sheet, &ScanSettingsSheet::saveAsked, this, &ScanSettingsController::save);
  m_secrets.setMaxThreadCount(1);
}

ScanSettingsController::~ScanSettingsController() {
  m_stop.request_stop();
  m_secrets.waitForDone();
}

void ScanSettingsController::showSheet() {
  m_siteName = m_state.qzvskCurSite;
  const store::StoredSettings stored = store::readSettings(m_stateFolder, m_siteName);
  if (!stored.problems.empty()) emit report(toQString(stored.allProblems()));
  m_startUrl = store::readSite(m_controls, m_siteName).details.url;
  m_sheet.showSettings(stored.settings);
  m_sheets.show(m_sheet);
  lookForPassword(stored.settings);
}

/// Also where there is no name yet: whether there is a service to keep its password is shown.
void ScanSettingsController::lookForPassword(const store::SiteSettings& settings) {
  m_shownKey = passwordKey(m_startUrl, settings);
  m_secrets.start([this, key = m_shownKey.value_or(platform::SecretKey{}), time = ++m_timesShown] {
    const PasswordKeeper::Presence presence = m_passwords.presence(key, m_stop.get_token());
    QMetaObject::invokeMethod(this, [=, this] {
      if (time == m_timesShown) m_sheet.password().showPresence(presence);
    });
  });
}

void ScanSettingsController::save() {
  if (const QString problem = m_sheet.problem(); !problem.isEmpty()) {
    m_sheetsOfSheet.alert(tr("The settings cannot be saved like this."), problem);
    return;
  }
  store::SiteSettings now;
  const auto change = [&](store::SiteSettings& settings) {
    m_sheet.applyChanges(settings);
    now = settings;
  };
  const platform::FileResult result = store::changeSettings(m_controls, m_stateFolder, m_siteName, change);
  if (!result.ok()) {
    m_sheetsOfSheet.alert(tr("The settings could not be saved."), toQString(result.error));
    return;
  }
  savePassword(now);
  m_sheets.close(m_sheet);
  emit saved();
  emit report(tr("Saved the scan settings of \"%1\"").arg(toQString(m_siteName)));
}

/// It counts at once; the secret service is told meanwhile.
void ScanSettingsController::savePassword(const store::SiteSettings& now) {
  const std::optional<std::string> password = m_sheet.password().typed();
  const bool isRemoved = m_sheet.password().isToBeRemoved();
  const auto key = isRemoved ? m_shownKey : passwordKey(m_startUrl, now);
  if (!key || (!password && !isRemoved)) return;
  m_passwords.set(*key, password);
  m_secrets.start([this, key = *key, isRemoved] {
    const platform::SecretAnswer answer = m_passwords.save(key, m_stop.get_token());
    if (answer.ok()) return;
    QMetaObject::invokeMethod(this, [=, this] {
      const QString why = toQString(answer.error);
      emit report(isRemoved ? tr("The password is forgotten until the program ends only: %1").arg(why)
                            : tr("The password is kept until the program ends only: %1").arg(why));
    });
  });
}

}  // namespace crawler
