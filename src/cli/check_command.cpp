#include "cli/check_command.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <iostream>
#include <map>
#include <set>
#include <stop_token>
#include <vector>

#include <nlohmann/json.hpp>
#include <unistd.h>

#include "cli/signal_watch.h"
#include "crawler/link_rules.h"
#include "crawler/patient_client.h"
#include "crawler/site_identity.h"
#include "platform/curl_http_client.h"
#include "platform/private_address.h"
#include "platform/text.h"
#include "report/page_resources.h"
#include "report/report_database.h"
#include "store/site_list.h"

namespace cli {

namespace {

using report::LinkCheck;
using report::LinkState;
using report::ReportDatabase;

constexpr std::size_t kKeptTogether = 50;
constexpr std::size_t kShown = 20;
constexpr std::chrono::milliseconds kRedrawInterval{200};

struct Counts {
  std::size_t checked = 0;
  std::map<LinkState, std::size_t> states;

  void add(const LinkCheck& check) {
    ++checked;
    ++states[check.state];
  }
};

/// One line on a terminal, drawn anew a few times a second.
class Progress {
 public:
  explicit Progress(std::size_t all) : m_all(all) {}
  ~Progress() {
    if (m_isShown) std::cerr << "\r\033[K" << std::flush;
  }

  void show(const Counts& counts) {
    const auto now = std::chrono::steady_clock::now();
    if (!m_isTerminal || now - m_drawn < kRedrawInterval) return;
    m_drawn = now;
    m_isShown = true;
    const auto broken = counts.states.find(LinkState::broken);
    std::cerr << "\r\033[K" << counts.checked << " of " << m_all << " checked, "
              << (broken == counts.states.end() ? 0 : broken->second) << " broken" << std::flush;
  }

 private:
  const std::size_t m_all;
  const bool m_isTerminal = isatty(STDERR_FILENO) != 0;
  bool m_isShown = false;
  std::chrono::steady_clock::time_point m_drawn;
};

bool isWeb(const std::string& address) {
  return address.starts_with("http://") || address.starts_with("https://");
}

/// The images, styles and scripts of all pages that are in the documents.
std::set<std::string> resourcesOf(const CliContext& context, const std::string& siteName,
                                  const std::string& startUrl, const report::ScanContents& scan,
                                  const std::stop_token& stop) {
  const crawler::ScanSettings settings{
      .siteName = siteName, .startUrl = startUrl, .site = context.settingsOf(siteName)};
  platform::SteadyClock clock;
  crawler::ScanView silent;
  platform::CurlHttpClient network(crawler::identityFor(settings));
  crawler::PatientClient client(network, clock, silent, settings.site.delay);
  std::set<std::string> resources;
  for (const report::Page& page : scan.pages) {
    if (page.standing != crawler::PageStanding::listed) continue;
    if (stop.stop_requested()) break;
    platform::HttpAnswer answer = client.fetch({.url = page.address}, stop);
    const std::string address = answer.redirectedTo.empty() ? page.address : answer.redirectedTo;
    const std::string markup = platform::decodePage(std::move(answer.body), answer.contentType, stop);
    for (std::string& each : report::pageResources(markup, address)) resources.insert(std::move(each));
  }
  return resources;
}

void printText(const std::vector<LinkCheck>& checks, const Counts& counts) {
  const auto count = [&](LinkState state) {
    const auto found = counts.states.find(state);
    return found == counts.states.end() ? 0 : found->second;
  };
  std::cout << counts.checked << " addresses: " << count(LinkState::fine) << " fine, "
            << count(LinkState::moved) << " moved, " << count(LinkState::broken) << " broken, "
            << count(LinkState::unchecked) << " could not be checked\n";
  const auto list = [&](LinkState state, const char* heading) {
    std::size_t shown = 0;
    for (const LinkCheck& check : checks) {
      if (check.state != state) continue;
      if (shown == 0) std::cout << heading << ":\n";
      if (++shown > kShown) break;
      std::cout << "  " << printable(check.address) << " (" << printable(check.reason) << ")\n";
      if (state == LinkState::moved) std::cout << "      now " << printable(check.movedTo) << '\n';
    }
    if (count(state) > kShown) std::cout << "  and " << count(state) - kShown << " more (--json lists all)\n";
  };
  list(LinkState::broken, "Broken");
  list(LinkState::moved, "Moved");
  list(LinkState::unchecked, "Could not be checked");
  const std::chrono::seconds now(std::time(nullptr));
  std::set<std::string> told;
  for (const LinkCheck& check : checks) {
    if (check.certificateEnds.count() == 0 || check.certificateEnds - now > report::kCertificateNotice)
      continue;
    const std::string origin = check.address.substr(0, check.address.find('/', sizeof("https://") - 1));
    if (!told.insert(origin).second) continue;
    const auto days = std::chrono::duration_cast<std::chrono::days>(check.certificateEnds - now).count();
    std::cout << "The certificate of " << printable(origin) << " ends in " << days
              << (days == 1 ? " day\n" : " days\n");
  }
}

void printJson(const std::vector<LinkCheck>& checks) {
  nlohmann::ordered_json all = nlohmann::ordered_json::array();
  for (const LinkCheck& check : checks) {
    nlohmann::ordered_json each;
    each["url"] = check.address;
    each["state"] = report::nameOf(check.state);
    each["status"] = check.status;
    each["reason"] = check.reason;
    if (!check.movedTo.empty()) each["movedTo"] = check.movedTo;
    if (check.certificateEnds.count() > 0) each["certificateEnds"] = check.certificateEnds.count();
    all.push_back(std::move(each));
  }
  std::cout << all.dump(2, ' ', isatty(STDOUT_FILENO) != 0, nlohmann::ordered_json::error_handler_t::replace)
            << '\n';
}

ExitCode reportDatabaseFailure(const std::string& siteName, const platform::FileResult& result) {
  if (result.status == platform::FileStatus::missing) {
    printError("No complete scan of \"" + printable(siteName) + "\" is kept: scan it first.");
    return exitBadInput;
  }
  printError("The report of \"" + printable(siteName) + "\" cannot be used: " + printable(result.error) +
             ".");
  return exitFileFailure;
}

/// Asks what was not asked yet, and keeps what comes of it.
void ask(ReportDatabase& database, const std::vector<std::string>& addresses, const std::string& userAgent,
         bool isPrivateSite, const std::stop_token& stop, Counts& counts) {
  platform::SteadyClock clock;
  platform::CurlHttpClient client({.userAgent = userAgent},
                                  {.publicOnly = !isPrivateSite, .tellsCertificates = true});
  Progress progress(counts.checked + addresses.size());
  std::vector<LinkCheck> unwritten;
  report::LinkCheckRun run(client, clock, [&](const LinkCheck& check) {
    counts.add(check);
    progress.show(counts);
    unwritten.push_back(check);
    if (unwritten.size() < kKeptTogether) return;
    database.keepChecks(unwritten);
    unwritten.clear();
  });
  run.run(addresses, stop);
  database.keepChecks(unwritten);
}

}  // namespace

int checkLinks(const CliContext& context, const CheckOptions& options) {
  const std::string& name = options.siteName;
  if (!context.hasSite(name)) return reportUnknownSite(name);
  const platform::FolderLock lock(context.state.ofSite(name));
  if (lock.result().status == platform::FileStatus::busy) {
    printError("The links of \"" + printable(name) + "\" are being checked already.");
    return exitSiteBusy;
  }
  std::vector<report::ScanFacts> kept;
  {
    ReportDatabase reading(context.state, name, ReportDatabase::Use::read);
    kept = reading.keptScans();
    if (!reading.result().ok()) return reportDatabaseFailure(name, reading.result());
  }
  if (kept.empty()) return reportDatabaseFailure(name, {platform::FileStatus::missing, {}});

  const SignalWatch signals;
  ReportDatabase database(context.state, name, ReportDatabase::Use::write);
  const report::ScanContents scan = database.contents(kept.front());
  if (!scan.hasAllOutside)
    printWarning("The site links to so many addresses that only the first ones are known.");
  std::set<std::string> wanted;
  for (const report::OutsideAddress& each : scan.outside) {
    if (isWeb(each.address)) wanted.insert(each.address);
  }
  const std::string startUrl = store::readSite(context.controls, name).details.url;
  if (options.resources) wanted.merge(resourcesOf(context, name, startUrl, scan, signals.token()));

  Counts counts;
  if (options.again || !database.isCheckUnfinished()) database.beginCheck();
  for (const LinkCheck& done : database.linkChecks()) {
    if (wanted.erase(done.address) > 0) counts.add(done);
  }
  ask(database, {wanted.begin(), wanted.end()}, crawler::userAgentOf(context.settingsOf(name)),
      platform::isOnPrivateHost(startUrl), signals.token(), counts);
  const bool wasStopped = signals.token().stop_requested();
  if (!wasStopped) database.finishCheck();
  const std::vector<LinkCheck> checks = database.linkChecks();
  if (!database.result().ok()) return reportDatabaseFailure(name, database.result());

  options.style == OutputStyle::json ? printJson(checks) : printText(checks, counts);
  if (wasStopped) {
    printWarning("The check was stopped. The same command goes on with it.");
    return exitStopped;
  }
  return counts.states[LinkState::broken] > 0 ? exitFoundBroken : exitDone;
}

}  // namespace cli
