#include "crawler/coalescing_view.h"

#include <chrono>
#include <utility>

namespace crawler {

namespace {

constexpr std::chrono::milliseconds kFlushInterval{50};
/// More links than anybody can follow with their eyes; the list of pages at the end is whole in any case.
constexpr std::size_t kMaxLinksPerFlush = 2000;

}  // namespace

CoalescingView::CoalescingView() : m_pending(kMaxLinksPerFlush) {
  m_flush.setSingleShot(true);
  m_flush.setInterval(kFlushInterval);
  connect(&m_flush, &QTimer::timeout, this, &CoalescingView::flush);
}

bool CoalescingView::askAboutLooping() {
  add(&ScanView::askAboutLooping);
  return true;
}

void CoalescingView::scanMayNotEnd(const EndlessHint& hint) {
  add([hint](ScanView& view) { view.scanMayNotEnd(hint); });
}

void CoalescingView::waiting(std::chrono::seconds wait) {
  add([wait](ScanView& view) { view.waiting(wait); });
}

/// The result stays where it is until the scanner goes, which is behind this news.
void CoalescingView::scanFinished(const ScanResult& result) {
  add([&result](ScanView& view) { view.scanFinished(result); });
}

void CoalescingView::add(ScanEvent event) {
  static_cast<void>(m_pending.add(std::move(event)));
  QMetaObject::invokeMethod(this, &CoalescingView::flush, Qt::QueuedConnection);
}

void CoalescingView::wake(bool first) {
  if (first) QMetaObject::invokeMethod(&m_flush, qOverload<>(&QTimer::start), Qt::QueuedConnection);
}

void CoalescingView::flush() {
  const ScanNews news = m_pending.takeAll();
  emit this->news(news);
}

}  // namespace crawler
