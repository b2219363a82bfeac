// Brings a scan's news from its thread to the window's.
#pragma once

#include <QObject>
#include <QTimer>

#include "crawler/pending_scan.h"

namespace crawler {

/// A view that gathers what arrives and tells of it some twenty times a second on the UI thread, however fast
/// the pages come. Turns of the scan are told at once. Lives on the UI thread and outlives the scan.
class CoalescingView : public QObject, public ScanView {
  Q_OBJECT

 public:
  CoalescingView();

  // On the scan's thread:
  void scanStarted() override { add({ScanEvent::Kind::started}); }
  void connectionEstablished() override { add({ScanEvent::Kind::connected}); }
  void siteUnreachable(std::string_view errorText) override;
  void updateTotLink(int) override {}  // comes with the counters that follow at once
  void updateScanSheet(const ScanProgress& progress) override { wake(m_pending.setProgress(progress)); }
  void updateScanLinksList(std::string_view link) override { wake(m_pending.addLink(link)); }
  void pageVisited(const VisitedPage& page) override { wake(m_pending.setUrl(page.url)); }
  void loopingError(LoopingSheet sheet) override;
  void askAboutLooping() override { add({ScanEvent::Kind::looping}); }
  void scanMayNotEnd(const EndlessHint& hint) override;
  void endStartAlert() override { add({ScanEvent::Kind::closing}); }
  void updateAllScanDetails(const store::ScanStatistics& statistics, int brokenLinks) override;
  void endStopAlert() override { add({ScanEvent::Kind::closed}); }
  void scanFinished(const ScanResult& result, const PageQueue& pages) override;

 signals:
  /// On the UI thread.
  void news(const crawler::ScanNews& news);

 private:
  void add(ScanEvent event);
  void wake(bool first);
  void flush();

  PendingScan m_pending;
  QTimer m_flush;
};

}  // namespace crawler
