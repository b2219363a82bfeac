// What a scan is told of its site.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "crawler/page_queue.h"
#include "crawler/site_password.h"
#include "platform/dates.h"
#include "store/site_settings.h"

namespace crawler {

/// Bounds on what a site can make a scan hold, in bytes.
struct ScanBounds {
  std::size_t link = 8'192;                  // of an absolute link; a longer one is left out
  std::size_t pageEntries = 64'000'000;      // of one page's entries; further links of it are left out
  std::size_t queue = PageQueue::kMaxBytes;  // of the addresses of all pages; further ones are left out
  std::size_t journal = 4'000'000'000;       // of what a scan keeps to go on with; beyond it keeps nothing
};

/// The site, and how it is scanned. The scan has its own copy.
struct ScanSettings {
  std::string siteName;
  std::string startUrl;       // as the record holds it
  bool ignoreRobots = false;  // the switch beside the site
  bool goesOn = false;        // with the pages that the scan before has fetched, if it was not complete
  std::vector<std::string> filters = {};
  store::SiteSettings site = {};                     // as its user wants it
  std::shared_ptr<SitePassword> password = nullptr;  // where the site's user has set a name
  platform::DateStyle dateStyle = {};                // how last modification dates are written
  ScanBounds bounds = {};
};

}  // namespace crawler
