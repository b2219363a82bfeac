// One scan of one site, from its start address to its sitemaps.
#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_set>
#include <vector>

#include "crawler/kept_pages.h"
#include "crawler/left_out.h"
#include "crawler/link_rules.h"
#include "crawler/page_journal.h"
#include "crawler/page_queue.h"
#include "crawler/page_source.h"
#include "crawler/repeat_watch.h"
#include "crawler/scan_log.h"
#include "crawler/scan_settings.h"
#include "crawler/scan_view.h"
#include "platform/dates.h"
#include "platform/http_client.h"
#include "sitemaps/edit_keeper.h"
#include "sitemaps/site_documents.h"
#include "store/broken_reasons.h"
#include "store/global_controls.h"

namespace crawler {

/// What a scan works with. All of it is borrowed and outlives the scanner.
struct ScanServices {
  const store::GlobalControls& controls;
  platform::HttpClient& client;
  PageSource& pages;
  ScanView& view;
  const store::BrokenReasons* reasons = nullptr;  // where reasons are remembered, if anywhere
  const store::StateFolder* state = nullptr;  // where what was left out is, and what was fetched, if anywhere
  ScanLog* log = nullptr;                     // told what is met, if anybody
};

enum class LoopingAnswer { continueScan, cancelScan };

/// Owns the thread that does the scan, the queue, and everything counted on the way. Made for one scan.
class SiteScanner {
 public:
  SiteScanner(const ScanServices& services, ScanSettings settings);
  /// Cancels a running scan and waits for its end.
  ~SiteScanner();

  /// Starts the scan and returns at once. May be called once.
  void scanSiteAction();

  /// Stops the scan at its next page or link, and the transfer that it may be waiting for. The documents are
  /// closed as at any end. Any thread.
  void cancelScan();

  /// The user's answer to the looping warning. Any thread.
  void sheetDidEndShouldStopScan(LoopingAnswer answer);

  /// Blocks until scanFinished() of the view has returned. Any thread but the scan's own.
  void wait();

  /// What the scan leaves behind. To be read behind wait().
  const ScanResult& result() const { return m_result; }

 private:
  /// What the loop goes on with after a page.
  enum class PageStep { nextPage, leaveLoop };

  void run();
  void scan();
  template <typename Work>
  void attempt(Work work);
  bool begin();
  bool startDocuments();
  bool connect();
  void startCrawl();
  void extractLinksFromPage();
  PageStep visit(std::string_view url);
  bool isLost(int unansweredBelieved);
  void askWhetherLooping(std::string_view url);
  void usePage(std::string_view url, const FetchedPage& page);
  void listPage(std::string_view url, const FetchedPage& page);
  void followLinks(const PageContents& contents);
  void finishPage();
  void logPage(std::string_view url, const FetchedPage& page, PageStanding standing,
               LinkReason reason = LinkReason::none);
  void logLink(const JudgedLink& link, std::string_view address, std::optional<std::size_t> page,
               std::string_view name);
  void examineAnchor(const Anchor& anchor);
  bool listLink(std::string_view link, std::string_view title);
  enum class Level { next, same };
  std::optional<std::size_t> queueLink(std::string_view link, Level level);
  JudgedLink judge(const Anchor& anchor, std::string absolute) const;
  std::optional<std::size_t> followLink(const JudgedLink& link, std::string_view address,
                                        Level level = Level::next);
  void leaveOut(LinkReason reason, std::string_view link, std::size_t which = 0, std::string_view name = {});
  void countPage(std::string_view url, int status, std::string_view brokenReason);

  void queueSitemapPages();
  bool httpIsValid(const std::string& url);
  platform::HttpAnswer readRobots();
  std::string unreachableReason(const std::string& siteBaseURL);

  void buildPageTitleSitemap(std::string_view entry, std::string_view plainLink);
  void buildAllLinksSitemaps(std::string_view block);

  void scanFinished();
  void updateAllScanDetails();
  void finishJournal();
  void note(const std::filesystem::path& path, const platform::FileResult& result);
  ScanProgress progress() const;

  ScanServices m_services;
  const ScanSettings m_settings;
  sitemaps::SiteDocuments m_documents;
  sitemaps::EditKeeper m_edits;  // of the documents that are replaced
  platform::DateFormatter m_dates;

  // The crawl's own, touched by its thread alone.
  std::optional<PageJournal> m_journal;
  KeptPages m_pages;
  std::shared_ptr<PageQueue> m_uniquePages;
  std::unique_ptr<LinkRules> m_links;
  LeftOutCounter m_leftOut;
  RepeatWatch m_repeats;
  std::unordered_set<std::string> m_pageInnerLinks;  // links listed for the page in hand
  std::string m_fullPageData;  // its entry and those of its links; kept over a page without content
  std::string_view m_pageUrl;  // of the page in hand, as judged
  bool m_pageFull = false;     // it takes no more links
  bool m_pageInHand = false;   // it has its place in the documents, and is not counted yet
  std::size_t m_number = 0;    // of the page in hand: its index in the queue
  int m_level = 0;             // of the page in hand: so many links away from the start page
  std::size_t m_levelEnd = 0;  // index of the first page of the next level
  int m_unanswered = 0;        // pages in a row to which no answer came
  bool m_hasDocuments = false;
  int m_ssf = 0;               // pages handled: good, broken or skipped
  int m_pagesLeftOut = 0;      // of these, good ones that are not in the documents by the rules
  int m_totLinks = 0;          // links counted; also the next LINKID
  bool m_loopingArmed = true;  // the warning is given once a scan
  std::string m_startReason;   // why the start address did not do
  bool m_isRefused = false;    // for its password
  std::unique_ptr<char[]> m_reserve;
  ScanResult m_result;

  // Written by any thread, read by the crawl.
  std::atomic<bool> m_terminateScan = false;
  std::atomic<bool> m_errCont = false;  // the user has answered the warning
  std::stop_source m_stop;              // ends transfers

  std::jthread m_worker;  // last, so that it ends before anything that it uses
};

}  // namespace crawler
