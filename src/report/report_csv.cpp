#include "report/report_csv.h"

#include <initializer_list>
#include <string_view>

#include "sitemaps/csv_field.h"

namespace report {

namespace {

using crawler::PageStanding;

void addLine(std::string& table, std::initializer_list<std::string_view> fields) {
  const char* between = "";
  for (const std::string_view field : fields) {
    table.append(between).append(sitemaps::csvField(field));
    between = ",";
  }
  table += "\r\n";
}

std::string linkingPages(const SiteReport& report, const Page& page) {
  std::string pages;
  for (const LinkingPage& link : report.linksTo({false, page.number})) {
    if (!pages.empty()) pages += "\n";
    pages += link.address;
  }
  return pages;
}

}  // namespace

std::string pagesCsv(const SiteReport& report) {
  std::string table;
  addLine(table, {"URL", "Status", "Standing", "Reason", "Title", "Type", "Bytes", "Milliseconds",
                  "Last modified", "Level", "Redirected to", "Linked from", "Linking pages"});
  for (const Page& page : report.now.pages) {
    const bool isBroken = page.standing == PageStanding::broken;
    const bool isLeftOut = page.standing == PageStanding::leftOut;
    addLine(table, {page.address, std::to_string(page.status), nameOf(page.standing),
                    isLeftOut && page.leftOutBy != crawler::LinkReason::none ? crawler::nameOf(page.leftOutBy)
                                                                             : page.brokenReason,
                    page.title, page.type, std::to_string(page.bytes), std::to_string(page.time.count()),
                    page.modified, std::to_string(page.level), page.redirectedTo,
                    std::to_string(page.linkedFrom), isBroken ? linkingPages(report, page) : std::string()});
  }
  return table;
}

std::string brokenCsv(const SiteReport& report) {
  std::string table;
  addLine(table, {"URL", "Status", "Reason", "Linking page", "Link"});
  for (const Page& page : report.now.pages) {
    if (page.standing != PageStanding::broken) continue;
    const std::string status = std::to_string(page.status);
    const auto& links = report.linksTo({false, page.number});
    for (const LinkingPage& link : links)
      addLine(table, {page.address, status, page.brokenReason, link.address, link.name});
    if (links.empty()) addLine(table, {page.address, status, page.brokenReason, "", ""});
  }
  return table;
}

}  // namespace report
