#include "cli/report_summary.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "cli/cli_context.h"
#include "report/changes.h"
#include "report/figures.h"
#include "report/summary.h"

namespace cli {

namespace {

using report::grouped;
using report::SiteReport;

constexpr std::size_t kBrokenShown = 5;
constexpr std::size_t kLinkingPagesShown = 2;  // of each of these

std::vector<const report::Page*> brokenPages(const SiteReport& report) {
  std::vector<const report::Page*> pages;
  for (const report::Page& page : report.now.pages) {
    if (page.standing == crawler::PageStanding::broken) pages.push_back(&page);
  }
  return pages;
}

void printBroken(const SiteReport& report, const report::Page& page, std::size_t linkingPages) {
  std::cout << "  " << printable(page.address) << " (" << printable(page.brokenReason) << ")\n";
  const auto& links = report.linksTo({false, page.number});
  const std::size_t shown = std::min(links.size(), linkingPages);
  for (std::size_t i = 0; i < shown; ++i) {
    std::cout << "      \"" << printable(report::shortened(links[i].name)) << "\" on "
              << printable(links[i].address) << '\n';
  }
  if (page.linkedFrom > shown) {
    const std::size_t rest = page.linkedFrom - shown;
    std::cout << (shown == 0 ? "      on " : "      and on ")
              << (shown == 0 ? report::counted(rest, "page", "pages")
                             : report::counted(rest, "more page", "more pages"))
              << '\n';
  }
}

void printCount(const char* label, std::int64_t count) {
  std::cout << "  " << std::left << std::setw(12) << label << std::right << std::setw(12) << grouped(count)
            << '\n';
}

void printBars(const char* label, const std::vector<report::Bar>& bars) {
  std::cout << label;
  const char* between = " ";
  for (const report::Bar& bar : bars) {
    if (bar.pages == 0) continue;
    std::cout << between << bar.label << ": " << grouped(bar.pages);
    between = ", ";
  }
  std::cout << '\n';
}

void printFirst(const char* label, const std::vector<const report::Page*>& pages, const std::string& figure) {
  if (!pages.empty()) std::cout << label << figure << ", " << printable(pages.front()->address) << '\n';
}

void printWorthALook(const report::Summary& summary) {
  if (!summary.sharedTitles.empty()) {
    const report::SharedTitle& most = summary.sharedTitles.front();
    std::cout << "Titles that pages share: " << grouped(summary.sharedTitles.size()) << " (\""
              << printable(report::shortened(most.title)) << "\" on " << grouped(most.pages.size())
              << " pages)\n";
  }
  const auto printFound = [](const char* label, const std::vector<const report::Page*>& pages) {
    printFirst(label, pages, grouped(pages.size()));
  };
  printFound("Without a title:         ", summary.untitled);
  printFound("No page links there:     ", summary.unlinked);
  if (!summary.slowest.empty())
    printFirst("The slowest page:        ", summary.slowest, report::timeText(summary.slowest.front()->time));
  if (!summary.largest.empty())
    printFirst("The largest page:        ", summary.largest,
               report::sizeText(summary.largest.front()->bytes));
}

}  // namespace

void printReport(const SiteReport& report) {
  const report::Summary summary = summarise(report.now);
  const report::ScanFacts& scan = report.now.facts;
  const std::string name = "\"" + printable(report.siteName) + "\"";
  std::cout << "Report of " << name << ", scanned " << report::dateText(scan.ended) << " in "
            << report::durationText(scan.ended - scan.started) << '\n';
  printCount("Pages used", summary.listed);
  printCount("Broken", summary.broken);
  printCount("Left out", summary.leftOut);
  printCount("Links", scan.links);
  if (!report.history.empty() && !report.history.front().isComplete())
    std::cout << "A later scan was not complete and is not shown.\n";
  if (const auto changes = compare(report.before, report.now); changes.areKnown) {
    std::cout << "\nSince the scan of " << report::dateText(report.before.facts.ended) << ":\n";
    printLines(changesText(changes));
  }
  if (const auto pages = brokenPages(report); !pages.empty()) {
    std::cout << "\nBroken pages:\n";
    for (std::size_t i = 0; i < std::min(pages.size(), kBrokenShown); ++i)
      printBroken(report, *pages[i], kLinkingPagesShown);
    if (pages.size() > kBrokenShown)
      std::cout << "  and " << grouped(pages.size() - kBrokenShown) << " more: veskel-cli report " << name
                << " --broken\n";
  }
  std::cout << '\n';
  printBars("By status:", summary.byStatus);
  printBars("By level: ", summary.byLevel);
  printBars("By time:  ", summary.byTime);
  printWorthALook(summary);
  std::cout << "Outside addresses:       " << grouped(report.now.outside.size()) << '\n';
  std::cout << "\nAs a page, with all the rest: veskel-cli report " << name << " --output report.html\n";
}

void printBrokenPages(const SiteReport& report) {
  const auto pages = brokenPages(report);
  if (pages.empty()) std::cerr << "No page is broken.\n";
  for (const report::Page* page : pages) printBroken(report, *page, report::kLinkingPagesKept);
}

void printLines(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::cout << printable(text.substr(0, end)) << '\n';
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

}  // namespace cli
