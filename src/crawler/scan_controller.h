// The scan in the window: its button, its sheets, its counts.
#pragma once

#include <QDeadlineTimer>
#include <QMainWindow>
#include <QObject>
#include <QPointer>
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "crawler/coalescing_view.h"
#include "crawler/link_list_model.h"
#include "crawler/scan_controls.h"
#include "crawler/scan_log.h"
#include "crawler/scan_notice.h"
#include "crawler/scan_sheets.h"
#include "crawler/site_password.h"
#include "platform/sheet_queue.h"
#include "store/broken_reasons.h"
#include "store/global_controls.h"
#include "store/shared_state.h"

namespace crawler {

class SiteScanner;

/// Runs one scan at a time, of the site in hand. While it runs that site stays in hand: the list of sites and
/// all that would change the site are off, whatever sheets are up. UI thread; the scan has its own, and its
/// news come by way of a CoalescingView.
class ScanController : public QObject, private ScanView {
  Q_OBJECT

 public:
  /// All are borrowed and outlive the controller.
  ScanController(QMainWindow& mainWindow, platform::SheetQueue& sheets, const store::GlobalControls& controls,
                 const store::StateFolder& stateFolder, store::SharedState& state, PasswordKeeper& passwords);
  /// Stops a running scan and waits for its end.
  ~ScanController() override;

  void scanSiteAction() { startScan(Begin::anew); }
  /// Goes on with the scan that was stopped, if there is one of the site in hand.
  void continueScanAction() { startScan(Begin::whereItStopped); }
  void cancelScan();
  void setIgnoreRobots(bool ignore) { m_ignoreRobots = ignore; }

  /// Empties the list of links and takes the notice away: both belong to the site scanned last. Tells where
  /// the site in hand has a scan that was stopped.
  void showSiteInHand();

  /// Has what is offered follow the settings of the site in hand.
  void settingsChanged();

  /// Makes what is told all that a scan of a site meets. To be set before the first scan.
  using MakeLog = std::function<std::unique_ptr<ScanLog>(const std::string& siteName)>;
  void setMakeLog(MakeLog makeLog) { m_makeLog = std::move(makeLog); }

  bool isScanning() const { return m_scan != nullptr; }

  /// Asks whether a running scan may be stopped, and calls `quit` once it has ended. A second call while the
  /// question is up does nothing.
  void askToStop(std::function<void()> quit);

 signals:
  void scanBegan();
  /// A scan of this site has ended: what its folder holds is to be read anew.
  void scanned(const QString& siteName);
  void report(const QString& sentence);

 private:
  struct Scan;
  enum class Begin { anew, whereItStopped };

  // Of the scan that runs:
  void scanStarted() override;
  void connectionEstablished() override;
  bool askAboutLooping() override;
  void scanMayNotEnd(const EndlessHint& hint) override;
  void waiting(std::chrono::seconds wait) override;
  void closingDocuments() override { endStartAlert(); }
  void scanFinished(const ScanResult& result) override;

  void startScan(Begin begin);
  void forgetLastScan();
  bool offerToContinue();
  std::array<QDialog*, 3> scanSheets();
  void onNews(const ScanNews& news);
  void loopingError(bool isUp);
  void endStartAlert();
  void endStopAlert() { m_sheets.close(m_endAlertPanel); }
  void updateAllScanDetails(const ScanResult& result);
  void tellEnd(const ScanResult& result);
  void lockControls();
  void unlockControls();

  QMainWindow& m_mainWindow;
  platform::SheetQueue& m_sheets;
  const store::GlobalControls& m_controls;
  const store::StateFolder& m_stateFolder;
  const store::BrokenReasons m_reasons;
  store::SharedState& m_state;
  PasswordKeeper& m_passwords;
  ScanControls m_page;
  ScanNotice m_notice;

  WaitingSheet m_establishConnectionSheet;
  ProgressSheet m_scanCustomAlertPanel;
  WaitingSheet m_endAlertPanel;
  platform::SheetQueue m_questions;  // above whatever sheet the scan shows
  LinkListModel m_links;
  CoalescingView m_view;
  QString m_waitingText;  // of the pause that lasts until then
  QDeadlineTimer m_waitingUntil;
  QString m_settingsProblems;  // what of the site's settings was ignored
  MakeLog m_makeLog = [](const std::string&) { return nullptr; };
  bool m_ignoreRobots = false;
  bool m_reopenFilterDrawer = false;
  bool m_asksToStop = false;
  std::vector<QPointer<QObject>> m_locked;  // controls and actions that were on before the scan
  QPointer<QWidget> m_focus;                // which had it then
  std::function<void()> m_whenEnded;

  std::unique_ptr<Scan> m_scan;  // last: its thread uses the view
};

}  // namespace crawler
