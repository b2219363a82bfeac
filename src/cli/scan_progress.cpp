#include "cli/scan_progress.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <iostream>

#include <nlohmann/json.hpp>
#include <sys/ioctl.h>
#include <unistd.h>

#include "report/left_out_json.h"

namespace cli {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::chrono::milliseconds kRedrawInterval{100};
constexpr std::size_t kBarWidth = 20;
constexpr std::size_t kUsualWidth = 80;
constexpr std::string_view kErasedLine = "\r\x1b[K";

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

std::string lineOf(const Json& event) {
  return event.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// As the JSON names it.
std::string_view endName(crawler::ScanEnd end) {
  switch (end) {
    case crawler::ScanEnd::complete:
      return "complete";
    case crawler::ScanEnd::cancelled:
      return "cancelled";
    case crawler::ScanEnd::lost:
      return "lost";
    case crawler::ScanEnd::failed:
      return "failed";
    case crawler::ScanEnd::unreachable:
      return "unreachable";
    case crawler::ScanEnd::forbidden:
      return "forbidden";
    case crawler::ScanEnd::busy:
      return "busy";
    case crawler::ScanEnd::unwritable:
      return "unwritable";
  }
  return "";
}

}  // namespace

void QuietView::write(std::ostream& stream, std::string_view text) {
  const std::lock_guard lock(m_mutex);
  if (!m_isOver) put(stream, text);
}

void QuietView::writeLast(std::ostream& stream, std::string_view text) {
  const std::lock_guard lock(m_mutex);
  put(stream, text);
  m_isOver = true;
}

void QuietView::put(std::ostream& stream, std::string_view text) {
  errno = 0;
  if (stream << text << std::flush || errno != EPIPE || m_readerIsGone) return;
  m_readerIsGone = true;
  m_scanner->cancelScan();
}

bool QuietView::askAboutLooping() {
  m_scanner->sheetDidEndShouldStopScan(m_loops == LoopAnswer::cancelScan
                                           ? crawler::LoopingAnswer::cancelScan
                                           : crawler::LoopingAnswer::continueScan);
  return true;
}

void QuietView::scanMayNotEnd(const crawler::EndlessHint& hint) {
  printWarning(printable(hint.text()));
  if (hint.filter.empty()) return;
  printWarning("A filter would keep such addresses out: veskel-cli filters NAME --add '" +
               std::string(hint.filter) + "'");
}

void BarView::scanStarted() {
  draw("Connecting...");
}

void BarView::updateScanSheet(const crawler::ScanProgress& progress) {
  const auto now = std::chrono::steady_clock::now();
  if (now - m_lastDrawn < kRedrawInterval || now < m_waitingUntil.load()) return;
  m_lastDrawn = now;
  draw(bar(progress) + " " + std::to_string(progress.pagesScanned) + " scanned, " +
       std::to_string(progress.pagesLeft()) + " left, " + std::to_string(progress.brokenLinks) + " broken, " +
       std::to_string(progress.linksFound) + " links  " + printable(m_url));
}

bool BarView::askAboutLooping() {
  erase();
  printWarning(std::string(crawler::kLoopingTitle) + " " + std::string(crawler::kLoopingMessage));
  return QuietView::askAboutLooping();
}

void BarView::scanMayNotEnd(const crawler::EndlessHint& hint) {
  erase();
  QuietView::scanMayNotEnd(hint);
}

void BarView::waiting(std::chrono::seconds wait) {
  m_waitingUntil = std::chrono::steady_clock::now() + wait;
  draw(crawler::waitingText(wait));
}

void BarView::scanFinished(const crawler::ScanResult&) {
  writeLast(std::cerr, kErasedLine);
}

void BarView::draw(const std::string& line) {
  // Back to the start of the line, and what is left of the old one goes.
  write(std::cerr, "\r" + std::string(firstCharacters(line, terminalWidth() - 1)) + "\x1b[K");
}

void BarView::erase() {
  write(std::cerr, kErasedLine);
}

void JsonView::scanStarted() {
  write(std::cout, lineOf({{"event", "start"}, {"site", m_siteName}, {"url", m_startUrl}}));
}

void JsonView::pageVisited(const crawler::VisitedPage& page) {
  write(std::cout, lineOf({{"event", "page"}, {"url", page.url}, {"status", page.status}}));
  if (page.brokenReason.empty()) return;
  write(std::cout, lineOf({{"event", "broken"}, {"url", page.url}, {"reason", page.brokenReason}}));
}

bool JsonView::askAboutLooping() {
  write(std::cout, lineOf({{"event", "looping"}, {"message", crawler::kLoopingMessage}}));
  return QuietView::askAboutLooping();
}

void JsonView::scanMayNotEnd(const crawler::EndlessHint& hint) {
  write(std::cout, lineOf({{"event", "mayNotEnd"}, {"message", hint.text()}, {"filter", hint.filter}}));
}

void JsonView::waiting(std::chrono::seconds wait) {
  write(std::cout, lineOf({{"event", "waiting"}, {"seconds", wait.count()}}));
}

void JsonView::scanFinished(const crawler::ScanResult& result) {
  for (const crawler::LeftOutGroup& group : result.leftOut.groups) {
    Json event = {{"event", "leftOut"}};
    event.update(report::leftOutJson(group));
    write(std::cout, lineOf(event));
  }
  Json event = {{"event", "finished"},
                {"end", endName(result.end)},
                {"pagesFound", result.statistics.pagesFound},
                {"pagesScanned", result.progress.pagesScanned},
                {"pagesUsed", result.statistics.pagesUsed},
                {"brokenLinks", result.progress.brokenLinks},
                {"totalLinks", result.statistics.totalLinks},
                {"seconds", std::round(secondsSince(m_started) * 1000) / 1000}};
  if (result.edits.valuesTakenOver > 0) event["valuesTakenOver"] = result.edits.valuesTakenOver;
  if (result.edits.isSetKept) event["formerSitemapsKept"] = true;
  if (!result.unreachableReason.empty()) event["errorCode"] = result.unreachableReason;
  if (!result.refusal.empty()) event["refusal"] = result.refusal;
  if (!result.failure.empty()) event["error"] = result.failure;
  for (const sitemaps::FileProblem& problem : result.problems) {
    event["problems"].push_back({{"file", problem.path.native()}, {"error", problem.result.error}});
  }
  writeLast(std::cout, lineOf(event));
}

void printChangesEvent(const report::LastChanges& changes) {
  std::cout << lineOf({{"event", "changes"},
                       {"new", changes.added},
                       {"gone", changes.gone},
                       {"renamed", changes.renamed},
                       {"newlyBroken", changes.newlyBroken},
                       {"repaired", changes.repaired}});
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

double secondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace cli
