// All that is known of a site's scans, as a report shows it.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/left_out.h"
#include "platform/files.h"
#include "report/link_check.h"
#include "report/report.h"
#include "report/report_database.h"
#include "store/state_folder.h"

namespace report {

struct SiteReport {
  std::string siteName = {};
  std::string startUrl = {};
  std::vector<ScanFacts> history = {};  // the newest first
  ScanContents now = {};                // the newest complete scan
  ScanContents before = {};             // the one before; empty when there is none
  crawler::LeftOut leftOut = {};        // by the last scan

  std::vector<LinkCheck> checks = {};  // of links that lead outside, by address
  CheckFacts lastCheck = {};

  /// Who links to the broken pages, and to those of firstOutside().
  std::map<Target, std::vector<LinkingPage>> links = {};

  const std::vector<LinkingPage>& linksTo(const Target& target) const;
};

struct ReadReport {
  /// `missing` when no complete scan is kept; for `failed` the error is a sentence without its full stop.
  platform::FileResult result;
  SiteReport report = {};  // empty unless the result is ok
};

/// Reads it whole. The time and memory it takes grow with the site.
ReadReport readSiteReport(const store::StateFolder& state, std::string_view siteName,
                          std::string_view startUrl);

/// So many of the outside addresses a page shows, and a report knows the links to.
inline constexpr std::size_t kOutsideShown = 1'000;

}  // namespace report
