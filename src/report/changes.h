// What changed on a site between two scans.
#pragma once

#include <string>
#include <vector>

#include "report/report.h"

namespace report {

/// A page of either scan. Points into the contents that were compared, which have to outlive it.
struct PageChange {
  const Page* before = nullptr;  // null where that scan did not meet it
  const Page* now = nullptr;     // likewise

  /// As it is now, or as it was.
  const Page& page() const { return now != nullptr ? *now : *before; }
};

/// Each page stands in one of these at most, in the order found; those that are gone stand last.
struct Changes {
  bool areKnown = false;                     // false when one of the two scans is missing
  std::vector<PageChange> added = {};        // in the documents now, and not before
  std::vector<PageChange> gone = {};         // in the documents before, and neither there nor broken now
  std::vector<PageChange> newlyBroken = {};  // whether it was there before or not
  std::vector<PageChange> repaired = {};     // broken before; fine now, or no page leads there any more
  std::vector<PageChange> renamed = {};      // in both documents, under another title
};

Changes compare(const ScanContents& before, const ScanContents& now);

/// "3 pages new, 1 gone, 2 renamed." and "Newly broken: 2 (http://...), repaired: 1.", a line each without a
/// line feed behind the second. Empty when the changes are not known. Holds a text of the site as it is.
std::string changesText(const Changes& changes);

}  // namespace report
