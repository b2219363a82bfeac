#include "report/site_report.h"

#include <set>

#include "crawler/left_out_file.h"
#include "platform/phrases.h"
#include "report/outside_rows.h"

namespace report {

namespace {

std::set<Target> targetsShown(const SiteReport& report) {
  std::set<Target> targets;
  for (const Page& page : report.now.pages) {
    if (page.standing == crawler::PageStanding::broken) targets.insert({false, page.number});
  }
  for (const OutsideRow& row : firstOutside(outsideRows(report.now, report.checks), kOutsideShown)) {
    if (row.link != nullptr) targets.insert({true, row.link->number});
  }
  return targets;
}

}  // namespace

const std::vector<LinkingPage>& SiteReport::linksTo(const Target& target) const {
  static const std::vector<LinkingPage> kNone;
  const auto found = links.find(target);
  return found == links.end() ? kNone : found->second;
}

ReadReport readSiteReport(const store::StateFolder& state, std::string_view siteName,
                          std::string_view startUrl) {
  ReportDatabase database(state, siteName, ReportDatabase::Use::read);
  if (!database.result().ok()) return {database.result()};
  const std::vector<ScanFacts> kept = database.keptScans();
  SiteReport report = {.siteName = std::string(siteName), .startUrl = std::string(startUrl)};
  if (!kept.empty()) {
    report.history = database.history();
    report.now = database.contents(kept[0]);
    if (kept.size() > 1) report.before = database.contents(kept[1]);
    report.checks = database.linkChecks();
    report.lastCheck = database.lastCheck();
    report.links = database.linksTo(kept[0], targetsShown(report));
    report.leftOut = crawler::readLeftOut(state, siteName);
  }
  // What is wrong inside shows only when it is read.
  if (database.isDamaged())
    return {{platform::FileStatus::failed, platform::Phrases::tr("The report is damaged")}};
  if (!database.result().ok()) return {database.result()};
  if (kept.empty()) return {{platform::FileStatus::missing}};
  return {{}, std::move(report)};
}

}  // namespace report
