#include "cli/scan_progress.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include <nlohmann/json.hpp>
#include <sys/ioctl.h>
#include <unistd.h>

namespace cli {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::chrono::milliseconds kRedrawInterval{100};
constexpr std::size_t kBarWidth = 20;
constexpr std::size_t kUsualWidth = 80;

std::size_t terminalWidth() {
  winsize size{};
  const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualWidth;
}

std::string bar(const crawler::ScanProgress& progress) {
  const auto part = static_cast<std::size_t>(progress.barValue());
  const auto whole = static_cast<std::size_t>(std::max(1, progress.barMaximum()));
  const std::size_t filled = std::min(kBarWidth, kBarWidth * part / whole);
  return "[" + std::string(filled, '#') + std::string(kBarWidth - filled, '.') + "]";
}

bool startsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// The first `width` characters of valid UTF-8.
std::string_view firstCharacters(std::string_view text, std::size_t width) {
  std::size_t seen = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (startsCharacter(text[at]) && seen++ == width) return text.substr(0, at);
  }
  return text;
}

void printEvent(const Json& event) {
  // Flushed a line at a time: whoever reads along wants to know now.
  std::cout << event.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
}

}  // namespace

void QuietView::askAboutLooping() {
  m_scanner->sheetDidEndShouldStopScan(m_loops == LoopAnswer::cancelScan
                                           ? crawler::LoopingAnswer::cancelScan
                                           : crawler::LoopingAnswer::continueScan);
}

void QuietView::scanMayNotEnd(const crawler::EndlessHint& hint) {
  printWarning(printable(hint.text()));
  if (hint.filter.empty()) return;
  printWarning("A filter would keep such addresses out: veskel-cli filters NAME --add '" +
               std::string(hint.filter) + "'");
}

void QuietView::scanFinished(const crawler::ScanResult& result, const crawler::PageQueue&) {
  m_result = result;
}

void BarView::scanStarted() {
  draw("Connecting...");
}

void BarView::updateScanSheet(const crawler::ScanProgress& progress) {
  const auto now = std::chrono::steady_clock::now();
  if (now - m_lastDrawn < kRedrawInterval) return;
  m_lastDrawn = now;
  draw(bar(progress) + " " + std::to_string(progress.pagesScanned) + " scanned, " +
       std::to_string(progress.pagesLeft()) + " left, " + std::to_string(progress.brokenLinks) + " broken, " +
       std::to_string(progress.linksFound) + " links  " + printable(m_url));
}

void BarView::askAboutLooping() {
  erase();
  printWarning(std::string(crawler::kLoopingTitle) + " " + std::string(crawler::kLoopingMessage));
  QuietView::askAboutLooping();
}

void BarView::scanMayNotEnd(const crawler::EndlessHint& hint) {
  erase();
  QuietView::scanMayNotEnd(hint);
}

void BarView::scanFinished(const crawler::ScanResult& result, const crawler::PageQueue& pages) {
  erase();
  QuietView::scanFinished(result, pages);
}

void BarView::draw(const std::string& line) {
  // Back to the start of the line, and what is left of the old one goes.
  std::cerr << '\r' << firstCharacters(line, terminalWidth() - 1) << "\x1b[K" << std::flush;
}

void BarView::erase() {
  std::cerr << "\r\x1b[K" << std::flush;
}

void JsonView::scanStarted() {
  printEvent({{"event", "start"}, {"site", m_siteName}, {"url", m_startUrl}});
}

void JsonView::pageVisited(const crawler::VisitedPage& page) {
  printEvent({{"event", "page"}, {"url", page.url}, {"status", page.status}});
  if (!page.brokenReason.empty()) {
    printEvent({{"event", "broken"}, {"url", page.url}, {"reason", page.brokenReason}});
  }
}

void JsonView::askAboutLooping() {
  printEvent({{"event", "looping"}, {"message", crawler::kLoopingMessage}});
  QuietView::askAboutLooping();
}

void JsonView::scanMayNotEnd(const crawler::EndlessHint& hint) {
  printEvent({{"event", "mayNotEnd"}, {"message", hint.text()}, {"filter", hint.filter}});
}

void JsonView::scanFinished(const crawler::ScanResult& result, const crawler::PageQueue& pages) {
  QuietView::scanFinished(result, pages);
  Json event = {{"event", "finished"},
                {"end", endName(result.end)},
                {"pagesFound", result.statistics.pagesFound},
                {"pagesScanned", result.progress.pagesScanned},
                {"pagesUsed", result.statistics.pagesUsed},
                {"brokenLinks", result.progress.brokenLinks},
                {"totalLinks", result.statistics.totalLinks},
                {"seconds", std::round(secondsSince(m_started) * 1000) / 1000}};
  if (!result.unreachableReason.empty()) event["errorCode"] = result.unreachableReason;
  for (const sitemaps::FileProblem& problem : result.problems) {
    event["problems"].push_back({{"file", problem.path.native()}, {"error", problem.result.error}});
  }
  printEvent(event);
}

std::unique_ptr<QuietView> makeView(const ScanOptions& options, const std::string& startUrl) {
  switch (options.progress) {
    case ProgressStyle::json:
      return std::make_unique<JsonView>(options.loops, options.siteName, startUrl);
    case ProgressStyle::bar:
      return std::make_unique<BarView>(options.loops);
    case ProgressStyle::none:
      break;
    case ProgressStyle::automatic:
      if (isatty(STDERR_FILENO) == 1) return std::make_unique<BarView>(options.loops);
  }
  return std::make_unique<QuietView>(options.loops);
}

std::string_view endName(crawler::ScanEnd end) {
  switch (end) {
    case crawler::ScanEnd::complete:
      return "complete";
    case crawler::ScanEnd::cancelled:
      return "cancelled";
    case crawler::ScanEnd::unreachable:
      return "unreachable";
    case crawler::ScanEnd::busy:
      return "busy";
    case crawler::ScanEnd::unwritable:
      return "unwritable";
  }
  return "";
}

double secondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace cli
