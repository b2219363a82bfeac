#include "crawler/read_ahead_pages.h"

#include <algorithm>
#include <cassert>
#include <exception>
#include <utility>

#include "crawler/link_rules.h"
#include "crawler/titles.h"

namespace crawler {

namespace {

std::string_view withoutFragment(std::string_view url) {
  return url.substr(0, url.find('#'));
}

std::shared_ptr<const FetchedPage> pageWithout(platform::FetchFailure failure) {
  auto page = std::make_shared<FetchedPage>();
  page->failure = failure;
  page->contents.title = kNoPageTitle;
  return page;
}

/// Whether the crawl is going to ask when the page was modified.
bool wantsDate(const FetchedPage& page) {
  return page.isGood() && !isDirectoryListing(page.contents.title);
}

}  // namespace

ReadAheadLimits limitsFor(const store::SiteSettings& site) {
  return {.connections = site.connections, .maxPages = static_cast<std::size_t>(site.maxPages)};
}

ReadAheadPages::ReadAheadPages(platform::HttpClient& client, const ReadAheadLimits& limits,
                               PageReading reading)
    : m_client(client), m_limits(limits), m_reading(std::move(reading)) {
  for (int i = 0; i < std::max(1, m_limits.connections); ++i) m_threads.emplace_back([this] { work(); });
}

ReadAheadPages::~ReadAheadPages() {
  m_stop.request_stop();
}

void ReadAheadPages::expect(std::string_view url) {
  std::unique_lock lock(m_mutex);
  m_expected.push_back(url);
  if (fillWindow()) offerWork(lock);
}

std::shared_ptr<const FetchedPage> ReadAheadPages::page([[maybe_unused]] std::string_view url,
                                                        std::stop_token stop) {
  std::unique_lock lock(m_mutex);
  if (m_inHand) leaveEntryInHand();
  fillWindow();
  assert(!m_window.empty() && m_window.front().document->address == withoutFragment(url));
  m_inHand = true;
  const DocumentPointer document = m_window.front().document;
  offerWork(lock);
  if (!m_ready.wait(lock, stop, [&] { return document->visit == Task::done; })) {
    m_stop.request_stop();
    return pageWithout(platform::FetchFailure::stopped);
  }
  if (document->waits) {
    const bool wasFull = m_bytesWaiting >= m_limits.bytes;
    document->waits = false;
    --m_waiting;
    m_bytesWaiting -= document->bytes;
    if (wasFull) offerWork(lock);
  }
  return document->page;
}

std::string ReadAheadPages::lastModified(std::stop_token stop) {
  std::unique_lock lock(m_mutex);
  assert(m_inHand);
  const DocumentPointer document = m_window.front().document;
  if (document->date == Task::open) return {};
  if (!m_ready.wait(lock, stop, [&] { return document->date == Task::done; })) m_stop.request_stop();
  return document->lastModified;
}

void ReadAheadPages::work() {
  std::unique_lock lock(m_mutex);
  DocumentPointer document;
  const auto find = [&] { return (document = nextToVisit()) != nullptr; };
  for (;;) {
    ++m_idle;
    const bool found = m_work.wait(lock, m_stop.get_token(), find);
    --m_idle;
    if (!found || m_stop.stop_requested()) return;
    document->visit = Task::running;
    offerWork(lock);
    visit(document, lock);
    if (document->date == Task::running) askForDate(document, lock);
  }
}

/// Wakes a thread that waits for work when there is some. The lock is let go of meanwhile, or the thread
/// would wake up only to wait for it.
void ReadAheadPages::offerWork(std::unique_lock<std::mutex>& lock) {
  if (m_idle == 0 || isFarAhead() || !nextToVisit()) return;
  lock.unlock();
  m_work.notify_one();
  lock.lock();
}

/// Whether the crawl has enough to go on with. Threads that sleep are left alone then until half of it is
/// used up, or each page would cost putting one to sleep and waking it.
bool ReadAheadPages::isFarAhead() const {
  const bool isNextOpen = !m_window.empty() && m_window.front().document->visit == Task::open;
  return !isNextOpen && m_waiting > m_limits.pages / 2;
}

/// Wakes the crawl if this is what it waits for.
void ReadAheadPages::tellReady(const Document& document, std::unique_lock<std::mutex>& lock) {
  if (!m_inHand || m_window.front().document.get() != &document) return;
  lock.unlock();
  m_ready.notify_one();
  lock.lock();
}

/// The first entry always may be visited, whatever else is held: the crawl waits for it.
ReadAheadPages::DocumentPointer ReadAheadPages::nextToVisit() const {
  bool first = true;
  for (const Entry& entry : m_window) {
    const bool allowed = first || (!entry.document->onlyInTurn && m_bytesWaiting < m_limits.bytes);
    if (entry.document->visit == Task::open && allowed) return entry.document;
    if (entry.mayLoop && m_loopingArmed) break;
    first = false;
  }
  return nullptr;
}

void ReadAheadPages::visit(const DocumentPointer& document, std::unique_lock<std::mutex>& lock) {
  const bool inTurn = m_window.front().document == document;
  const std::size_t maxBytes = inTurn ? kMaxPageBytes : m_limits.bytesOfOnePage;
  lock.unlock();
  std::shared_ptr<const FetchedPage> page;
  try {
    page = std::make_shared<const FetchedPage>(
        visitPage(m_client, m_reading, document->address, m_stop.get_token(), maxBytes));
  } catch (const std::exception&) {  // no memory for what the page holds
    page = pageWithout(platform::FetchFailure::tooLarge);
  }
  const std::size_t bytes = page->contents.bytes();
  lock.lock();
  if (page->failure == platform::FetchFailure::tooLarge && !inTurn) {
    document->onlyInTurn = true;
    document->visit = Task::open;
    offerWork(lock);  // its turn may have come meanwhile
    return;
  }
  document->page = page;
  document->bytes = bytes;
  document->waits = true;
  ++m_waiting;
  m_bytesWaiting += document->bytes;
  document->visit = Task::done;
  if (wantsDate(*page)) {
    document->lastModified = page->lastModified;
    document->date = page->lastModified.empty() ? Task::running : Task::done;
  }
  tellReady(*document, lock);
}

void ReadAheadPages::askForDate(const DocumentPointer& document, std::unique_lock<std::mutex>& lock) {
  lock.unlock();
  std::string lastModified = askLastModified(m_client, document->address, m_stop.get_token());
  lock.lock();
  document->lastModified = std::move(lastModified);
  document->date = Task::done;
  tellReady(*document, lock);
}

/// True when entries came in.
bool ReadAheadPages::fillWindow() {
  const std::size_t before = m_entered;
  while (!m_expected.empty() && m_window.size() <= m_limits.pages &&
         (m_limits.maxPages == 0 || m_entered < m_limits.maxPages)) {
    const std::string_view url = m_expected.front();
    m_expected.pop_front();
    m_window.push_back({documentAt(url), looksLikeLoop(url)});
    ++m_window.back().document->entries;
    ++m_entered;
  }
  return m_entered != before;
}

void ReadAheadPages::leaveEntryInHand() {
  const Entry entry = m_window.front();
  m_window.pop_front();
  m_inHand = false;
  // The crawl has gone on behind it, so the warning was answered.
  if (entry.mayLoop) m_loopingArmed = false;
  --entry.document->entries;
  remember(entry.document);
}

ReadAheadPages::DocumentPointer ReadAheadPages::documentAt(std::string_view url) {
  const std::string_view address = withoutFragment(url);
  if (const auto known = m_known.find(address); known != m_known.end()) return known->second;
  auto document = std::make_shared<Document>(Document{.address = std::string(address)});
  m_known.emplace(document->address, document);
  return document;
}

void ReadAheadPages::remember(const DocumentPointer& document) {
  const auto place = std::find(m_remembered.begin(), m_remembered.end(), document);
  if (place != m_remembered.end()) {
    m_remembered.splice(m_remembered.begin(), m_remembered, place);
    return;
  }
  m_remembered.push_front(document);
  m_bytesRemembered += document->bytes;
  while (m_remembered.size() > m_limits.rememberedPages || m_bytesRemembered > m_limits.rememberedBytes) {
    forgetOldest();
  }
}

void ReadAheadPages::forgetOldest() {
  const DocumentPointer document = m_remembered.back();
  m_remembered.pop_back();
  m_bytesRemembered -= document->bytes;
  if (document->entries == 0) m_known.erase(document->address);
}

}  // namespace crawler
