#include "crawler/scan_controller.h"

#include <QLocale>

#include "crawler/link_rules.h"
#include "crawler/page_journal.h"
#include "crawler/patient_client.h"
#include "crawler/read_ahead_pages.h"
#include "crawler/site_identity.h"
#include "crawler/site_scanner.h"
#include "platform/curl_http_client.h"
#include "platform/http_client.h"
#include "platform/qt_text.h"
#include "store/site_list.h"

namespace crawler {

using platform::toQString;
using platform::translated;

/// All that one scan needs, in the order in which it is taken apart last.
struct ScanController::Scan {
  Scan(ScanController& owner, ScanSettings settings)
      : network(identityFor(settings)),
        client(network, clock, owner.m_view, settings.site.delay),
        pages(client, limitsFor(settings.site), readingFor(settings)),
        log(owner.m_makeLog(settings.siteName)),
        scanner({owner.m_controls, client, pages, owner.m_view, &owner.m_reasons, &owner.m_stateFolder,
                 log.get()},
                std::move(settings)) {}

  platform::SteadyClock clock;
  platform::CurlHttpClient network;
  PatientClient client;
  ReadAheadPages pages;
  std::unique_ptr<ScanLog> log;
  SiteScanner scanner;
};

ScanController::ScanController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                               const store::GlobalControls& controls, const store::StateFolder& stateFolder,
                               store::SharedState& state, PasswordKeeper& passwords)
    : m_mainWindow(mainWindow),
      m_sheets(sheets),
      m_controls(controls),
      m_stateFolder(stateFolder),
      m_reasons(stateFolder),
      m_state(state),
      m_passwords(passwords),
      m_page{mainWindow},
      m_notice(mainWindow, sheets, controls, stateFolder),
      m_establishConnectionSheet(&mainWindow, "establishConnectionSheet", "ecsPBar",
                                 WaitingSheet::GiveUp::offered),
      m_scanCustomAlertPanel(&mainWindow),
      m_endAlertPanel(&mainWindow, "endAlertPanel", "endProgressBar", WaitingSheet::GiveUp::impossible),
      m_questions(mainWindow) {
  m_endAlertPanel.setText(tr("Finishing the sitemaps..."));
  m_page.scannedLinksViewer.setModel(&m_links);
  connect(&m_notice, &ScanNotice::report, this, &ScanController::report);
  connect(&m_view, &CoalescingView::news, this, &ScanController::onNews);
  connect(&m_establishConnectionSheet, &WaitingSheet::givenUp, this, &ScanController::cancelScan);
  connect(&m_scanCustomAlertPanel, &ProgressSheet::cancelled, this, &ScanController::cancelScan);
  connect(&m_scanCustomAlertPanel, &ProgressSheet::paused, this, [this](bool isPaused) {
    if (m_scan) m_scan->client.hold(isPaused);
  });
  connect(&m_page.scanSiteButton, &QPushButton::clicked, this, &ScanController::scanSiteAction);
  // The site's settings and URL may have changed since.
  connect(&m_page.scanMenu, &QMenu::aboutToShow, this, &ScanController::offerToContinue);
}

ScanController::~ScanController() = default;

std::array<QDialog*, 3> ScanController::scanSheets() {
  return {&m_establishConnectionSheet, &m_scanCustomAlertPanel, &m_endAlertPanel};
}

void ScanController::startScan(Begin begin) {
  const bool goesOn = begin == Begin::whereItStopped;
  if (isScanning() || (goesOn && !offerToContinue())) return;
  m_reopenFilterDrawer = m_page.filterDrawer.isVisible();
  m_page.filterDrawer.hide();
  lockControls();
  forgetLastScan();
  const store::StoredSettings stored = store::readSettings(m_stateFolder, m_state.qzvskCurSite);
  m_settingsProblems = toQString(stored.allProblems());
  ScanSettings settings{.siteName = m_state.qzvskCurSite,
                        .startUrl = store::readSite(m_controls, m_state.qzvskCurSite).details.url,
                        .ignoreRobots = m_ignoreRobots,
                        .goesOn = goesOn,
                        .filters = m_state.qzvskFiltersArray,
                        .site = stored.settings,
                        .dateStyle = platform::environmentDateStyle()};
  if (const auto key = passwordKey(settings.startUrl, settings.site)) {
    settings.password = std::make_shared<SitePassword>(
        [this, key = *key](const std::stop_token& stop) { return m_passwords.lookUp(key, stop); });
  }
  m_view.restart(settings.startUrl);
  m_waitingUntil = {};
  m_establishConnectionSheet.setText(tr("Connecting to %1").arg(toQString(settings.startUrl)));
  m_scanCustomAlertPanel.showProgress({}, toQString(settings.startUrl));
  m_scan = std::make_unique<Scan>(*this, std::move(settings));
  m_scan->scanner.scanSiteAction();
  emit scanBegan();
}

void ScanController::cancelScan() {
  if (m_scan) m_scan->scanner.cancelScan();
}

void ScanController::showSiteInHand() {
  forgetLastScan();
  if (offerToContinue()) {
    m_notice.add(tr("The last scan of this site was stopped. Continue Scan goes on with it."));
  }
}

/// Whether there is a scan of the site in hand to go on with, by its settings as they are now.
bool ScanController::offerToContinue() {
  const std::string& site = m_state.qzvskCurSite;
  const std::optional<ScanIdentity> stopped = unfinishedScan(m_stateFolder, site);
  const bool mayGoOn = stopped && !isScanning() && !site.empty() &&
                       stopped->startUrl == store::readSite(m_controls, site).details.url &&
                       stopped->links == store::readSettings(m_stateFolder, site).settings.links;
  m_page.continueScanMI.setEnabled(mayGoOn);
  return mayGoOn;
}

void ScanController::settingsChanged() {
  m_notice.refresh();
  offerToContinue();
}

void ScanController::forgetLastScan() {
  m_links.clear();
  m_notice.clear();
}

void ScanController::askToStop(std::function<void()> quit) {
  if (m_asksToStop) return;
  m_asksToStop = true;
  // Not behind the scan's own sheets, which may stay for as long as a server takes to answer.
  m_questions.ask(tr("A scan is running."), tr("What was found until now is kept."), tr("Stop and Quit"),
                  tr("Keep Scanning"), [this, quit = std::move(quit)](bool stop) {
                    m_asksToStop = false;
                    if (!stop) return;
                    if (!isScanning()) return quit();  // it has ended meanwhile
                    m_whenEnded = quit;
                    cancelScan();
                  });
}

void ScanController::onNews(const ScanNews& news) {
  m_links.append(news.links);
  m_scanCustomAlertPanel.showProgress(news.progress,
                                      m_waitingUntil.hasExpired() ? toQString(news.url) : m_waitingText);
  for (const ScanEvent& event : news.events) event(*this);
}

void ScanController::scanStarted() {
  m_state.qzvskBadLinkArray.clear();
  m_state.qzvskBadLinkReasonArray.clear();
  m_sheets.show(m_establishConnectionSheet);
}

void ScanController::connectionEstablished() {
  m_sheets.close(m_establishConnectionSheet);
  m_sheets.show(m_scanCustomAlertPanel);
}

/// The progress sheet goes down before the looping warning, and up again behind it.
void ScanController::loopingError(bool isUp) {
  if (isUp) {
    m_sheets.close(m_scanCustomAlertPanel);
  } else {
    m_sheets.show(m_scanCustomAlertPanel);
  }
}

bool ScanController::askAboutLooping() {
  loopingError(true);
  m_sheets.ask(translated(kLoopingTitle), translated(kLoopingMessage), tr("Continue"), tr("Cancel Scan"),
               [this](bool goOn) {
                 if (!m_scan) return;
                 loopingError(false);
                 m_scan->scanner.sheetDidEndShouldStopScan(goOn ? LoopingAnswer::continueScan
                                                                : LoopingAnswer::cancelScan);
               });
  m_mainWindow.activateWindow();
  return true;
}

void ScanController::scanMayNotEnd(const EndlessHint& hint) {
  QString text = toQString(hint.text());
  if (!hint.filter.empty()) {
    text += tr("\nThe filter \"%1\" keeps such addresses out.").arg(toQString(hint.filter));
  }
  m_notice.add(text);
}

void ScanController::waiting(std::chrono::seconds wait) {
  m_waitingText = toQString(waitingText(wait));
  m_waitingUntil.setRemainingTime(wait);
  m_establishConnectionSheet.setText(m_waitingText);
  m_scanCustomAlertPanel.showText(m_waitingText);
}

void ScanController::endStartAlert() {
  m_sheets.close(m_scanCustomAlertPanel);
  m_scanCustomAlertPanel.reset();
  m_sheets.show(m_endAlertPanel);
}

void ScanController::updateAllScanDetails(const ScanResult& result) {
  const QLocale locale;
  const int broken = result.progress.brokenLinks;
  m_page.totalLinksFound.setText(locale.toString(result.statistics.totalLinks));
  m_page.pagesFound.setText(locale.toString(result.statistics.pagesFound));
  m_page.brokenLinks.setText(locale.toString(broken));
  m_page.linksScanned.setText(locale.toString(result.statistics.pagesUsed));
  m_page.brokenLinksButton.setEnabled(broken > 0);
  m_page.brokenLinksButton.setVisible(broken > 0);
  for (const store::BrokenPage& page : result.brokenPages) {
    m_state.qzvskBadLinkArray.push_back(page.url);
    m_state.qzvskBadLinkReasonArray.push_back(page.reason);
  }
}

void ScanController::scanFinished(const ScanResult& result) {
  const std::unique_ptr<Scan> scan = std::move(m_scan);  // the result is its own
  scan->scanner.wait();
  endStopAlert();
  for (QDialog* sheet : scanSheets()) m_sheets.close(*sheet);
  unlockControls();
  if (result.hasCounts()) updateAllScanDetails(result);
  // Where nothing was found there is nothing to filter.
  const bool wasScanned = result.end != ScanEnd::unreachable && result.end != ScanEnd::forbidden;
  if (m_reopenFilterDrawer && wasScanned) m_page.filterDrawer.show();
  if (result.pages->size() > 0) m_links.setPages(result.pages);
  tellEnd(result);
  if (offerToContinue() && result.canGoOn) m_notice.add(tr("Continue Scan goes on where this scan stopped."));
  emit scanned(toQString(result.siteName));
  if (m_whenEnded) return std::exchange(m_whenEnded, nullptr)();
  m_mainWindow.raise();
  m_mainWindow.activateWindow();
}

void ScanController::tellEnd(const ScanResult& result) {
  const QLocale locale;
  const QString site = toQString(result.siteName);
  QStringList unwritten;
  for (const sitemaps::FileProblem& problem : result.problems) {
    unwritten.append(QStringLiteral("%1: %2").arg(toQString(problem.path.filename().native()),
                                                  toQString(problem.result.error)));
  }
  QString sentence;
  switch (result.end) {
    case ScanEnd::complete:
      sentence = tr("Scanned \"%1\"").arg(site);
      break;
    case ScanEnd::cancelled:
      sentence = tr("Stopped the scan of \"%1\"").arg(site);
      break;
    case ScanEnd::lost:
      sentence = tr("The scan of \"%1\" was stopped: the site does not answer any more").arg(site);
      m_sheets.alert(
          translated(kLostTitle),
          tr("%1 of %2 pages found were scanned. Once the site answers again, Continue Scan goes on "
             "from there.")
              .arg(locale.toString(result.progress.pagesScanned),
                   locale.toString(result.progress.pagesFound)));
      break;
    case ScanEnd::failed:
      sentence = tr("The scan of \"%1\" failed").arg(site);
      m_sheets.alert(tr("The scan of \"%1\" failed after %2 of %3 pages found.")
                         .arg(site, locale.toString(result.progress.pagesScanned),
                              locale.toString(result.progress.pagesFound)),
                     translated(result.failure));
      break;
    case ScanEnd::unreachable:
      sentence = tr("\"%1\" could not be reached").arg(site);
      m_sheets.alert(
          translated(kUnreachableTitle),
          translated(kUnreachablePrefix) + toQString(platform::reasonInLanguage(result.unreachableReason)));
      break;
    case ScanEnd::forbidden:
      sentence = tr("\"%1\" may not be scanned").arg(site);
      m_sheets.alert(translated(kForbiddenTitle), tr("%1.").arg(toQString(result.refusal)));
      m_notice.add(tr("%1.").arg(toQString(result.refusal)));
      break;
    case ScanEnd::busy:
      m_sheets.alert(tr("The site \"%1\" is being scanned already.").arg(site));
      return;
    case ScanEnd::unwritable:
      sentence = tr("\"%1\" could not be scanned").arg(site);
      break;
  }
  if (!unwritten.isEmpty()) {
    m_sheets.alert(tr("Not everything could be written."), unwritten.join(QLatin1Char('\n')));
  }
  if (!result.reasons.ok()) {
    sentence +=
        tr(". The reasons of the broken pages could not be kept: %1").arg(toQString(result.reasons.error));
  }
  if (!result.leftOutKept.ok()) {
    sentence += tr(". What was left out could not be kept: %1").arg(toQString(result.leftOutKept.error));
  }
  if (!result.reportKept.ok()) {
    sentence += tr(". The report could not be kept: %1").arg(toQString(result.reportKept.error));
  }
  if (!result.reportNotice.empty()) m_notice.add(toQString(result.reportNotice));
  if (const std::string problem = result.edits.problem(); !problem.empty())
    sentence += tr(". %1").arg(toQString(problem));
  if (!result.pagesKept.ok()) {
    sentence += tr(". It cannot be continued, as its pages could not be kept: %1")
                    .arg(toQString(result.pagesKept.error));
  }
  if (!m_settingsProblems.isEmpty()) sentence += tr(". %1").arg(m_settingsProblems);
  if (result.edits.valuesTakenOver > 0)
    sentence += tr(". %Ln edited value(s) were taken over", nullptr, result.edits.valuesTakenOver);
  if (result.edits.isSetKept)
    m_notice.add(tr("The edited sitemaps of before are kept. Restore Previous Sitemaps puts them back."));
  for (const std::string& problem : result.sitemapProblems) m_notice.add(toQString(problem));
  if (result.leftOut.mayMissPages()) {
    const QString leftOut = toQString(result.leftOut.sentence());
    m_notice.add(leftOut);
    if (result.leftOut.browserRulesMayFindMore()) m_notice.offerBrowserRules(result.siteName);
    sentence += tr(". %1").arg(leftOut);
  }
  emit report(sentence);
}

void ScanController::lockControls() {
  m_focus = m_mainWindow.focusWidget();
  m_locked.clear();
  const auto lock = [this](auto& control) {
    if (!control.isEnabled()) return;
    control.setEnabled(false);
    m_locked.push_back(&control);
  };
  for (QAction* action : m_page.lockedActions) lock(*action);
  for (QWidget* widget : m_page.lockedWidgets) lock(*widget);
}

void ScanController::unlockControls() {
  for (const QPointer<QObject>& control : std::exchange(m_locked, {})) {
    if (control) control->setProperty("enabled", true);
  }
  if (m_focus && m_focus->isVisible()) m_focus->setFocus();
}

}  // namespace crawler
