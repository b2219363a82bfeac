#include "crawler/site_scanner.h"

#include <exception>

#include "crawler/robots.h"
#include "crawler/titles.h"
#include "platform/text.h"
#include "sitemaps/completion.h"
#include "sitemaps/xml_format.h"

namespace crawler {

namespace {

constexpr std::size_t kRobotsBytes = 1u << 20;

std::string_view orNotFound(std::string_view text) {
  return text.empty() ? "Not Found" : text;
}

}  // namespace

SiteScanner::SiteScanner(const ScanServices& services, ScanSettings settings)
    : m_services(services),
      m_settings(std::move(settings)),
      m_site(services.state.qzvskCurSite),
      m_documents(services.controls.siteFolder(m_site)),
      m_dates(m_settings.dateStyle),
      m_filters(services.state.qzvskFiltersArray) {}

SiteScanner::~SiteScanner() {
  cancelScan();
}

void SiteScanner::scanSiteAction() {
  m_worker = std::jthread([this] { run(); });
}

void SiteScanner::cancelScan() {
  m_terminateScan = true;
  m_stop.request_stop();
  // Whoever cancels has answered every question too.
  m_errCont = true;
  m_errCont.notify_all();
}

void SiteScanner::sheetDidEndShouldStopScan(LoopingAnswer answer) {
  if (answer == LoopingAnswer::cancelScan) return cancelScan();
  m_errCont = true;
  m_errCont.notify_all();
}

void SiteScanner::wait() {
  if (m_worker.joinable()) m_worker.join();
}

void SiteScanner::run() {
  try {
    scan();
  } catch (const std::exception& failure) {  // out of memory, or a library in trouble
    m_result.end = ScanEnd::cancelled;
    note(m_services.controls.siteFolder(m_site), {platform::FileStatus::failed, failure.what()});
  }
  m_services.view.scanFinished(m_result, m_uniquePages);
}

void SiteScanner::scan() {
  const platform::FolderLock lock(m_services.controls.siteFolder(m_site));
  if (!lock.result().ok()) {
    m_result.end = lock.result().status == platform::FileStatus::busy ? ScanEnd::busy : ScanEnd::unwritable;
    note(m_services.controls.siteFolder(m_site), lock.result());
    return;
  }
  m_services.state.qzvskBadLinkArray.clear();
  m_services.state.qzvskBadLinkReasonArray.clear();
  setAllowedMedia();
  m_services.view.scanStarted();
  if (!startDocuments()) {
    m_result.end = ScanEnd::unwritable;
  } else if (connect()) {
    extractLinksFromPage();
  }
}

bool SiteScanner::startDocuments() {
  if (m_documents.start()) return true;
  m_result.problems = m_documents.problems();
  return false;
}

bool SiteScanner::connect() {
  const bool ok = httpIsValid(m_settings.startUrl);
  m_base.siteBaseURL = siteBaseOf(m_settings.startUrl);
  // A scan that is cancelled while it connects ends like any cancelled one, with its documents closed.
  if (ok || m_terminateScan) {
    readRobots();
    m_uniquePages.append(m_settings.startUrl);
    m_services.pages.expect(m_uniquePages[0]);
    m_services.view.connectionEstablished();
    return true;
  }
  m_result.end = ScanEnd::unreachable;
  m_result.unreachableReason = unreachableReason();
  m_services.view.siteUnreachable(std::string(kUnreachablePrefix) + m_result.unreachableReason);
  return false;
}

void SiteScanner::setAllowedMedia() {
  m_allowedMedia = pageExtensions();
}

bool SiteScanner::httpIsValid(const std::string& url) {
  const platform::HttpAnswer answer = m_services.client.fetch({.url = url}, m_stop.get_token());
  if (answer.status == 200) return true;
  if (answer.failure == platform::FetchFailure::none) {
    m_services.state.qzvskBadLinkReasonArray.push_back(std::to_string(answer.status) + " - " +
                                                       std::string(platform::reasonPhrase(answer.status)));
  }
  return false;
}

void SiteScanner::readRobots() {
  platform::HttpAnswer answer = m_services.client.fetch({.url = robotsAddress(m_base.siteBaseURL),
                                                         .maxBytes = kRobotsBytes,
                                                         .overflow = platform::Overflow::truncate},
                                                        m_stop.get_token());
  // The text of an error page is no rules file.
  if (answer.status <= 399) m_robots = Exclusions(robotsRules(platform::decodeUtf8(std::move(answer.body))));
}

/// The site's folder is asked, not the page: its answer tells whether the server is there at all.
std::string SiteScanner::unreachableReason() {
  const platform::HttpAnswer answer =
      m_services.client.fetch({.url = m_base.siteBaseURL}, m_stop.get_token());
  if (answer.failure != platform::FetchFailure::none) {
    return "0 - " + std::string(platform::failureText(answer.failure));
  }
  if (answer.status != 200) {
    return std::to_string(answer.status) + " - " + std::string(platform::reasonPhrase(answer.status));
  }
  // The folder is fine, so the page alone is at fault, and its own answer says why.
  const std::vector<std::string>& reasons = m_services.state.qzvskBadLinkReasonArray;
  return reasons.empty() ? std::string() : reasons.back();
}

void SiteScanner::extractLinksFromPage() {
  for (std::size_t i = 0; i < m_uniquePages.size(); ++i) {
    if (m_settings.maxPages > 0 && m_ssf >= m_settings.maxPages) m_terminateScan = true;
    if (m_terminateScan || visit(m_uniquePages[i]) == PageStep::leaveLoop) break;
  }
  m_result.end = m_terminateScan ? ScanEnd::cancelled : ScanEnd::complete;
  scanFinished();
}

SiteScanner::PageStep SiteScanner::visit(std::string_view url) {
  const std::shared_ptr<const FetchedPage> page = m_services.pages.page(url, m_stop.get_token());
  if (isDirectoryListing(page->contents.title)) {
    countPage(url, page->status, {});
    return PageStep::nextPage;
  }
  askWhetherLooping(url);
  if (m_terminateScan) return PageStep::leaveLoop;

  m_base.pageBaseURLUnchanged = url;
  m_base.pageBaseURL = pageBaseOf(url);
  if (page->isGood()) {
    usePage(url, sitemaps::withAmpersandsEscaped(page->contents.title), *page);
    countPage(url, page->status, {});
  } else {
    const std::string reason = page->reason();
    m_services.state.qzvskBadLinkArray.emplace_back(url);
    m_services.state.qzvskBadLinkReasonArray.push_back(reason);
    countPage(url, page->status, reason);
  }
  return PageStep::nextPage;
}

void SiteScanner::askWhetherLooping(std::string_view url) {
  if (!m_loopingArmed || m_terminateScan || !looksLikeLoop(url)) return;
  m_loopingArmed = false;
  m_services.view.loopingError(LoopingSheet::stop);
  m_services.view.askAboutLooping();
  m_errCont.wait(false);
  m_services.view.loopingError(LoopingSheet::restart);
}

void SiteScanner::usePage(std::string_view url, const std::string& title, const FetchedPage& page) {
  const std::string entry = sitemaps::pageEntry(url, m_totLinks, title);
  m_fullPageData += entry;
  buildPageTitleSitemap(entry, orNotFound(url));
  if (const auto hint = m_repeats.visited(url, page.fingerprint)) m_services.view.scanMayNotEnd(*hint);
  // Without content the page's entry waits for the next page's block, and its number is used again.
  if (!page.hasContent) return;

  countLink();
  for (const Anchor& anchor : page.contents.anchors) {
    countLink();
    if (m_terminateScan) break;
    m_services.view.updateScanSheet(progress());
    examineAnchor(anchor);
  }
  buildAllLinksSitemaps(m_fullPageData);
  m_fullPageData.clear();
  m_pageInnerLinks.clear();
}

void SiteScanner::examineAnchor(const Anchor& anchor) {
  if (!anchor.href) return;
  std::string link = rebuildHREF(*anchor.href, m_base);
  m_services.view.updateScanLinksList(link);
  if (isExcluded(link)) return;
  link = withPath(std::move(link));
  if (isInternal(link, m_base.siteBaseURL)) queueLink(link);
  listLink(link, anchor.title);
}

bool SiteScanner::isExcluded(std::string_view link) const {
  if (link.empty() || hasForeignExtension(link, m_allowedMedia) ||
      isFolderOfKnownIndex(link, m_uniquePages, m_allowedMedia)) {
    return true;
  }
  const bool honourRobots = !m_settings.ignoreRobots && !m_robots.empty();
  if (m_filters.empty() && !honourRobots) return false;
  const std::string folded = platform::foldCase(link);
  return m_filters.exclude(folded) || (honourRobots && m_robots.exclude(folded));
}

void SiteScanner::queueLink(std::string_view link) {
  if (isKnownPage(link, m_uniquePages, m_allowedMedia)) return;
  m_uniquePages.append(link);
  m_services.pages.expect(m_uniquePages[m_uniquePages.size() - 1]);
}

void SiteScanner::listLink(const std::string& link, const std::string& title) {
  if (!m_pageInnerLinks.insert(link).second) return;
  m_fullPageData += sitemaps::linkEntry(link, m_totLinks, sitemaps::withAmpersandsEscaped(title));
}

void SiteScanner::countLink() {
  ++m_totLinks;
  m_services.view.updateTotLink(m_totLinks);
}

void SiteScanner::countPage(std::string_view url, int status, std::string_view brokenReason) {
  ++m_ssf;
  m_services.view.pageVisited({url, status, brokenReason});
  m_services.view.updateScanSheet(progress());
}

ScanProgress SiteScanner::progress() const {
  return {static_cast<int>(m_uniquePages.size()), m_ssf,
          static_cast<int>(m_services.state.qzvskBadLinkArray.size()), m_totLinks};
}

void SiteScanner::buildPageTitleSitemap(std::string_view entry, std::string_view plainLink) {
  m_documents.appendPage(entry);
  const std::string modified = m_services.pages.lastModified(plainLink, m_stop.get_token());
  m_documents.appendXml(sitemaps::xmlEntry(plainLink, m_dates.weekDate(modified)));
}

void SiteScanner::buildAllLinksSitemaps(std::string_view block) {
  m_documents.appendLinks(block);
}

void SiteScanner::scanFinished() {
  m_services.view.endStartAlert();
  updateAllScanDetails();
  m_documents.finish();
  const std::vector<sitemaps::FileProblem>& problems = m_documents.problems();
  m_result.problems.insert(m_result.problems.begin(), problems.begin(), problems.end());
  m_services.view.endStopAlert();
}

void SiteScanner::updateAllScanDetails() {
  const std::vector<std::string>& badLinks = m_services.state.qzvskBadLinkArray;
  m_result.progress = progress();
  m_result.statistics = {m_totLinks, static_cast<int>(m_uniquePages.size()),
                         m_ssf - static_cast<int>(badLinks.size())};
  note(m_services.controls.siteFolder(m_site) / store::kBadLinksFile,
       sitemaps::writeBadLinks(m_services.controls, m_site, badLinks));
  note(m_services.controls.returnFullFileLocation(m_site),
       sitemaps::writeStatistics(m_services.controls, m_site, m_result.statistics));
  rememberReasons();
  m_services.view.updateAllScanDetails(m_result.statistics, m_result.progress.brokenLinks);
}

/// Reasons are a convenience beside the documents: that they could not be kept is told, but is no fault of
/// the scan.
void SiteScanner::rememberReasons() {
  if (m_services.reasons == nullptr) return;
  std::vector<store::BrokenPage> pages;
  for (std::size_t i = 0; i < m_services.state.qzvskBadLinkArray.size(); ++i) {
    pages.push_back({m_services.state.qzvskBadLinkArray[i], m_services.state.qzvskBadLinkReasonArray[i]});
  }
  m_result.reasons = m_services.reasons->save(m_site, pages);
}

void SiteScanner::note(const std::filesystem::path& path, const platform::FileResult& result) {
  if (!result.ok()) m_result.problems.push_back({path, result});
}

}  // namespace crawler
