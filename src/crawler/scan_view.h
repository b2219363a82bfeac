// How a scan shows itself to the user.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/left_out.h"
#include "crawler/page_queue.h"
#include "crawler/repeat_watch.h"
#include "platform/phrases.h"
#include "sitemaps/edit_keeper.h"
#include "sitemaps/site_documents.h"
#include "store/broken_reasons.h"
#include "store/site_record.h"

namespace crawler {

/// Where a running scan stands.
struct ScanProgress {
  int pagesFound = 0;
  int pagesScanned = 0;
  int brokenLinks = 0;
  int linksFound = 0;

  int pagesLeft() const { return pagesFound - pagesScanned; }
  /// The progress bar: while only one page is known it stands at 1 of 5, so that it does not look done.
  int barMaximum() const { return pagesFound > 1 ? pagesFound : 5; }
  int barValue() const { return pagesFound > 1 ? pagesScanned : 1; }
};

/// A page that was handled.
struct VisitedPage {
  std::string_view url;
  int status;
  std::string_view brokenReason;  // empty for a page that is not broken
};

enum class ScanEnd {
  complete,     // every page was visited
  cancelled,    // the user stopped it, or the limit on pages was reached
  lost,         // the site does not answer any more
  failed,       // there was no memory to go on; what could be closed was
  unreachable,  // the start address did not answer with a page
  forbidden,    // robots.txt keeps scans from the start address, or could not be read
  busy,         // another scan of the same site is running; nothing was touched
  unwritable,   // the documents could not be started, or the folder not be locked
};

/// All that a scan leaves behind, handed over when it ends.
struct ScanResult {
  std::string siteName = {};
  ScanEnd end = ScanEnd::complete;
  ScanProgress progress = {};
  store::ScanStatistics statistics = {};
  std::string unreachableReason = {};  // "404 - Not Found", for ScanEnd::unreachable
  std::string refusal = {};            // a sentence without its full stop, for ScanEnd::forbidden
  std::string reportNotice = {};       // a sentence, when the report of the scans before could not be used
  std::string failure = {};            // what happened, for ScanEnd::failed
  bool documentsClosed = false;        // except those among the problems
  bool canGoOn = false;                // a later scan can, with the pages fetched so far
  LeftOut leftOut = {};
  std::vector<std::string> sitemapProblems = {};     // of the site's own sitemaps, a sentence each
  std::vector<store::BrokenPage> brokenPages = {};   // in the order found
  std::shared_ptr<const PageQueue> pages = {};       // all pages known, in the order found; never null
  std::vector<sitemaps::FileProblem> problems = {};  // files that could not be read or written
  platform::FileResult reasons = {};                 // of keeping why pages are broken, beside the documents
  platform::FileResult leftOutKept = {};             // of keeping what was left out, likewise
  platform::FileResult reportKept = {};              // of keeping the report, likewise
  platform::FileResult pagesKept = {};               // of keeping pages to go on with, likewise
  sitemaps::KeptEdits edits = {};                    // of the documents that were there before, likewise

  /// Whether pages were visited, so that the counts and lists say something.
  bool hasCounts() const {
    return end == ScanEnd::complete || end == ScanEnd::cancelled || end == ScanEnd::lost ||
           end == ScanEnd::failed;
  }
};

/// Told how a scan goes, in this order. A listener overrides what it wants to hear. Called on the scan's
/// thread, unless it listens by way of another view or the call says otherwise; returns at once, whatever it
/// does with the news. Views into texts are valid during the call.
class ScanView {
 public:
  virtual ~ScanView() = default;

  /// The site's folder is locked and its documents are about to be started.
  virtual void scanStarted() {}

  /// The start address has answered, and the crawl begins.
  virtual void connectionEstablished() {}

  /// The counters moved: for every anchor examined and after every page.
  virtual void updateScanSheet(const ScanProgress&) {}

  /// A link was found, absolute, with whatever spelling the page gave it.
  virtual void updateScanLinksList(std::string_view /*link*/) {}

  /// A page was handled.
  virtual void pageVisited(const VisitedPage&) {}

  /// Asks the user whether to go on with a site whose addresses hold many "?". Whoever says true sees to it
  /// that the answer goes to SiteScanner::sheetDidEndShouldStopScan(), from any thread, also from within this
  /// call; the scan waits for it. Else it goes on.
  virtual bool askAboutLooping() { return false; }

  /// The site seems to have no end. Told once, as a notice that interrupts nothing.
  virtual void scanMayNotEnd(const EndlessHint&) {}

  /// The server asks for patience: for so long it is left alone. Told by the threads that fetch, whatever
  /// else is being told, and by those that are about to end also behind scanFinished().
  virtual void waiting(std::chrono::seconds) {}

  /// The crawl is over, and the documents are about to be closed.
  virtual void closingDocuments() {}

  /// Once and last, however the scan ended.
  virtual void scanFinished(const ScanResult&) {}
};

/// "Waiting: the server asks for patience, 8 seconds"
std::string waitingText(std::chrono::seconds wait);

/// The texts of the two alerts, the same in every view.
inline constexpr std::string_view kUnreachableTitle =
    platform::Phrases::noop("The Site URL Could Not Be Reached");
inline constexpr std::string_view kUnreachablePrefix = platform::Phrases::noop("Error Code: ");
inline constexpr std::string_view kForbiddenTitle = platform::Phrases::noop("The Site May Not Be Scanned");
inline constexpr std::string_view kLostTitle = platform::Phrases::noop("The Site Does Not Answer Any More");
inline constexpr std::string_view kLoopingTitle =
    platform::Phrases::noop("There may be an issue with the site you are scanning.");
inline constexpr std::string_view kLoopingMessage =
    platform::Phrases::noop("URL parameters have been found containing multiple ?s which may be invalid.");

}  // namespace crawler
