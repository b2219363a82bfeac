#include "report/latest_report.h"

#include <algorithm>

#include "crawler/left_out_file.h"
#include "platform/phrases.h"
#include "report/figures.h"

namespace report {

using platform::Phrases;

const Page* LatestReport::find(std::string_view address) const {
  const auto found = std::find_if(now.pages.begin(), now.pages.end(),
                                  [&](const Page& page) { return page.address == address; });
  return found == now.pages.end() ? nullptr : &*found;
}

std::shared_ptr<const LatestReport> readLatestReport(const store::StateFolder& state,
                                                     std::string_view siteName) {
  auto report = std::make_shared<LatestReport>();
  report->siteName = siteName;
  report->leftOut = crawler::readLeftOut(state, siteName);
  ReportDatabase database(state, siteName, ReportDatabase::Use::read);
  if (database.result().ok()) {
    report->history = database.history();
    const std::vector<ScanFacts> kept = database.keptScans();
    if (!kept.empty()) report->now = database.contents(kept.front());
    if (kept.size() > 1) report->former = kept[1];
    report->checks = database.linkChecks();
    report->lastCheck = database.lastCheck();
  }
  // What is wrong inside shows only when it is read.
  if (database.isDamaged()) {
    report->problem = Phrases::tr("The report is damaged. The next scan makes a new one.");
  } else if (!database.result().ok() && database.result().status != platform::FileStatus::missing) {
    report->problem = Phrases::tr("The report cannot be read: %1", {database.result().error});
  }
  report->summary = summarise(report->now);
  report->outside = outsideRows(report->now, report->checks);
  for (const Page& page : report->now.pages) {
    if (page.standing == crawler::PageStanding::broken) report->broken.push_back(&page);
  }
  return report;
}

std::string whyNoLinks(const LatestReport& report) {
  if (!report.problem.empty()) return report.problem;
  if (report.history.empty())
    return Phrases::tr(
        "Nothing is known of the links of this scan. The next scan will keep where they stand.");
  if (!report.isOfLatestScan())
    return Phrases::tr(
        "The last scan did not come to its end. Where links stand is kept of complete scans only.");
  return {};
}

}  // namespace report
