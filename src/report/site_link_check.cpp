#include "report/site_link_check.h"

#include <utility>

#include "crawler/patient_client.h"
#include "crawler/site_identity.h"
#include "platform/curl_http_client.h"
#include "platform/phrases.h"
#include "platform/private_address.h"
#include "platform/text.h"
#include "report/page_resources.h"
#include "store/site_lock.h"

namespace report {

namespace {

using platform::Phrases;

using platform::FileStatus;

constexpr std::size_t kKeptTogether = 50;
constexpr int kTimesKept = 60;  // a scan that writes a large report has it for a while

bool isWeb(const std::string& address) {
  return address.starts_with("http://") || address.starts_with("https://");
}

/// The newest complete scan; where there is none, `plan` tells why.
std::optional<ScanFacts> lastScan(ReportDatabase& database, CheckPlan& plan) {
  std::vector<ScanFacts> kept;
  if (database.result().ok()) kept = database.keptScans();
  const platform::FileResult& result = database.result();
  if (result.ok() && !kept.empty()) return kept.front();
  const bool isNone = result.ok() || result.status == FileStatus::missing;
  plan.end = isNone ? CheckEnd::noScan : CheckEnd::failed;
  if (!isNone) plan.file = result;
  return {};
}

}  // namespace

std::string whyNotChecked(CheckEnd end, const platform::FileResult& file, std::string_view siteName) {
  const std::string site = "\"" + std::string(siteName) + "\"";
  switch (end) {
    case CheckEnd::complete:
    case CheckEnd::stopped:
      break;
    case CheckEnd::noScan:
      return Phrases::tr("No complete scan of %1 is kept: scan it first.", {site});
    case CheckEnd::checked:
      return Phrases::tr("The links of %1 are being checked already.", {site});
    case CheckEnd::beingScanned:
      return Phrases::tr("The site %1 is being scanned.", {site});
    case CheckEnd::failed:
      return Phrases::tr("The report of %1 cannot be used: %2.", {site, file.error});
  }
  return {};
}

CheckPlan planCheck(const store::GlobalControls& controls, const store::StateFolder& state,
                    std::string_view siteName) {
  CheckPlan plan;
  if (platform::FolderLock(state.ofSite(siteName)).result().status == FileStatus::busy)
    plan.end = CheckEnd::checked;
  if (store::SiteLock(controls, siteName).result().status == FileStatus::busy)
    plan.end = CheckEnd::beingScanned;
  if (plan.end != CheckEnd::complete) return plan;
  ReportDatabase database(state, siteName, ReportDatabase::Use::read);
  const std::optional<ScanFacts> scan = lastScan(database, plan);
  if (!scan) return plan;
  for (const OutsideAddress& each : database.outside(*scan)) plan.links += isWeb(each.address) ? 1 : 0;
  plan.pages = static_cast<std::size_t>(scan->pagesUsed);
  plan.asked = database.linkChecks().size();
  plan.last = database.lastCheck();
  if (!database.result().ok()) return {.end = CheckEnd::failed, .file = database.result()};
  return plan;
}

CheckResult SiteLinkCheck::run(const std::stop_token& stop) {
  const std::string& site = m_request.scan.siteName;
  const platform::FolderLock lock(m_state.ofSite(site));
  if (lock.result().status == FileStatus::busy) return {.end = CheckEnd::checked};
  if (store::SiteLock(m_controls, site).result().status == FileStatus::busy)
    return {.end = CheckEnd::beingScanned};
  CheckPlan plan;
  std::optional<ScanFacts> scan;
  {
    ReportDatabase database(m_state, site, ReportDatabase::Use::read);
    scan = lastScan(database, plan);
  }
  if (!scan) return {.end = plan.end, .file = plan.file};
  const std::stop_callback passOn(stop, [this] { m_giveUp.request_stop(); });
  gather(*scan, m_giveUp.get_token());
  // What is known of former checks is dropped only for one that has begun.
  if (m_result.file.ok() && !stop.stop_requested()) {
    begin();
    ask(m_giveUp.get_token());
    keepAll();
  }
  if (!m_result.file.ok()) {
    m_result.end = CheckEnd::failed;
  } else if (stop.stop_requested()) {
    m_result.end = CheckEnd::stopped;
  } else {
    ReportDatabase database(m_state, site, ReportDatabase::Use::write);
    database.finishCheck();
    m_result.file = database.result();
    if (!m_result.file.ok()) m_result.end = CheckEnd::failed;
  }
  return m_result;
}

/// Nothing is held open while pages are fetched: a scan that ends meanwhile has to write its report.
void SiteLinkCheck::gather(const ScanFacts& scan, const std::stop_token& stop) {
  std::vector<std::string> pages;
  {
    ReportDatabase database(m_state, m_request.scan.siteName, ReportDatabase::Use::read);
    for (OutsideAddress& each : database.outside(scan)) {
      if (isWeb(each.address)) m_wanted.emplace(std::move(each.address), std::string());
    }
    m_result.hasAllOutside = database.hasAllOutside(scan);
    if (m_request.resources) {
      database.eachPage(scan, [&](Page page) {
        if (page.standing == crawler::PageStanding::listed) pages.push_back(std::move(page.address));
      });
    }
    m_result.file = database.result();
  }
  if (m_result.file.ok() && !pages.empty()) addResources(pages, stop);
}

/// The images, styles and scripts of all pages that are in the documents.
void SiteLinkCheck::addResources(const std::vector<std::string>& pages, const std::stop_token& stop) {
  CheckProgress& progress = m_result.progress;
  progress.pages = pages.size();
  platform::SteadyClock clock;
  crawler::ScanView silent;
  platform::CurlHttpClient network(crawler::identityFor(m_request.scan));
  crawler::PatientClient client(network, clock, silent, m_request.scan.site.delay);
  for (const std::string& page : pages) {
    m_observer.checkProgressed(progress);
    platform::HttpAnswer answer = client.fetch({.url = page}, stop);
    if (stop.stop_requested()) return;
    const std::string address = answer.redirectedTo.empty() ? page : answer.redirectedTo;
    const std::string markup = platform::decodePage(std::move(answer.body), answer.contentType, stop);
    for (std::string& each : pageResources(markup, address)) m_wanted.emplace(std::move(each), page);
    ++progress.pagesRead;
  }
}

/// Takes over what was asked already.
void SiteLinkCheck::begin() {
  ReportDatabase database(m_state, m_request.scan.siteName, ReportDatabase::Use::write);
  if (m_request.again || !database.lastCheck().isUnfinished()) database.beginCheck();
  m_result.progress.all = m_wanted.size();
  for (const LinkCheck& done : database.linkChecks()) {
    if (m_wanted.erase(done.address) > 0) m_result.progress.asked.add(done.state);
  }
  m_result.file = database.result();
}

void SiteLinkCheck::ask(const std::stop_token& stop) {
  if (!m_result.file.ok()) return;
  m_observer.checkProgressed(m_result.progress);
  platform::SteadyClock clock;
  platform::CurlHttpClient client(
      crawler::identityFor(m_request.scan),
      {.publicOnly = !platform::isOnPrivateHost(m_request.scan.startUrl), .tellsCertificates = true});
  std::vector<std::string> addresses;
  for (const auto& [address, foundOn] : m_wanted) addresses.push_back(address);
  const auto wait = [this](const std::string& host) {
    m_result.progress.waitsFor = host;
    m_observer.checkProgressed(m_result.progress);
  };
  LinkCheckRun(
      client, clock, [this](const LinkCheck& check) { add(check); }, wait)
      .run(addresses, stop);
}

void SiteLinkCheck::add(LinkCheck check) {
  m_result.progress.asked.add(check.state);
  check.foundOn = m_wanted.at(check.address);
  m_unwritten.push_back(std::move(check));
  if (m_unwritten.size() % kKeptTogether == 0) keep();
  m_observer.checkProgressed(m_result.progress);
}

/// What cannot be written since a scan writes its report at the time is written with the next ones.
void SiteLinkCheck::keep() {
  if (!m_result.file.ok() || m_unwritten.empty()) return;
  // A site that was deleted or renamed meanwhile must not come back by what is kept of it.
  if (!platform::somethingAt(m_controls.siteFolder(m_request.scan.siteName))) {
    m_result.file = {FileStatus::missing, Phrases::tr("The site is not there any more")};
  } else {
    ReportDatabase database(m_state, m_request.scan.siteName, ReportDatabase::Use::write);
    database.keepChecks(m_unwritten);
    if (database.result().status == FileStatus::busy) return;
    m_result.file = database.result();
  }
  m_unwritten.clear();
  if (!m_result.file.ok()) m_giveUp.request_stop();
}

void SiteLinkCheck::keepAll() {
  for (int i = 0; i < kTimesKept && !m_unwritten.empty(); ++i) keep();
  if (!m_unwritten.empty()) m_result.file = {FileStatus::busy, Phrases::tr("Another program writes it")};
}

}  // namespace report
