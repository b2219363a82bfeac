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

void CoalescingView::siteUnreachable(std::string_view errorText) {
  add({.kind = ScanEvent::Kind::unreachable, .text = std::string(errorText)});
}

void CoalescingView::loopingError(LoopingSheet sheet) {
  add({sheet == LoopingSheet::stop ? ScanEvent::Kind::progressDown : ScanEvent::Kind::progressUp});
}

void CoalescingView::scanMayNotEnd(const EndlessHint& hint) {
  add({.kind = ScanEvent::Kind::mayNotEnd, .text = hint.text(), .filter = std::string(hint.filter)});
}

void CoalescingView::updateAllScanDetails(const store::ScanStatistics& statistics, int brokenLinks) {
  add({.kind = ScanEvent::Kind::details, .statistics = statistics, .brokenLinks = brokenLinks});
}

void CoalescingView::scanFinished(const ScanResult& result, const PageQueue& pages) {
  auto list = std::make_shared<std::vector<std::string>>();
  list->reserve(pages.size());
  for (std::size_t i = 0; i < pages.size(); ++i) list->emplace_back(pages[i]);
  add({.kind = ScanEvent::Kind::finished, .result = result, .pages = std::move(list)});
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
