// What a scan has said and the window has not shown yet.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "crawler/scan_view.h"

namespace crawler {

/// A turn of the scan, told to a view once more.
using ScanEvent = std::function<void(ScanView&)>;

/// All the news since the last look.
struct ScanNews {
  std::vector<ScanEvent> events;  // in order
  std::deque<std::string> links;  // the newest, in order; older ones were left out when there were too many
  ScanProgress progress;          // where the scan stands
  std::string url;                // the page handled last; before the first the start address
};

/// Collects on the scan's thread what the window takes on its own, some twenty times a second: counters as a
/// snapshot, links in batches, turns in order. Holds no more than `maxLinks` links, however long nobody
/// looks. Any thread.
class PendingScan {
 public:
  explicit PendingScan(std::size_t maxLinks) : m_maxLinks(maxLinks) {}

  /// Forgets everything: another scan begins, and stands at zero.
  void restart(std::string_view startUrl);

  // Each says whether this is the first news since the last look, so that somebody has to come and look.
  [[nodiscard]] bool add(ScanEvent event);
  [[nodiscard]] bool addLink(std::string_view link);
  [[nodiscard]] bool setProgress(const ScanProgress& progress);
  [[nodiscard]] bool setUrl(std::string_view url);

  ScanNews takeAll();

 private:
  bool first();

  const std::size_t m_maxLinks;
  std::mutex m_mutex;  // guards all below
  ScanNews m_news;
  bool m_told = false;
};

}  // namespace crawler
