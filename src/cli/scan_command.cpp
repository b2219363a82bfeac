#include "cli/scan_command.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iomanip>
#include <iostream>
#include <optional>
#include <stop_token>

#include <unistd.h>

#include "cli/password.h"
#include "cli/report_command.h"
#include "cli/report_summary.h"
#include "cli/scan_progress.h"
#include "cli/signal_watch.h"
#include "crawler/link_rules.h"
#include "crawler/page_journal.h"
#include "crawler/patient_client.h"
#include "crawler/read_ahead_pages.h"
#include "crawler/site_identity.h"
#include "crawler/site_scanner.h"
#include "platform/curl_http_client.h"
#include "report/report_writer.h"
#include "sitemaps/xml_format.h"
#include "store/filters_file.h"
#include "store/site_list.h"

namespace cli {

namespace {

constexpr std::size_t kBrokenPagesShown = 20;

/// What the scan needs of the site, read as selecting it in a list does. On a failure says why and returns
/// the exit code in `failure`.
std::optional<crawler::ScanSettings> selectForScan(const CliContext& context, const std::string& name,
                                                   ExitCode& failure) {
  if (!context.hasSite(name)) {
    failure = reportUnknownSite(name);
    return {};
  }
  {
    // Told before anything is read; the scan takes the lock for itself.
    const platform::FolderLock lock(context.controls.siteFolder(name));
    if (const auto refused = reportLockFailure(lock, context, name)) {
      failure = *refused;
      return {};
    }
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
  return crawler::ScanSettings{.siteName = name,
                               .startUrl = site.details.url,
                               .ignoreRobots = site.details.ignoreRobots,
                               .filters = filters.entries,
                               .site = context.settingsOf(name)};
}

/// Has the scan know its password, if its site has a name for one. Says what is missing; true when nothing
/// is.
bool providePassword(const ScanOptions& options, crawler::ScanSettings& settings) {
  const auto key = crawler::passwordKey(settings.startUrl, settings.site);
  if (!key) {
    if (options.passwordFromInput) printError(kNoUser);
    return !options.passwordFromInput;
  }
  platform::DesktopSecretStore secrets;
  PasswordSources sources = {.input = options.passwordFromInput ? &std::cin : nullptr, .secrets = secrets};
  if (isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0) sources.ask = askPassword;
  auto password = findPassword(sources, *key);
  if (!password) return false;
  settings.password =
      std::make_shared<crawler::SitePassword>([password = *std::move(password)](const std::stop_token&) {
        return platform::SecretAnswer{.secret = password};
      });
  return true;
}

/// Says why there is nothing to go on with; true when there is.
bool mayGoOn(const CliContext& context, const crawler::ScanSettings& settings) {
  const auto stopped = crawler::unfinishedScan(context.state, settings.siteName);
  if (stopped == crawler::ScanIdentity{settings.startUrl, settings.site.links}) return true;
  const std::string site = "\"" + printable(settings.siteName) + "\"";
  if (!stopped) {
    printError("No scan of " + site + " was stopped: there is nothing to go on with.");
  } else if (stopped->startUrl != settings.startUrl) {
    printError("The scan of " + site + " that was stopped began at " + printable(stopped->startUrl) +
               ", which is not its URL any more. Scan it anew, without --continue.");
  } else {
    const std::string links(store::nameOf(stopped->links));
    printError("The scan of " + site + " that was stopped followed links by the rules \"" + links +
               "\": give --links " + links + ", or scan it anew, without --continue.");
  }
  return false;
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

void printBroken(const std::vector<store::BrokenPage>& pages) {
  if (pages.empty()) return;
  std::cout << "Broken pages:\n";
  for (std::size_t i = 0; i < std::min(pages.size(), kBrokenPagesShown); ++i) {
    std::cout << "  " << printable(pages[i].url) << " (" << printable(pages[i].reason) << ")\n";
  }
  if (pages.size() > kBrokenPagesShown) {
    std::cout << "  and " << pages.size() - kBrokenPagesShown << " more\n";
  }
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

void printSummary(const CliContext& context, const crawler::ScanResult& result, double seconds) {
  const std::string name = printable(result.siteName);
  if (result.end == crawler::ScanEnd::complete) {
    std::cout << "Scanned \"" << name << "\"\n";
  } else {
    std::cout << (result.end == crawler::ScanEnd::failed ? "The scan of \"" + name + "\" failed"
                                                         : "Stopped the scan of \"" + name + "\"")
              << " after " << result.progress.pagesScanned << " of " << result.statistics.pagesFound
              << " pages found so far\n";
  }
  printCounts(result, seconds);
  printBroken(result.brokenPages);
  if (result.documentsClosed) printFiles(context.controls.siteFolder(result.siteName), result.problems);
  if (result.canGoOn) std::cout << "To go on with it: veskel-cli scan \"" << name << "\" --continue\n";
  const std::string leftOut = result.leftOut.sentence();
  if (!leftOut.empty()) std::cout << printable(leftOut) << '\n';
  if (result.leftOut.browserRulesMayFindMore()) {
    std::cout << "Pages may be behind them. To find them: veskel-cli edit \"" << name
              << "\" --links browser\n";
  }
}

void printProblems(const crawler::ScanResult& result) {
  for (const sitemaps::FileProblem& problem : result.problems) {
    reportFileFailure(problem.result.status == platform::FileStatus::missing ? "Missing during the scan:"
                                                                             : "Could not write",
                      problem.path, problem.result);
  }
}

std::size_t brokenThatCount(const crawler::ScanResult& result, FailOn failOn,
                            const report::LastChanges& changes) {
  if (failOn == FailOn::never) return 0;
  if (failOn == FailOn::newBroken && changes.areKnown()) return changes.newlyBroken;
  return static_cast<std::size_t>(result.progress.brokenLinks);
}

ExitCode exitCodeOf(const crawler::ScanResult& result, std::size_t broken, bool signalled,
                    bool readerIsGone) {
  switch (result.end) {
    case crawler::ScanEnd::busy:
      return exitSiteBusy;
    case crawler::ScanEnd::unwritable:
    case crawler::ScanEnd::failed:
      return exitFileFailure;
    case crawler::ScanEnd::unreachable:
    case crawler::ScanEnd::forbidden:
    case crawler::ScanEnd::lost:
      return exitUnreachable;
    case crawler::ScanEnd::cancelled:
      if (signalled) return exitStopped;
      [[fallthrough]];
    case crawler::ScanEnd::complete:
      break;
  }
  if (!result.problems.empty() || readerIsGone) return exitFileFailure;
  return broken > 0 ? exitFoundBroken : exitDone;
}

/// What changed since the complete scan before, where this one is complete, too.
report::LastChanges changesBy(const CliContext& context, const crawler::ScanResult& result) {
  if (result.end != crawler::ScanEnd::complete || !result.reportKept.ok()) return {};
  return report::readLastChanges(context.state, result.siteName);
}

void report(const CliContext& context, const ScanOptions& options, const crawler::ScanResult& result,
            const report::LastChanges& changes, double seconds) {
  if (result.end == crawler::ScanEnd::busy) {
    reportBusySite(options.siteName);
    return;
  }
  if (result.end == crawler::ScanEnd::unreachable) {
    printError(crawler::kUnreachableTitle);
    printError(std::string(crawler::kUnreachablePrefix) + printable(result.unreachableReason));
  } else if (result.end == crawler::ScanEnd::forbidden) {
    printError(std::string(crawler::kForbiddenTitle) + ": " + printable(result.refusal));
  } else if (result.hasCounts() && options.progress != ProgressStyle::json) {
    printSummary(context, result, seconds);
    printLines(changes.text);
  } else if (options.progress == ProgressStyle::json && changes.areKnown()) {
    printChangesEvent(changes);
  }
  const int values = result.edits.valuesTakenOver;
  if (values > 0 && options.progress != ProgressStyle::json) {
    std::cout << "Taken over from the sitemap before: " << values
              << (values == 1 ? " edited value\n" : " edited values\n");
  }
  if (result.edits.isSetKept && options.progress != ProgressStyle::json) {
    std::cout << "The edited sitemaps of before are kept. To put them back: veskel-cli restore \""
              << printable(result.siteName) << "\"\n";
  }
  if (result.end == crawler::ScanEnd::lost) printError(crawler::kLostTitle);
  if (!result.failure.empty()) printError("The scan failed: " + printable(result.failure));
  for (const std::string& problem : result.sitemapProblems) printWarning(printable(problem));
  printProblems(result);
  if (!result.reasons.ok()) {
    printWarning("The reasons of the broken pages could not be kept: " + printable(result.reasons.error));
  }
  if (!result.leftOutKept.ok()) {
    printWarning("What was left out could not be kept: " + printable(result.leftOutKept.error));
  }
  if (!result.reportKept.ok()) {
    printWarning("The report could not be kept: " + printable(result.reportKept.error));
  }
  if (!result.reportNotice.empty()) printWarning(printable(result.reportNotice));
  if (const std::string problem = result.edits.problem(); !problem.empty()) printWarning(printable(problem));
  if (!result.pagesKept.ok()) {
    printWarning("The scan cannot be gone on with, as its pages could not be kept: " +
                 printable(result.pagesKept.error));
  }
}

}  // namespace

int runScan(const CliContext& context, const ScanOptions& options) {
  ExitCode failure = exitDone;
  std::optional<crawler::ScanSettings> settings = selectForScan(context, options.siteName, failure);
  if (!settings) return failure;
  for (const GivenSetting& each : options.settings) each.applyTo(settings->site);
  settings->goesOn = options.goesOn;
  if (options.goesOn && !mayGoOn(context, *settings)) return exitBadInput;
  settings->dateStyle = platform::environmentDateStyle();
  if (!providePassword(options, *settings)) return exitBadInput;

  const auto started = std::chrono::steady_clock::now();
  const SignalWatch signals;
  platform::SteadyClock clock;
  platform::CurlHttpClient network(crawler::identityFor(*settings));
  const std::unique_ptr<QuietView> view = makeView(options, settings->startUrl);
  crawler::PatientClient client(network, clock, *view, settings->site.delay);
  crawler::ReadAheadPages pages(client, crawler::limitsFor(settings->site), crawler::readingFor(*settings));
  report::ReportWriter log(context.state, options.siteName);
  crawler::SiteScanner scanner(
      {context.controls, client, pages, *view, &context.reasons, &context.state, &log}, *std::move(settings));
  view->setScanner(scanner);
  const std::stop_callback cancel(signals.token(), [&scanner] { scanner.cancelScan(); });

  scanner.scanSiteAction();
  scanner.wait();
  const double seconds = secondsSince(started);
  const report::LastChanges changes = changesBy(context, scanner.result());
  report(context, options, scanner.result(), changes, seconds);
  std::cout.flush();  // while a reader that has gone is no signal yet that ends the program
  const std::size_t broken = brokenThatCount(scanner.result(), options.failOn, changes);
  return exitCodeOf(scanner.result(), broken, signals.token().stop_requested(), view->readerIsGone());
}

}  // namespace cli
