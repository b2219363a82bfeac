// What the pages of a scan are like: how many of which kind, and those to look at first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "report/report.h"

namespace report {

/// So many pages of one kind.
struct Bar {
  std::string label = {};  // "4xx not there", "Level 3", "0.5 to 1 s", in the user's language
  std::int64_t pages = 0;
  bool isTrouble = false;
};

/// A title that several pages have.
struct SharedTitle {
  std::string title = {};
  std::vector<const Page*> pages = {};  // in the order found
};

/// Points into the contents that it was made from, which have to outlive it. The lists hold a page once, also
/// where a scan has visited it for several of its sections ("a.html#x").
struct Summary {
  static constexpr std::size_t kRanked = 100;  // so many are ranked at most

  std::int64_t listed = 0;
  std::int64_t leftOut = 0;  // with folder listings
  std::int64_t broken = 0;

  // All pages visited. Kinds at the ends of a scale are left away when there are none of them.
  std::vector<Bar> byStatus = {};
  std::vector<Bar> byLevel = {};
  std::vector<Bar> byTime = {};  // of those that answered

  // Of the pages in the documents:
  std::vector<SharedTitle> sharedTitles = {};  // by most pages of one
  std::vector<const Page*> untitled = {};
  /// No link leads there, and no redirect: the site's own sitemaps name it. The start page is none.
  std::vector<const Page*> unlinked = {};
  std::vector<const Page*> slowest = {};  // the slowest first
  std::vector<const Page*> largest = {};  // the largest first
};

Summary summarise(const ScanContents& contents);

/// Whether the page has a title of its own, and not the text that stands for a missing one.
bool hasTitle(const Page& page);

}  // namespace report
