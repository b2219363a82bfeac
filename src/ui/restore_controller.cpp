#include "ui/restore_controller.h"

#include <QMenu>

#include "platform/named_controls.h"
#include "platform/qt_text.h"

namespace ui {

using platform::toQString;

RestoreController::RestoreController(QMainWindow& mainWindow, const RestoreServices& services)
    : m_services(services), m_restoreMI(platform::control<QAction>(mainWindow, "restoreMI")) {
  // A scan by another program may have kept something since.
  connect(&platform::control<QMenu>(mainWindow, "scanMenu"), &QMenu::aboutToShow, this,
          &RestoreController::offer);
  connect(&services.scan, &crawler::ScanController::scanned, this, &RestoreController::offer);
}

void RestoreController::offer() {
  const std::string& site = m_services.state.qzvskCurSite;
  m_restoreMI.setEnabled(!site.empty() && !m_services.scan.isScanning() &&
                         sitemaps::FormerSet(m_services.controls, m_services.stateFolder, site).isKept());
}

void RestoreController::restoreAction() {
  const std::string site = m_services.state.qzvskCurSite;
  if (site.empty() || m_services.scan.isScanning()) return;
  m_services.sheets.ask(
      tr("Do you really want to restore the previous sitemaps of \"%1\"?").arg(toQString(site)),
      tr("Those that are there now are kept in their place, so that restoring once more brings them back."),
      tr("Restore"), tr("Cancel"), [this, site](bool agreed) {
        if (agreed) restore(site);
      });
}

void RestoreController::restore(const std::string& siteName) {
  const sitemaps::FormerSet former(m_services.controls, m_services.stateFolder, siteName);
  const sitemaps::RestoreResult result = former.restore();
  const QString site = toQString(siteName);
  switch (result.outcome) {
    case sitemaps::RestoreOutcome::busy:
      return m_services.sheets.alert(tr("The site \"%1\" is being scanned.").arg(site));
    case sitemaps::RestoreOutcome::nothingKept:
      m_services.sheets.alert(tr("There are no previous sitemaps of \"%1\".").arg(site));
      return offer();
    case sitemaps::RestoreOutcome::failed:
      m_services.sheets.alert(
          tr("The sitemaps could not be restored."),
          tr("%1: %2").arg(toQString(result.path.native()), toQString(result.file.error)));
      break;
    case sitemaps::RestoreOutcome::done:
      emit report(tr("Restored the previous sitemaps of \"%1\"").arg(site));
      break;
  }
  emit restored();
}

}  // namespace ui
