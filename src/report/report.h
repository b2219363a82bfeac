// What the scans of a site have learned, as it is kept and shown.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/scan_log.h"

namespace report {

/// How a scan went. One for each scan of the site, whatever its end.
struct ScanFacts {
  std::int64_t id = 0;       // counts up
  std::int64_t started = 0;  // seconds since 1970-01-01 UTC
  std::int64_t ended = 0;
  std::string end = {};  // "complete", "cancelled", "lost" or "failed"
  std::int64_t pagesFound = 0;
  std::int64_t pagesUsed = 0;
  std::int64_t broken = 0;
  std::int64_t links = 0;

  bool isComplete() const { return end == "complete"; }
};

/// A page that the scan visited.
struct Page {
  std::uint32_t number = 0;  // in the order found
  std::string address = {};
  std::string title = {};         // as in the documents
  std::string type = {};          // MIME type in lower case; empty when not told
  std::string modified = {};      // Last-Modified as sent; empty when not told
  std::string redirectedTo = {};  // empty when it was not
  std::string brokenReason = {};  // "404 - Not Found"; empty when it is not broken
  int status = 0;                 // 0 when no answer came
  crawler::PageStanding standing = crawler::PageStanding::listed;
  crawler::LinkReason leftOutBy = crawler::LinkReason::none;  // for PageStanding::leftOut
  int level = 0;                                              // so many links away from the start page
  std::int64_t bytes = 0;                                     // of the body, decoded
  std::chrono::milliseconds time{0};                          // to the first byte of the answer
  std::uint32_t linkedFrom = 0;                               // so many pages link to it
};

/// An address outside of the site that its pages link to.
struct OutsideAddress {
  std::uint32_t number = 0;
  std::string address = {};
  std::uint32_t linkedFrom = 0;
};

/// A complete scan with all that it met. Empty, with id 0, when there was none.
struct ScanContents {
  ScanFacts facts = {};
  std::vector<Page> pages = {};              // in the order found
  std::vector<OutsideAddress> outside = {};  // likewise
  bool hasAllOutside = true;                 // else there were too many of them
};

/// What a link leads to.
struct Target {
  bool isOutside = false;
  std::uint32_t number = 0;

  auto operator<=>(const Target&) const = default;
};

/// A link to a target. Of each target the links on the first hundred pages are known.
struct LinkingPage {
  std::string address = {};  // of the page that it stands on
  std::string name = {};     // the link's, at most 200 bytes of it
};

inline constexpr std::uint32_t kLinkingPagesKept = 100;

/// The name of a standing in files: "listed", "leftOut", "broken", "folderListing".
std::string_view nameOf(crawler::PageStanding standing);

}  // namespace report
