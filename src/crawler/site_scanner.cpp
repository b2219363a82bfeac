#include "crawler/site_scanner.h"

#include <exception>
#include <new>

#include "crawler/left_out_file.h"
#include "crawler/robots.h"
#include "crawler/simple_link_rules.h"
#include "crawler/sitemap_starts.h"
#include "crawler/titles.h"
#include "platform/phrases.h"
#include "platform/text.h"
#include "platform/uri.h"
#include "sitemaps/completion.h"
#include "sitemaps/html_format.h"
#include "sitemaps/xml_format.h"

namespace crawler {

namespace {

using platform::Phrases;

constexpr std::size_t kRobotsBytes = 1u << 20;

/// Given back when memory runs out, so that the documents can be closed.
constexpr std::size_t kReserve = 1u << 20;

/// So many pages in a row without any answer, and the start page is asked whether the site is still there.
constexpr int kUnansweredBelieved = 20;

std::string whyUnauthorized(const platform::HttpAnswer& answer, const ScanSettings& settings) {
  if (answer.sentPassword) return Phrases::tr("name or password were refused");
  const std::string problem = settings.password ? settings.password->problem() : std::string();
  if (!problem.empty())
    return Phrases::tr("the site asks for the password of \"%1\" (%2)", {settings.site.httpUser, problem});
  if (settings.password && !answer.redirectedTo.empty()) {
    return Phrases::tr("%1 asks for a name and a password, and these are for the start address alone",
                       {platform::originOf(answer.redirectedTo)});
  }
  return Phrases::tr("the site asks for a name and a password");
}

/// Why the start address did not do.
std::string reasonOf(const platform::HttpAnswer& answer, const ScanSettings& settings) {
  if (answer.failure != platform::FetchFailure::none) {
    return "0 - " + std::string(platform::failureText(answer.failure));
  }
  std::string reason =
      std::to_string(answer.status) + " - " + std::string(platform::reasonPhrase(answer.status));
  if (answer.status == 401) reason += ": " + whyUnauthorized(answer, settings);
  return reason;
}

std::string_view orNotFound(std::string_view text) {
  return text.empty() ? "Not Found" : text;
}

}  // namespace

SiteScanner::SiteScanner(const ScanServices& services, ScanSettings settings)
    : m_services(services),
      m_settings(std::move(settings)),
      m_documents(services.controls.siteFolder(m_settings.siteName)),
      m_edits(services.controls, services.state, m_settings.siteName, m_settings.site.values),
      m_dates(m_settings.dateStyle),
      m_pages(services.pages,
              services.state != nullptr
                  ? &m_journal.emplace(*services.state, m_settings.siteName, m_settings.bounds.journal)
                  : nullptr,
              services.client, readingFor(m_settings)),
      m_uniquePages(std::make_shared<PageQueue>(m_settings.bounds.queue)),
      m_reserve(std::make_unique<char[]>(kReserve)) {
  m_result.siteName = m_settings.siteName;
  m_result.pages = m_uniquePages;
}

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
  attempt([this] { scan(); });
  attempt([this] { m_services.view.scanFinished(m_result); });
}

void SiteScanner::scan() {
  const std::filesystem::path folder = m_services.controls.siteFolder(m_settings.siteName);
  const platform::FolderLock lock(folder);
  if (!lock.result().ok()) {
    m_result.end = lock.result().status == platform::FileStatus::busy ? ScanEnd::busy : ScanEnd::unwritable;
    note(folder, lock.result());
    return;
  }
  m_services.view.scanStarted();
  attempt([this] {
    if (!begin()) return;
    startCrawl();
    extractLinksFromPage();
  });
  if (m_hasDocuments && m_result.hasCounts()) scanFinished();
  using Ended = sitemaps::EditKeeper::Ended;
  attempt([this] { m_edits.scanEnded(m_result.end == ScanEnd::complete ? Ended::complete : Ended::early); });
  m_result.edits = m_edits.edits();
}

/// Whether there is something to crawl, and documents to write it to. A scan that goes on leaves them alone
/// until the site has answered: they hold what was found so far.
bool SiteScanner::begin() {
  if (!m_settings.goesOn) return startDocuments() && connect();
  if (!connect()) return false;
  if (!m_terminateScan) return startDocuments();
  m_result.end = ScanEnd::cancelled;
  return false;
}

bool SiteScanner::startDocuments() {
  m_edits.beforeDocuments();
  m_hasDocuments = m_documents.start();
  using sitemaps::EditKeeper;
  m_edits.documentsStarted(m_hasDocuments ? EditKeeper::Replaced::all : EditKeeper::Replaced::some);
  if (m_hasDocuments) return true;
  m_result.end = ScanEnd::unwritable;
  m_result.problems = m_documents.problems();
  return false;
}

/// Does `work`; where there is no memory for it, or a library is in trouble, the scan counts as failed.
template <typename Work>
void SiteScanner::attempt(Work work) {
  const auto fail = [this](const char* why) {
    m_result.end = ScanEnd::failed;
    m_reserve.reset();
    if (m_result.failure.empty()) m_result.failure = why;
  };
  try {
    work();
  } catch (const std::bad_alloc&) {
    fail(Phrases::noop("out of memory"));
  } catch (const std::exception& failure) {
    fail(failure.what());
  }
}

bool SiteScanner::connect() {
  const bool ok = httpIsValid(m_settings.startUrl);
  // A scan that is cancelled while it connects ends like any cancelled one, with its documents closed.
  if (ok || m_terminateScan) {
    m_links = makeLinkRules(m_settings, readRobots());
    m_result.refusal = m_links->refusal();
    if (m_result.refusal.empty() || m_terminateScan) return true;
    m_result.end = ScanEnd::forbidden;
    return false;
  }
  m_result.end = ScanEnd::unreachable;
  m_result.unreachableReason = unreachableReason(siteBaseOf(m_settings.startUrl));
  return false;
}

void SiteScanner::startCrawl() {
  m_services.client.keepInterval(m_links->interval());
  if (m_journal) {
    const ScanIdentity scan{m_settings.startUrl, m_settings.site.links};
    m_settings.goesOn ? m_journal->goOn(scan) : m_journal->beginAnew(scan);
  }
  if (m_services.log != nullptr) m_services.log->scanStarted();
  m_uniquePages->append(m_links->startAddress(m_settings.startUrl));
  m_pages.expect((*m_uniquePages)[0]);
  if (m_settings.site.sitemaps == store::OwnSitemaps::scanned) queueSitemapPages();
  m_levelEnd = m_uniquePages->size();
  m_services.view.connectionEstablished();
}

/// The pages that the site's own sitemaps name.
void SiteScanner::queueSitemapPages() {
  const std::optional<web::Url> start = web::parseUrl(m_settings.startUrl);
  if (!start) return;
  const auto queue = [this](std::string_view address, const SiteSitemap& sitemap) {
    m_pageUrl = sitemap.address;
    const JudgedLink link = m_links->judge(std::string(address), *m_uniquePages);
    followLink(link, link.address, Level::same);
  };
  for (const SiteSitemap& sitemap :
       readSiteSitemaps(m_services.client, *start, m_links->sitemaps(), queue, m_stop.get_token())) {
    if (sitemap.problem.empty()) continue;
    m_result.sitemapProblems.push_back(
        Phrases::tr("The sitemap %1 was not read in full: %2.", {sitemap.address, sitemap.problem}));
  }
}

bool SiteScanner::httpIsValid(const std::string& url) {
  const platform::HttpAnswer answer = m_services.client.fetch({.url = url}, m_stop.get_token());
  if (answer.status == 200) return true;
  m_startReason = reasonOf(answer, m_settings);
  m_isRefused = answer.status == 401 && answer.sentPassword;
  return false;
}

platform::HttpAnswer SiteScanner::readRobots() {
  return m_services.client.fetch(
      {.url = robotsAddress(m_settings), .maxBytes = kRobotsBytes, .overflow = platform::Overflow::truncate},
      m_stop.get_token());
}

/// The site's folder is asked, not the page: its answer tells whether the server is there at all.
std::string SiteScanner::unreachableReason(const std::string& siteBaseURL) {
  if (m_isRefused) return m_startReason;  // servers count how often a wrong password is tried
  const platform::HttpAnswer answer = m_services.client.fetch({.url = siteBaseURL}, m_stop.get_token());
  // Where the folder is fine, the page alone is at fault, and its own answer says why.
  return answer.status != 200 ? reasonOf(answer, m_settings) : m_startReason;
}

void SiteScanner::extractLinksFromPage() {
  for (std::size_t i = 0; i < m_uniquePages->size(); ++i) {
    if (m_settings.site.maxPages > 0 && m_ssf >= m_settings.site.maxPages) m_terminateScan = true;
    if (i == m_levelEnd) {
      ++m_level;
      m_levelEnd = m_uniquePages->size();
    }
    m_number = i;
    if (m_terminateScan || visit((*m_uniquePages)[i]) == PageStep::leaveLoop) break;
  }
  if (m_result.end == ScanEnd::lost || isLost(1)) return;
  m_result.end = m_terminateScan ? ScanEnd::cancelled : ScanEnd::complete;
}

SiteScanner::PageStep SiteScanner::visit(std::string_view url) {
  const std::shared_ptr<const FetchedPage> page = m_pages.page(url, m_stop.get_token());
  m_unanswered = platform::isUnanswered(page->failure) ? m_unanswered + 1 : 0;
  if (isLost(kUnansweredBelieved)) return PageStep::leaveLoop;
  if (isDirectoryListing(page->contents.title)) {
    logPage(url, *page, PageStanding::folderListing);
    countPage(url, page->status, {});
    return PageStep::nextPage;
  }
  askWhetherLooping(url);
  if (m_terminateScan) return PageStep::leaveLoop;

  usePage(url, *page);
  return PageStep::nextPage;
}

/// Whether the site has gone: pages were not answered, and the start page is not answered either.
bool SiteScanner::isLost(int unansweredBelieved) {
  if (m_unanswered < unansweredBelieved || m_terminateScan) return false;
  m_unanswered = 0;
  const platform::HttpAnswer answer =
      m_services.client.fetch({.url = m_settings.startUrl}, m_stop.get_token());
  if (!platform::isUnanswered(answer.failure) || m_terminateScan) return false;
  m_result.end = ScanEnd::lost;
  return true;
}

void SiteScanner::usePage(std::string_view url, const FetchedPage& page) {
  const JudgedPage judged = m_links->judgePage(url, page, *m_uniquePages);
  m_pageUrl = judged.address;
  if (judged.inPlace) {
    const JudgedLink other = m_links->judge(*judged.inPlace, *m_uniquePages);
    followLink(other, other.address, Level::same);
  }
  if (judged.use == JudgedPage::Use::broken) {
    logPage(url, page, PageStanding::broken);
    m_result.brokenPages.push_back({std::string(url), page.reason()});
    return countPage(url, page.status, m_result.brokenPages.back().reason);
  }
  m_links->enterPage(judged.address, page.contents);
  const bool isListed = judged.use == JudgedPage::Use::listed;
  logPage(url, page, isListed ? PageStanding::listed : PageStanding::leftOut, judged.reason);
  if (isListed) {
    listPage(judged.address, page);
  } else {
    ++m_pagesLeftOut;
    m_leftOut.count(judged.reason, url, {});
    if (judged.use == JudgedPage::Use::followed) followLinks(page.contents);
  }
  countPage(url, page.status, {});
}

void SiteScanner::askWhetherLooping(std::string_view url) {
  if (!m_loopingArmed || m_terminateScan || !looksLikeLoop(url)) return;
  m_loopingArmed = false;
  if (m_services.view.askAboutLooping()) m_errCont.wait(false);
}

void SiteScanner::listPage(std::string_view url, const FetchedPage& page) {
  const std::string entry = sitemaps::pageEntry(url, m_totLinks, page.contents.title);
  // Entries that wait for a page with content take no more than one page's do.
  if (m_fullPageData.size() > m_settings.bounds.pageEntries) finishPage();
  m_fullPageData += entry;
  m_pageInHand = true;
  buildPageTitleSitemap(entry, orNotFound(url));
  if (const auto hint = m_repeats.visited(url, page.fingerprint)) m_services.view.scanMayNotEnd(*hint);
  // Without content the page's entry waits for the next page's block, and its number is used again.
  if (!page.hasContent) return;

  ++m_totLinks;
  for (const Anchor& anchor : page.contents.anchors) {
    ++m_totLinks;
    if (m_terminateScan) break;
    m_services.view.updateScanSheet(progress());
    examineAnchor(anchor);
  }
  finishPage();
}

void SiteScanner::finishPage() {
  buildAllLinksSitemaps(m_fullPageData);
  m_fullPageData.clear();
  m_pageInnerLinks.clear();
  m_pageFull = false;
}

/// Of a page that is not in the documents itself.
void SiteScanner::followLinks(const PageContents& contents) {
  for (const Anchor& anchor : contents.anchors) {
    if (m_terminateScan) break;
    if (!anchor.href) continue;
    std::optional<std::string> absolute = m_links->makeAbsolute(*anchor.href);
    if (!absolute) {
      leaveOut(LinkReason::tooLong, *anchor.href);
      continue;
    }
    const JudgedLink link = judge(anchor, *std::move(absolute));
    logLink(link, link.address, followLink(link, link.address), anchor.title);
  }
}

void SiteScanner::examineAnchor(const Anchor& anchor) {
  if (!anchor.href) return;
  if (m_pageFull) return leaveOut(LinkReason::surplusLink, *anchor.href);
  std::optional<std::string> absolute = m_links->makeAbsolute(*anchor.href);
  if (!absolute) return leaveOut(LinkReason::tooLong, *anchor.href);
  m_services.view.updateScanLinksList(*absolute);
  JudgedLink link = judge(anchor, *std::move(absolute));
  std::string_view address = link.address;
  if (anchor.isListed && link.isListed()) {
    const auto [place, isNew] = m_pageInnerLinks.insert(std::move(link.address));
    if (isNew && !listLink(*place, anchor.title)) {
      leaveOut(LinkReason::surplusLink, *place);
      m_pageInnerLinks.erase(place);
      return;
    }
    address = *place;
  }
  logLink(link, address, followLink(link, address), anchor.title);
}

JudgedLink SiteScanner::judge(const Anchor& anchor, std::string absolute) const {
  JudgedLink link = m_links->judge(std::move(absolute), *m_uniquePages);
  if (!anchor.isFollowed && link.reason == LinkReason::none) link.reason = LinkReason::notFollowed;
  return link;
}

void SiteScanner::logPage(std::string_view url, const FetchedPage& page, PageStanding standing,
                          LinkReason reason) {
  if (m_services.log == nullptr) return;
  m_services.log->pageMet({m_number, url, page, standing, reason, m_level});
}

void SiteScanner::logLink(const JudgedLink& link, std::string_view address, std::optional<std::size_t> page,
                          std::string_view name) {
  if (m_services.log == nullptr) return;
  if (page) {
    m_services.log->linkToPage(*page, name);
  } else if (isOutside(link.reason)) {
    m_services.log->linkOutside(address, name);
  }
}

/// `address` is the link's, wherever it has gone. Gives the number of the page that it leads to, if it is
/// followed.
std::optional<std::size_t> SiteScanner::followLink(const JudgedLink& link, std::string_view address,
                                                   Level level) {
  switch (link.reason) {
    case LinkReason::none:
      return queueLink(address, level);
    case LinkReason::filter:
      leaveOut(link.reason, address, link.which, m_settings.filters[link.which]);
      break;
    case LinkReason::robots:
      leaveOut(link.reason, address, link.which, m_links->robotsRule(link.which));
      break;
    default:
      leaveOut(link.reason, address);
  }
  return {};
}

void SiteScanner::leaveOut(LinkReason reason, std::string_view link, std::size_t which,
                           std::string_view name) {
  m_leftOut.count(reason, link, m_pageUrl, which, name);
}

/// False when the page in hand takes no more links.
bool SiteScanner::listLink(std::string_view link, std::string_view title) {
  const std::size_t before = m_fullPageData.size();
  sitemaps::appendLinkEntry(m_fullPageData, link, m_totLinks, title);
  m_pageFull = m_fullPageData.size() > m_settings.bounds.pageEntries;
  if (m_pageFull) m_fullPageData.resize(before);
  return !m_pageFull;
}

/// What counts in a page's place is no further away than the page.
std::optional<std::size_t> SiteScanner::queueLink(std::string_view link, Level level) {
  if (const auto known = m_links->findPage(link, *m_uniquePages)) return known;
  const std::size_t number = m_uniquePages->size();
  if (level == Level::next && m_settings.site.levels > 0 && m_level >= m_settings.site.levels) {
    leaveOut(LinkReason::tooDeep, link);
  } else if (m_uniquePages->append(link) == Queued::noRoom) {
    leaveOut(LinkReason::surplusPage, link);
  } else {
    m_pages.expect((*m_uniquePages)[number]);
    return number;
  }
  return {};
}

void SiteScanner::countPage(std::string_view url, int status, std::string_view brokenReason) {
  m_pageInHand = false;
  ++m_ssf;
  m_services.view.pageVisited({url, status, brokenReason});
  m_services.view.updateScanSheet(progress());
}

ScanProgress SiteScanner::progress() const {
  return {static_cast<int>(m_uniquePages->size()), m_ssf, static_cast<int>(m_result.brokenPages.size()),
          m_totLinks};
}

void SiteScanner::buildPageTitleSitemap(std::string_view entry, std::string_view plainLink) {
  m_documents.appendPage(entry);
  const std::string modified = m_pages.lastModified(m_stop.get_token());
  m_documents.appendXml(sitemaps::xmlEntry(plainLink, m_dates.weekDate(modified)));
}

void SiteScanner::buildAllLinksSitemaps(std::string_view block) {
  m_documents.appendLinks(block);
}

void SiteScanner::scanFinished() {
  // After a failure the page in hand is in the pages-only documents already.
  if (m_pageInHand) {
    ++m_ssf;
    attempt([this] { finishPage(); });
  }
  m_fullPageData = std::string();  // its memory goes too
  attempt([this] { m_services.view.closingDocuments(); });
  updateAllScanDetails();
  attempt([this] { finishJournal(); });
  attempt([this] {
    m_documents.finish();
    m_result.documentsClosed = true;
    if (m_documents.problems().empty()) {
      note(m_services.controls.siteFolder(m_settings.siteName) / sitemaps::kXmlSitemapFile,
           m_edits.takeOverValues());
    }
  });
  attempt([this] {
    if (m_services.log != nullptr) m_services.log->scanEnded(m_result);
  });
  attempt([this] {
    const std::vector<sitemaps::FileProblem>& problems = m_documents.problems();
    m_result.problems.insert(m_result.problems.begin(), problems.begin(), problems.end());
  });
}

void SiteScanner::updateAllScanDetails() {
  const std::string& site = m_settings.siteName;
  m_result.progress = progress();
  m_result.statistics = {m_totLinks, m_result.progress.pagesFound - m_pagesLeftOut,
                         m_ssf - m_result.progress.brokenLinks - m_pagesLeftOut};
  attempt([&] {
    std::vector<std::string> addresses;
    for (const store::BrokenPage& page : m_result.brokenPages) addresses.push_back(page.url);
    note(m_services.controls.siteFolder(site) / store::kBadLinksFile,
         sitemaps::writeBadLinks(m_services.controls, site, addresses));
  });
  attempt([&] {
    note(m_services.controls.returnFullFileLocation(site),
         sitemaps::writeStatistics(m_services.controls, site, m_result.statistics));
  });
  attempt([&] { m_result.leftOut = m_leftOut.result(); });
  // Both are a convenience beside the documents: that they could not be kept is told, but is no fault of
  // the scan.
  attempt([&] {
    if (m_services.reasons != nullptr)
      m_result.reasons = m_services.reasons->save(site, m_result.brokenPages);
    if (m_services.state != nullptr)
      m_result.leftOutKept = saveLeftOut(*m_services.state, site, m_result.leftOut);
  });
}

void SiteScanner::finishJournal() {
  if (!m_journal) return;
  if (m_result.end == ScanEnd::complete) return m_journal->remove();
  m_pages.finish();
  m_result.pagesKept = m_journal->result();
  m_result.canGoOn = m_result.pagesKept.ok();
}

void SiteScanner::note(const std::filesystem::path& path, const platform::FileResult& result) {
  if (!result.ok()) m_result.problems.push_back({path, result});
}

}  // namespace crawler
