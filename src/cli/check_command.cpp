#include "cli/check_command.h"

#include <chrono>
#include <cstddef>
#include <ctime>
#include <iostream>
#include <set>
#include <vector>

#include <nlohmann/json.hpp>
#include <unistd.h>

#include "cli/signal_watch.h"
#include "report/link_check_json.h"
#include "report/report_database.h"
#include "report/site_link_check.h"
#include "store/site_list.h"

namespace cli {

namespace {

using report::LinkCheck;
using report::LinkState;
using report::ReportDatabase;

constexpr std::size_t kShown = 20;
constexpr std::chrono::milliseconds kRedrawInterval{200};

/// One line on a terminal, drawn anew a few times a second.
class ProgressLine : public report::CheckObserver {
 public:
  ~ProgressLine() override {
    if (m_isShown) std::cerr << "\r\033[K" << std::flush;
  }

  void checkProgressed(const report::CheckProgress& progress) override {
    const auto now = std::chrono::steady_clock::now();
    if (!m_isTerminal || now - m_drawn < kRedrawInterval) return;
    m_drawn = now;
    m_isShown = true;
    std::cerr << "\r\033[K";
    if (progress.all == 0) {
      std::cerr << progress.pagesRead << " of " << progress.pages << " pages read";
    } else {
      std::cerr << progress.asked.all() << " of " << progress.all << " checked, "
                << progress.asked.of(LinkState::broken) << " broken";
    }
    std::cerr << std::flush;
  }

 private:
  const bool m_isTerminal = isatty(STDERR_FILENO) != 0;
  bool m_isShown = false;
  std::chrono::steady_clock::time_point m_drawn;
};

void printText(const std::vector<LinkCheck>& checks, const report::CheckCounts& counts) {
  const auto count = [&](LinkState state) { return counts.of(state); };
  std::cout << counts.all() << " addresses: " << count(LinkState::fine) << " fine, "
            << count(LinkState::moved) << " moved, " << count(LinkState::broken) << " broken, "
            << count(LinkState::unchecked) << " could not be checked\n";
  const auto list = [&](LinkState state, const char* heading) {
    std::size_t shown = 0;
    for (const LinkCheck& check : checks) {
      if (check.state != state) continue;
      if (shown == 0) std::cout << heading << ":\n";
      if (++shown > kShown) break;
      std::cout << "  " << printable(check.address) << " (" << printable(check.reason) << ")\n";
      if (!check.foundOn.empty()) std::cout << "      on " << printable(check.foundOn) << '\n';
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
    report::addCheck(each, check);
    all.push_back(std::move(each));
  }
  std::cout << all.dump(2, ' ', isatty(STDOUT_FILENO) != 0, nlohmann::ordered_json::error_handler_t::replace)
            << '\n';
}

ExitCode reportRefusal(report::CheckEnd end, const platform::FileResult& file, const std::string& siteName) {
  printError(printable(report::whyNotChecked(end, file, siteName)));
  switch (end) {
    case report::CheckEnd::noScan:
      return exitBadInput;
    case report::CheckEnd::checked:
    case report::CheckEnd::beingScanned:
      return exitSiteBusy;
    default:
      return exitFileFailure;
  }
}

report::CheckResult check(const CliContext& context, const CheckOptions& options) {
  const std::string& name = options.siteName;
  const report::CheckRequest request{.scan = {.siteName = name,
                                              .startUrl = store::readSite(context.controls, name).details.url,
                                              .site = context.settingsOf(name)},
                                     .resources = options.resources,
                                     .again = options.again};
  const SignalWatch signals;
  ProgressLine progress;
  return report::SiteLinkCheck(context.controls, context.state, request, progress).run(signals.token());
}

}  // namespace

int checkLinks(const CliContext& context, const CheckOptions& options) {
  const std::string& name = options.siteName;
  if (!context.hasSite(name)) return reportUnknownSite(name);
  const report::CheckResult result = check(context, options);
  const bool wasStopped = result.end == report::CheckEnd::stopped;
  if (result.end != report::CheckEnd::complete && !wasStopped)
    return reportRefusal(result.end, result.file, name);
  if (!result.hasAllOutside)
    printWarning("The site links to so many addresses that only the first ones are known.");

  ReportDatabase database(context.state, name, ReportDatabase::Use::read);
  const std::vector<LinkCheck> checks = database.linkChecks();
  if (!database.result().ok()) return reportRefusal(report::CheckEnd::failed, database.result(), name);
  options.style == OutputStyle::json ? printJson(checks) : printText(checks, result.progress.asked);
  if (wasStopped) {
    printWarning("The check was stopped. The same command goes on with it.");
    return exitStopped;
  }
  return result.progress.asked.of(LinkState::broken) > 0 ? exitFoundBroken : exitDone;
}

}  // namespace cli
