// The latest complete scan of a site, as a window needs it soon: without links and the scan before.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/left_out.h"
#include "report/link_check.h"
#include "report/outside_rows.h"
#include "report/report.h"
#include "report/report_database.h"
#include "report/summary.h"
#include "store/state_folder.h"

namespace report {

/// Parts of it point into others, so it stays where it was made.
struct LatestReport {
  LatestReport() = default;
  LatestReport(const LatestReport&) = delete;
  LatestReport& operator=(const LatestReport&) = delete;

  std::string siteName = {};
  std::string problem = {};             // why nothing can be read, a sentence; empty when all went well
  std::vector<ScanFacts> history = {};  // the newest first
  ScanContents now = {};                // of the latest complete scan; with id 0 when there is none
  ScanFacts former = {};                // the complete scan before it; likewise
  Summary summary = {};                 // of `now`
  std::vector<const Page*> broken = {};
  std::vector<LinkCheck> checks = {};  // of links that lead outside, by address
  CheckFacts lastCheck = {};
  std::vector<OutsideRow> outside = {};
  crawler::LeftOut leftOut = {};  // by the latest scan, complete or not

  bool hasScan() const { return now.facts.id != 0; }
  /// Whether scans came after the one reported, which did not come to their end.
  bool isOfLatestScan() const { return hasScan() && history.front().id == now.facts.id; }

  /// The page of this address; null when the scan did not meet it.
  const Page* find(std::string_view address) const;
};

/// Never null, and never fails: what is missing is left empty.
std::shared_ptr<const LatestReport> readLatestReport(const store::StateFolder& state,
                                                     std::string_view siteName);

/// Why no links can be told of a scan that is over: it had no report, or did not come to its end. A sentence;
/// empty when there are some.
std::string whyNoLinks(const LatestReport& report);

}  // namespace report
