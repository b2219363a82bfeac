// How a scan shows itself on a terminal: a live line, a line of JSON an event, or nothing.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "cli/scan_command.h"
#include "crawler/scan_view.h"
#include "crawler/site_scanner.h"

namespace cli {

/// A view that shows nothing, answers the looping warning as it was told, and keeps the result.
class QuietView : public crawler::ScanView {
 public:
  explicit QuietView(LoopAnswer loops) : m_loops(loops) {}

  /// The scanner to answer to; set before the scan starts.
  void setScanner(crawler::SiteScanner& scanner) { m_scanner = &scanner; }

  /// How the scan ended. To be read once the scan is over.
  const crawler::ScanResult& result() const { return m_result; }

  void scanStarted() override {}
  void connectionEstablished() override {}
  void siteUnreachable(std::string_view) override {}
  void updateTotLink(int) override {}
  void updateScanSheet(const crawler::ScanProgress&) override {}
  void updateScanLinksList(std::string_view) override {}
  void pageVisited(const crawler::VisitedPage&) override {}
  void loopingError(crawler::LoopingSheet) override {}
  void askAboutLooping() override;
  void scanMayNotEnd(const crawler::EndlessHint& hint) override;
  void endStartAlert() override {}
  void updateAllScanDetails(const store::ScanStatistics&, int) override {}
  void endStopAlert() override {}
  void scanFinished(const crawler::ScanResult& result, const crawler::PageQueue& pages) override;

 protected:
  LoopAnswer loops() const { return m_loops; }

 private:
  LoopAnswer m_loops;
  crawler::SiteScanner* m_scanner = nullptr;
  crawler::ScanResult m_result;
};

/// One line on stderr, drawn anew at most ten times a second.
class BarView : public QuietView {
 public:
  using QuietView::QuietView;

  void scanStarted() override;
  void siteUnreachable(std::string_view) override { erase(); }
  void updateScanSheet(const crawler::ScanProgress& progress) override;
  void pageVisited(const crawler::VisitedPage& page) override { m_url = page.url; }
  void askAboutLooping() override;
  void scanMayNotEnd(const crawler::EndlessHint& hint) override;
  void endStartAlert() override { erase(); }
  void scanFinished(const crawler::ScanResult& result, const crawler::PageQueue& pages) override;

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
  void askAboutLooping() override;
  void scanMayNotEnd(const crawler::EndlessHint& hint) override;
  void scanFinished(const crawler::ScanResult& result, const crawler::PageQueue& pages) override;

 private:
  std::string m_siteName;
  std::string m_startUrl;
  std::chrono::steady_clock::time_point m_started = std::chrono::steady_clock::now();
};

/// The view for a style; `automatic` draws the bar where stderr is a terminal.
std::unique_ptr<QuietView> makeView(const ScanOptions& options, const std::string& startUrl);

/// "complete", "cancelled" and so on, as the JSON names it.
std::string_view endName(crawler::ScanEnd end);

/// Seconds since `start`.
double secondsSince(std::chrono::steady_clock::time_point start);

}  // namespace cli
