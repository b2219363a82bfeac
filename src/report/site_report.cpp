#include "report/site_report.h"

#include <algorithm>
#include <set>

#include "crawler/left_out_file.h"
#include "report/report_database.h"

namespace report {

namespace {

std::set<Target> targetsShown(const ScanContents& contents) {
  std::set<Target> targets;
  for (const Page& page : contents.pages) {
    if (page.standing == crawler::PageStanding::broken) targets.insert({false, page.number});
  }
  for (const OutsideAddress* address : mostLinked(contents, kOutsideShown))
    targets.insert({true, address->number});
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
    report.links = database.linksTo(kept[0], targetsShown(report.now));
    report.leftOut = crawler::readLeftOut(state, siteName);
  }
  // What is wrong inside shows only when it is read.
  if (database.isDamaged()) return {{platform::FileStatus::failed, "The report is damaged"}};
  if (!database.result().ok()) return {database.result()};
  if (kept.empty()) return {{platform::FileStatus::missing}};
  return {{}, std::move(report)};
}

std::vector<const OutsideAddress*> mostLinked(const ScanContents& contents, std::size_t count) {
  std::vector<const OutsideAddress*> addresses;
  for (const OutsideAddress& address : contents.outside) addresses.push_back(&address);
  std::stable_sort(addresses.begin(), addresses.end(),
                   [](const auto* a, const auto* b) { return a->linkedFrom > b->linkedFrom; });
  addresses.resize(std::min(addresses.size(), count));
  return addresses;
}

}  // namespace report
