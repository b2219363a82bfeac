// Brings a scan's news from its thread to the window's.
#pragma once

#include <QObject>
#include <QTimer>

#include "crawler/pending_scan.h"

namespace crawler {

/// A view that gathers what arrives and tells of it some twenty times a second on the UI thread, however fast
/// the pages come. Turns of the scan are told at once. Lives on the UI thread and outlives the scans.
class CoalescingView : public QObject, public ScanView {
  Q_OBJECT

 public:
  CoalescingView();

  /// Another scan begins at this address. On the UI thread, while none runs.
  void restart(std::string_view startUrl) { m_pending.restart(startUrl); }

  // On the scan's threads:
  void scanStarted() override { add(&ScanView::scanStarted); }
  void connectionEstablished() override { add(&ScanView::connectionEstablished); }
  void updateScanSheet(const ScanProgress& progress) override { wake(m_pending.setProgress(progress)); }
  void updateScanLinksList(std::string_view link) override { wake(m_pending.addLink(link)); }
  void pageVisited(const VisitedPage& page) override { wake(m_pending.setUrl(page.url)); }
  bool askAboutLooping() override;
  void scanMayNotEnd(const EndlessHint& hint) override;
  void waiting(std::chrono::seconds wait) override;
  void closingDocuments() override { add(&ScanView::closingDocuments); }
  void scanFinished(const ScanResult& result) override;

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
