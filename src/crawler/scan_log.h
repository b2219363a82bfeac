// What a scan meets, told to whoever keeps it for a report.
#pragma once

#include <cstddef>
#include <string_view>

#include "crawler/link_rules.h"
#include "crawler/page_source.h"
#include "crawler/scan_settings.h"
#include "crawler/scan_view.h"

namespace crawler {

/// What became of a page that was visited.
enum class PageStanding {
  listed,         // in the documents
  leftOut,        // by the rules; the reason says why
  broken,         //
  folderListing,  // made by the server, and passed over
};

/// A page that was visited. Views and references are valid during the call.
struct MetPage {
  std::size_t number;    // in the order found: its index in the queue
  std::string_view url;  // as queued
  const FetchedPage& page;
  PageStanding standing;
  LinkReason reason;  // of one that is left out
  int level;          // so many links away from the start page
};

/// Told in this order: the start, each page and the links on it, the end. On the scan's thread. Throws
/// nothing but std::bad_alloc.
class ScanLog {
 public:
  virtual ~ScanLog() = default;

  /// The start page has answered.
  virtual void scanStarted() = 0;

  virtual void pageMet(const MetPage& page) = 0;

  // A link on the page met last, by its name; as often as it stands there:
  /// To the page of the site that has this number, whether it is visited or not.
  virtual void linkToPage(std::size_t number, std::string_view name) = 0;
  /// To an address outside of the site, as it is listed.
  virtual void linkOutside(std::string_view address, std::string_view name) = 0;

  /// How it ended, before the view is told. What cannot be kept is told in the result.
  virtual void scanEnded(ScanResult& result) = 0;
};

}  // namespace crawler
