// Fetches and reads the pages that the crawl will ask for next while it works on the page in hand.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <vector>

#include "crawler/page_source.h"
#include "store/site_settings.h"

namespace crawler {

struct ReadAheadLimits {
  int connections = 6;                      // and threads; at least 1
  std::size_t pages = 64;                   // fetched or being fetched beyond the page in hand
  std::size_t bytes = 32u << 20;            // of contents that wait to be asked for
  std::size_t bytesOfOnePage = 4u << 20;    // a larger body is fetched when its turn comes
  std::size_t rememberedPages = 64;         // for addresses that differ in their fragment alone
  std::size_t rememberedBytes = 16u << 20;  // of their contents
  std::size_t maxPages = 0;                 // none is fetched beyond so many in all; 0: no limit
};

/// The limits for a site that is scanned so.
ReadAheadLimits limitsFor(const store::SiteSettings& site);

/// Visits coming pages over several connections at once, in the order in which they were announced, each on
/// one of its own threads, which reads it too and asks for its date where it came without. What page() gives
/// for an address is what a visit at that moment would give, however many connections there are. Addresses
/// that differ only in their fragment share one visit as long as that is remembered. Nothing is fetched past
/// an address that raises the looping warning until the crawl goes on behind it.
class ReadAheadPages : public PageSource {
 public:
  explicit ReadAheadPages(platform::HttpClient& client, const ReadAheadLimits& limits = {},
                          PageReading reading = kSimpleReading);
  /// Drops everything that is under way.
  ~ReadAheadPages() override;

  void expect(std::string_view url) override;
  std::shared_ptr<const FetchedPage> page(std::string_view url, std::stop_token stop) override;
  std::string lastModified(std::stop_token stop) override;

 private:
  enum class Task { open, running, done };

  /// What a server keeps at one address, shared by all entries that lead to it.
  struct Document {
    std::string address;  // without a fragment
    Task visit = Task::open;
    Task date = Task::open;   // asked for only where the page is good and came without
    bool onlyInTurn = false;  // too large to be fetched ahead
    std::shared_ptr<const FetchedPage> page = nullptr;
    std::string lastModified = {};
    std::size_t bytes = 0;    // of its contents
    bool waits = false;       // visited and not asked for yet: counts in m_waiting and m_bytesWaiting
    std::size_t entries = 0;  // in the window
  };
  using DocumentPointer = std::shared_ptr<Document>;

  struct Entry {
    DocumentPointer document;
    bool mayLoop;  // raises the looping warning, if it is still to be raised
  };

  // With m_mutex held. Those that take the lock let go of it meanwhile.
  void work();
  void offerWork(std::unique_lock<std::mutex>& lock);
  void tellReady(const Document& document, std::unique_lock<std::mutex>& lock);
  bool isFarAhead() const;
  DocumentPointer nextToVisit() const;
  void visit(const DocumentPointer& document, std::unique_lock<std::mutex>& lock);
  void askForDate(const DocumentPointer& document, std::unique_lock<std::mutex>& lock);
  bool fillWindow();
  void leaveEntryInHand();
  void remember(const DocumentPointer& document);
  void forgetOldest();
  DocumentPointer documentAt(std::string_view url);

  platform::HttpClient& m_client;
  const ReadAheadLimits m_limits;
  const PageReading m_reading;
  std::stop_source m_stop;

  std::mutex m_mutex;                       // guards all below
  std::condition_variable_any m_work;       // something may be visited
  std::condition_variable_any m_ready;      // a visit is done, or a date is there
  std::deque<std::string_view> m_expected;  // announced, not in the window yet
  std::deque<Entry> m_window;               // the next entries; the first may be in hand
  std::list<DocumentPointer> m_remembered;  // most recently used first
  std::unordered_map<std::string_view, DocumentPointer> m_known;  // in the window or remembered, by address
  std::size_t m_waiting = 0;                                      // pages
  std::size_t m_bytesWaiting = 0;
  std::size_t m_bytesRemembered = 0;
  std::size_t m_entered = 0;  // entries that came into the window, ever
  int m_idle = 0;             // threads that wait for work
  bool m_inHand = false;      // the first entry of the window was asked for
  bool m_loopingArmed = true;

  std::vector<std::jthread> m_threads;  // last, so that they end first
};

}  // namespace crawler
