#include "crawler/scan_controller.h"

#include <QAction>
#include <QCheckBox>
#include <QDockWidget>
#include <QLabel>
#include <QListView>
#include <QLocale>
#include <QPushButton>

#include "crawler/read_ahead_pages.h"
#include "crawler/site_scanner.h"
#include "platform/curl_http_client.h"
#include "platform/named_controls.h"
#include "platform/qt_text.h"

namespace crawler {

using platform::control;
using platform::toQString;
using platform::toUtf8;

/// All that one scan needs, in the order in which it is taken apart last.
struct ScanController::Scan {
  Scan(ScanController& owner, ScanSettings settings)
      : client("Veskel/" VESKEL_VERSION),
        pages(client),
        scanner({owner.m_controls, owner.m_state, client, pages, owner.m_view, &owner.m_reasons},
                std::move(settings)) {}

  platform::CurlHttpClient client;
  ReadAheadPages pages;
  SiteScanner scanner;
};

ScanController::ScanController(QMainWindow& mainWindow, platform::SheetQueue& sheets,
                               const store::GlobalControls& controls, store::SharedState& state,
                               const store::BrokenReasons& reasons)
    : m_mainWindow(mainWindow),
      m_sheets(sheets),
      m_controls(controls),
      m_state(state),
      m_reasons(reasons),
      m_establishConnectionSheet(&mainWindow, "establishConnectionSheet", "ecsPBar",
                                 WaitingSheet::GiveUp::offered),
      m_scanCustomAlertPanel(&mainWindow),
      m_endAlertPanel(&mainWindow, "endAlertPanel", "endProgressBar", WaitingSheet::GiveUp::impossible),
      m_questions(mainWindow) {
  m_endAlertPanel.setText(tr("Finishing the sitemaps..."));
  auto& list = control<QListView>(mainWindow, "scannedLinksViewer");
  list.setModel(&m_links);
  connect(&m_view, &CoalescingView::news, this, &ScanController::onNews);
  connect(&m_establishConnectionSheet, &WaitingSheet::givenUp, this, &ScanController::cancelScan);
  connect(&m_scanCustomAlertPanel, &ProgressSheet::cancelled, this, &ScanController::cancelScan);
  connect(&control<QPushButton>(mainWindow, "scanSiteButton"), &QPushButton::clicked, this,
          &ScanController::scanSiteAction);
}

ScanController::~ScanController() = default;

std::array<QDialog*, 3> ScanController::scanSheets() {
  return {&m_establishConnectionSheet, &m_scanCustomAlertPanel, &m_endAlertPanel};
}

void ScanController::scanSiteAction() {
  if (isScanning()) return;
  auto& drawer = control<QDockWidget>(m_mainWindow, "filterDrawer");
  m_reopenFilterDrawer = drawer.isVisible();
  drawer.hide();
  lockControls(true);
  forgetLastScan();
  ScanSettings settings{.startUrl = toUtf8(control<QLabel>(m_mainWindow, "siteURL").text()),
                        .ignoreRobots = m_ignoreRobots,
                        .dateStyle = platform::environmentDateStyle()};
  m_establishConnectionSheet.setText(tr("Connecting to %1").arg(toQString(settings.startUrl)));
  m_scan = std::make_unique<Scan>(*this, std::move(settings));
  m_scan->scanner.scanSiteAction();
}

void ScanController::cancelScan() {
  if (m_scan) m_scan->scanner.cancelScan();
}

void ScanController::forgetLastScan() {
  m_links.clear();
  showNotice({});
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
  m_scanCustomAlertPanel.showProgress(news.progress, toQString(news.url));
  for (const ScanEvent& event : news.events) onEvent(event);
}

void ScanController::onEvent(const ScanEvent& event) {
  switch (event.kind) {
    case ScanEvent::Kind::started:
      m_sheets.show(m_establishConnectionSheet);
      break;
    case ScanEvent::Kind::connected:
      m_sheets.close(m_establishConnectionSheet);
      m_sheets.show(m_scanCustomAlertPanel);
      break;
    case ScanEvent::Kind::unreachable:
      m_sheets.close(m_establishConnectionSheet);
      m_sheets.alert(toQString(kUnreachableTitle), toQString(event.text));
      break;
    case ScanEvent::Kind::progressDown:
      m_sheets.close(m_scanCustomAlertPanel);
      break;
    case ScanEvent::Kind::looping:
      onLooping();
      break;
    case ScanEvent::Kind::progressUp:
      m_sheets.show(m_scanCustomAlertPanel);
      break;
    case ScanEvent::Kind::mayNotEnd:
      showNotice(toQString(event.text) +
                 (event.filter.empty()
                      ? QString()
                      : tr("\nThe filter \"%1\" keeps such addresses out.").arg(toQString(event.filter))));
      break;
    case ScanEvent::Kind::closing:
      m_sheets.close(m_scanCustomAlertPanel);
      m_scanCustomAlertPanel.reset();
      m_sheets.show(m_endAlertPanel);
      break;
    case ScanEvent::Kind::details:
      onDetails(event);
      break;
    case ScanEvent::Kind::closed:
      m_sheets.close(m_endAlertPanel);
      break;
    case ScanEvent::Kind::finished:
      onFinished(event);
      break;
  }
}

void ScanController::onLooping() {
  m_sheets.ask(toQString(kLoopingTitle), toQString(kLoopingMessage), tr("Continue"), tr("Cancel Scan"),
               [this](bool goOn) {
                 if (!m_scan) return;
                 m_scan->scanner.sheetDidEndShouldStopScan(goOn ? LoopingAnswer::continueScan
                                                                : LoopingAnswer::cancelScan);
               });
  m_mainWindow.activateWindow();
}

void ScanController::onDetails(const ScanEvent& event) {
  const QLocale locale;
  control<QLabel>(m_mainWindow, "totalLinksFound").setText(locale.toString(event.statistics.totalLinks));
  control<QLabel>(m_mainWindow, "pagesFound").setText(locale.toString(event.statistics.pagesFound));
  control<QLabel>(m_mainWindow, "brokenLinks").setText(locale.toString(event.brokenLinks));
  control<QLabel>(m_mainWindow, "linksScanned").setText(locale.toString(event.statistics.pagesUsed));
  auto& button = control<QPushButton>(m_mainWindow, "brokenLinksButton");
  button.setEnabled(event.brokenLinks > 0);
  button.setVisible(event.brokenLinks > 0);
}

void ScanController::onFinished(const ScanEvent& event) {
  for (QDialog* sheet : scanSheets()) m_sheets.close(*sheet);
  m_scan.reset();  // its thread has nothing more to say
  lockControls(false);
  // Where nothing was found there is nothing to filter.
  if (m_reopenFilterDrawer && event.result.end != ScanEnd::unreachable) reopenFilterDrawer();
  if (event.pages->size() > 0) m_links.setPages(event.pages);
  tellProblems(event.result);
  emit scanned(toQString(m_state.qzvskCurSite));
  if (m_whenEnded) return std::exchange(m_whenEnded, nullptr)();
  m_mainWindow.raise();
  m_mainWindow.activateWindow();
}

void ScanController::tellProblems(const ScanResult& result) {
  const QString site = toQString(m_state.qzvskCurSite);
  if (result.end == ScanEnd::busy) {
    m_sheets.alert(tr("The site \"%1\" is being scanned already.").arg(site));
  } else if (!result.problems.empty()) {
    QStringList files;
    for (const sitemaps::FileProblem& problem : result.problems) {
      files.append(QStringLiteral("%1: %2").arg(toQString(problem.path.filename().native()),
                                                toQString(problem.result.error)));
    }
    m_sheets.alert(tr("Not everything could be written."), files.join(QLatin1Char('\n')));
  }
  QString sentence;
  if (result.end == ScanEnd::complete) sentence = tr("Scanned \"%1\"").arg(site);
  if (result.end == ScanEnd::cancelled) sentence = tr("Stopped the scan of \"%1\"").arg(site);
  if (!result.reasons.ok()) {
    sentence +=
        tr(". The reasons of the broken pages could not be kept: %1").arg(toQString(result.reasons.error));
  }
  if (!sentence.isEmpty()) emit report(sentence);
}

void ScanController::showNotice(const QString& text) {
  auto& notice = control<QLabel>(m_mainWindow, "scanNotice");
  notice.setText(text);
  notice.setVisible(!text.isEmpty());
}

void ScanController::lockControls(bool locked) {
  for (const char* action : {"addMI", "editMI", "deleteMI", "scanMI"}) {
    control<QAction>(m_mainWindow, action).setDisabled(locked);
  }
  control<QPushButton>(m_mainWindow, "scanSiteButton").setDisabled(locked);
}

void ScanController::reopenFilterDrawer() {
  control<QDockWidget>(m_mainWindow, "filterDrawer").show();
}

}  // namespace crawler
