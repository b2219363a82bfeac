// How a scan shows itself on a terminal: a live line, a line of JSON an event, or nothing.
#pragma once

#include <chrono>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

#include "cli/scan_command.h"
#include "crawler/scan_view.h"
#include "crawler/site_scanner.h"

namespace cli {

/// A view that shows nothing but warnings, and answers the looping warning as it was told. When nobody reads
/// any more what it writes, it cancels the scan.
class QuietView : public crawler::ScanView {
 public:
  explicit QuietView(LoopAnswer loops) : m_loops(loops) {}

  /// The scanner to answer to; set before the scan starts.
  void setScanner(crawler::SiteScanner& scanner) { m_scanner = &scanner; }

  /// Whether the reader of stdout or stderr went away during the scan.
  bool readerIsGone() const { return m_readerIsGone; }

  bool askAboutLooping() override;
  void scanMayNotEnd(const crawler::EndlessHint& hint) override;

 protected:
  /// Writes the text at once.
  void write(std::ostream& stream, std::string_view text);

 private:
  LoopAnswer m_loops;
  crawler::SiteScanner* m_scanner = nullptr;
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
  void scanFinished(const crawler::ScanResult&) override { erase(); }

 private:
  void draw(const std::string& line);
  void erase();

  std::string m_url;
  std::chrono::steady_clock::time_point m_lastDrawn;
};

/// A JSON object a line on stdout for each event: start, page, broken, finished.
class JsonView : public QuietView {
 public:
  JsonView(LoopAnswer loops, std::string siteName, std::string startUrl)
      : QuietView(loops), m_siteName(std::move(siteName)), m_startUrl(std::move(startUrl)) {}

  void scanStarted() override;
  void pageVisited(const crawler::VisitedPage& page) override;
  bool askAboutLooping() override;
  void scanMayNotEnd(const crawler::EndlessHint& hint) override;
  void scanFinished(const crawler::ScanResult& result) override;

 private:
  std::string m_siteName;
  std::string m_startUrl;
  std::chrono::steady_clock::time_point m_started = std::chrono::steady_clock::now();
};

/// The view for a style; `automatic` draws the bar where stderr is a terminal.
std::unique_ptr<QuietView> makeView(const ScanOptions& options, const std::string& startUrl);

/// Seconds since `start`.
double secondsSince(std::chrono::steady_clock::time_point start);

}  // namespace cli
