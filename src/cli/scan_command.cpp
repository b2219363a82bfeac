#include "cli/scan_command.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iomanip>
#include <iostream>
#include <optional>
#include <stop_token>

#include "cli/scan_progress.h"
#include "cli/signal_watch.h"
#include "crawler/read_ahead_pages.h"
#include "crawler/site_scanner.h"
#include "platform/curl_http_client.h"
#include "sitemaps/xml_format.h"
#include "store/filters_file.h"
#include "store/shared_state.h"
#include "store/site_list.h"

namespace cli {

namespace {

constexpr std::size_t kBrokenPagesShown = 20;

/// What the scan needs of the site, read from its folder.
struct SiteToScan {
  store::SiteDetails details;
  store::SharedState state;
};

/// Reads the site as selecting it in a list does. On a failure says why and returns the exit code in
/// `failure`.
std::optional<SiteToScan> selectForScan(const CliContext& context, const std::string& name,
                                        ExitCode& failure) {
  if (!context.hasSite(name)) {
    failure = reportUnknownSite(name);
    return {};
  }
  // The record of a site that is being scanned belongs to that scan.
  const platform::FolderLock lock(context.controls.siteFolder(name));
  if (const auto refused = reportLockFailure(lock, context, name)) {
    failure = *refused;
    return {};
  }
  const store::SelectedSite site = store::selectSite(context.controls, name);
  if (!site.result.ok()) {
    failure = reportFileFailure("Could not use", context.controls.returnFullFileLocation(name), site.result);
    return {};
  }
  const store::Filters filters = store::loadFilterFile(context.controls, name);
  if (!filters.result.ok()) {
    failure = reportFileFailure("Could not read", context.controls.siteFolder(name) / store::kFiltersFile,
                                filters.result);
    return {};
  }
  SiteToScan selected{site.details, {}};
  selected.state.qzvskCurSite = name;
  selected.state.qzvskFiltersArray = filters.entries;
  return selected;
}

void printCounts(const crawler::ScanResult& result, double seconds) {
  const auto row = [](const char* label, int count) {
    std::cout << "  " << std::left << std::setw(12) << label << std::right << std::setw(10) << count << '\n';
  };
  row("Pages found", result.statistics.pagesFound);
  row("Pages used", result.statistics.pagesUsed);
  row("Broken", result.progress.brokenLinks);
  row("Links", result.statistics.totalLinks);
  std::cout << "  " << std::left << std::setw(12) << "Seconds" << std::right << std::setw(10) << std::fixed
            << std::setprecision(1) << seconds << '\n';
}

void printBroken(const store::SharedState& state) {
  const std::size_t count = state.qzvskBadLinkArray.size();
  if (count == 0) return;
  std::cout << "Broken pages:\n";
  for (std::size_t i = 0; i < std::min(count, kBrokenPagesShown); ++i) {
    std::cout << "  " << printable(state.qzvskBadLinkArray[i]) << " ("
              << printable(state.qzvskBadLinkReasonArray[i]) << ")\n";
  }
  if (count > kBrokenPagesShown) std::cout << "  and " << count - kBrokenPagesShown << " more\n";
}

/// Names the files that are written in full; what is wrong with the others is said elsewhere.
void printFiles(const std::filesystem::path& folder, const std::vector<sitemaps::FileProblem>& problems) {
  std::string names;
  const auto name = [&](std::string_view file) {
    const bool failed = std::any_of(problems.begin(), problems.end(),
                                    [&](const auto& problem) { return problem.path == folder / file; });
    if (!failed) names.append(" ").append(file);
  };
  for (const sitemaps::Layout& layout : sitemaps::kLayouts) name(layout.fileName);
  name(sitemaps::kXmlSitemapFile);
  if (platform::somethingAt(folder / store::kBadLinksFile)) name(store::kBadLinksFile);
  if (!names.empty()) std::cout << "Written to " << printable(folder.native()) << ":\n " << names << '\n';
}

void printSummary(const CliContext& context, const crawler::ScanResult& result,
                  const store::SharedState& state, double seconds) {
  const std::string& name = state.qzvskCurSite;
  if (result.end == crawler::ScanEnd::complete) {
    std::cout << "Scanned \"" << printable(name) << "\"\n";
  } else {
    std::cout << "Stopped the scan of \"" << printable(name) << "\" after " << result.progress.pagesScanned
              << " of " << result.statistics.pagesFound << " pages found so far\n";
  }
  printCounts(result, seconds);
  printBroken(state);
  printFiles(context.controls.siteFolder(name), result.problems);
}

void printProblems(const crawler::ScanResult& result) {
  for (const sitemaps::FileProblem& problem : result.problems) {
    reportFileFailure(problem.result.status == platform::FileStatus::missing ? "Missing during the scan:"
                                                                             : "Could not write",
                      problem.path, problem.result);
  }
}

ExitCode exitCodeOf(const crawler::ScanResult& result, bool signalled) {
  switch (result.end) {
    case crawler::ScanEnd::busy:
      return exitSiteBusy;
    case crawler::ScanEnd::unwritable:
      return exitFileFailure;
    case crawler::ScanEnd::unreachable:
      return exitUnreachable;
    case crawler::ScanEnd::cancelled:
      if (signalled) return exitStopped;
      [[fallthrough]];
    case crawler::ScanEnd::complete:
      break;
  }
  if (!result.problems.empty()) return exitFileFailure;
  return result.progress.brokenLinks > 0 ? exitFoundBroken : exitDone;
}

void report(const CliContext& context, const ScanOptions& options, const crawler::ScanResult& result,
            const store::SharedState& state, double seconds) {
  if (result.end == crawler::ScanEnd::busy) {
    reportBusySite(options.siteName);
    return;
  }
  if (result.end == crawler::ScanEnd::unreachable) {
    printError(crawler::kUnreachableTitle);
    printError(std::string(crawler::kUnreachablePrefix) + printable(result.unreachableReason));
  } else if (result.end != crawler::ScanEnd::unwritable && options.progress != ProgressStyle::json) {
    printSummary(context, result, state, seconds);
  }
  printProblems(result);
  if (!result.reasons.ok()) {
    printWarning("The reasons of the broken pages could not be kept: " + printable(result.reasons.error));
  }
}

}  // namespace

int runScan(const CliContext& context, const ScanOptions& options) {
  ExitCode failure = exitDone;
  std::optional<SiteToScan> site = selectForScan(context, options.siteName, failure);
  if (!site) return failure;

  const auto started = std::chrono::steady_clock::now();
  const SignalWatch signals;
  platform::CurlHttpClient client("Veskel/" VESKEL_VERSION);
  crawler::ReadAheadPages pages(
      client, {.connections = options.connections, .maxPages = static_cast<std::size_t>(options.maxPages)});
  const std::unique_ptr<QuietView> view = makeView(options, site->details.url);
  crawler::SiteScanner scanner({context.controls, site->state, client, pages, *view, &context.reasons},
                               {.startUrl = site->details.url,
                                .ignoreRobots = site->details.ignoreRobots,
                                .maxPages = options.maxPages,
                                .dateStyle = platform::environmentDateStyle()});
  view->setScanner(scanner);
  const std::stop_callback cancel(signals.token(), [&scanner] { scanner.cancelScan(); });

  scanner.scanSiteAction();
  scanner.wait();
  report(context, options, view->result(), site->state, secondsSince(started));
  return exitCodeOf(view->result(), signals.token().stop_requested());
}

}  // namespace cli
