// How a scan shows itself to the user.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "crawler/page_queue.h"
#include "crawler/repeat_watch.h"
#include "sitemaps/site_documents.h"
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
  unreachable,  // the start address did not answer with a page
  busy,         // another scan of the same site is running; nothing was touched
  unwritable,   // the documents could not be started, or the folder not be locked
};

struct ScanResult {
  ScanEnd end = ScanEnd::complete;
  ScanProgress progress = {};
  store::ScanStatistics statistics = {};
  std::string unreachableReason = {};                // "404 - Not Found", for ScanEnd::unreachable
  std::vector<sitemaps::FileProblem> problems = {};  // files that could not be read or written
  platform::FileResult reasons = {};                 // of keeping why pages are broken, beside the documents
};

enum class LoopingSheet { stop, restart };

/// Told how a scan goes, on the scan's thread, in this order. Implementations return at once, whatever they
/// do with the news, and do not throw. Views into texts are valid during the call.
class ScanView {
 public:
  virtual ~ScanView() = default;

  /// Controls are locked, the filter drawer closes, the list of links is emptied, the connection sheet comes
  /// up.
  virtual void scanStarted() = 0;

  /// The connection sheet makes way for the progress sheet.
  virtual void connectionEstablished() = 0;

  /// "The Site URL Could Not Be Reached": `errorText` is the message below it. scanFinished() follows.
  virtual void siteUnreachable(std::string_view errorText) = 0;

  /// Another link was counted.
  virtual void updateTotLink(int linksFound) = 0;

  /// The counters moved: for every anchor examined and after every page.
  virtual void updateScanSheet(const ScanProgress& progress) = 0;

  /// A link was found, absolute, with whatever spelling the page gave it.
  virtual void updateScanLinksList(std::string_view link) = 0;

  /// A page was handled.
  virtual void pageVisited(const VisitedPage& page) = 0;

  /// The progress sheet goes down before the looping warning, and up again behind it.
  virtual void loopingError(LoopingSheet sheet) = 0;

  /// Asks the user whether to go on with a site whose addresses hold many "?". The answer goes to
  /// SiteScanner::sheetDidEndShouldStopScan(), from any thread, also from within this call.
  virtual void askAboutLooping() = 0;

  /// The site seems to have no end. Told once, as a notice that interrupts nothing.
  virtual void scanMayNotEnd(const EndlessHint& hint) = 0;

  /// The progress sheet makes way for the closing panel, and the counters go back to zero.
  virtual void endStartAlert() = 0;

  /// The final counts, once they are in the record.
  virtual void updateAllScanDetails(const store::ScanStatistics& statistics, int brokenLinks) = 0;

  /// The closing panel goes down.
  virtual void endStopAlert() = 0;

  /// Once and last, however the scan ended. `pages` are all pages known, in the order found.
  virtual void scanFinished(const ScanResult& result, const PageQueue& pages) = 0;
};

/// The texts of the two alerts, the same in every view.
inline constexpr std::string_view kUnreachableTitle = "The Site URL Could Not Be Reached";
inline constexpr std::string_view kUnreachablePrefix = "Error Code: ";
inline constexpr std::string_view kLoopingTitle = "There may be an issue with the site you are scanning.";
inline constexpr std::string_view kLoopingMessage =
    "URL parameters have been found containing multiple ?s which may be invalid.";

}  // namespace crawler
