// How a scan shows itself on a terminal: a live line, a line of JSON an event, or nothing.
#pragma once

#include <atomic>
#include <chrono>
#include <iosfwd>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "cli/scan_command.h"
#include "crawler/scan_view.h"
#include "crawler/site_scanner.h"
#include "report/last_changes.h"

namespace cli {

/// A view that shows nothing but warnings, and answers the looping warning as it was told. When nobody reads
/// any more what it writes, it cancels the scan.
class QuietView : public crawler::ScanView {
 public:
  explicit QuietView(LoopAnswer loops) : m_loops(loops) {}

  /// The scanner to answer to; set before the scan starts.
  void setScanner(crawler::SiteScanner& scanner) { m_scanner = &scanner; }

  /// Whether the reader of stdout or stderr went away during the scan. To be asked behind it.
  bool readerIsGone() const { return m_readerIsGone; }

  bool askAboutLooping() override;
  void scanMayNotEnd(const crawler::EndlessHint& hint) override;

 protected:
  // Each writes the text at once and whole, on whatever thread. Behind the last one nothing is written any
  // more.
  void write(std::ostream& stream, std::string_view text);
  void writeLast(std::ostream& stream, std::string_view text);

 private:
  void put(std::ostream& stream, std::string_view text);

  LoopAnswer m_loops;
  crawler::SiteScanner* m_scanner = nullptr;
  std::mutex m_mutex;  // guards the rest, and the streams
  bool m_isOver = false;
  bool m_readerIsGone = false;
};

/// One line on stderr, drawn anew at most ten times a second.
class BarView : public QuietView {
 public:
  using QuietView::QuietView;

  void scanStarted() override;
  void updateScanSheet(const crawler::ScanProgress& progress) override;
  void pageVisited(const crawler::VisitedPage& page) override { m_url = page.url; }
  bool askAboutLooping() override;
  void scanMayNotEnd(const crawler::EndlessHint& hint) override;
  void waiting(std::chrono::seconds wait) override;
  void scanFinished(const crawler::ScanResult&) override;

 private:
  void draw(const std::string& line);
  void erase();

  std::string m_url;
  std::chrono::steady_clock::time_point m_lastDrawn;
  std::atomic<std::chrono::steady_clock::time_point> m_waitingUntil{};  // the line says so until then
};

/// A JSON object a line on stdout for each event: start, page, broken, waiting, looping, mayNotEnd, leftOut
/// (one a reason, just before the last), finished. What changed is told behind them, when it is known.
class JsonView : public QuietView {
 public:
  JsonView(LoopAnswer loops, std::string siteName, std::string startUrl)
      : QuietView(loops), m_siteName(std::move(siteName)), m_startUrl(std::move(startUrl)) {}

  void scanStarted() override;
  void pageVisited(const crawler::VisitedPage& page) override;
  bool askAboutLooping() override;
  void scanMayNotEnd(const crawler::EndlessHint& hint) override;
  void waiting(std::chrono::seconds wait) override;
  void scanFinished(const crawler::ScanResult& result) override;

 private:
  std::string m_siteName;
  std::string m_startUrl;
  std::chrono::steady_clock::time_point m_started = std::chrono::steady_clock::now();
};

/// The view for a style; `automatic` draws the bar where stderr is a terminal.
std::unique_ptr<QuietView> makeView(const ScanOptions& options, const std::string& startUrl);

/// The event "changes", a line of JSON on stdout.
void printChangesEvent(const report::LastChanges& changes);

/// Seconds since `start`.
double secondsSince(std::chrono::steady_clock::time_point start);

}  // namespace cli
