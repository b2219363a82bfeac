#include "store/site_record.h"

#include <array>
#include <charconv>
#include <functional>
#include <map>
#include <mutex>
#include <system_error>

#include "platform/regex.h"
#include "platform/text.h"

namespace store {

namespace {

constexpr std::array<std::string_view, 3> kCounters = {kPagesFound, kTotalLinks, kPagesUsed};

std::string element(std::string_view name, std::string_view value) {
  std::string text;
  text.append("<").append(name).append(">").append(value).append("</").append(name).append(">");
  return text;
}

/// The expression for an element's line, compiled once for each element. Greedy: a value may hold its own end
/// tag.
const platform::Regex& elementPattern(std::string_view name) {
  static std::mutex mutex;
  static std::map<std::string, platform::Regex, std::less<>>
      patterns;  // guarded by `mutex`; entries never move
  const std::lock_guard lock(mutex);
  auto found = patterns.find(name);
  if (found == patterns.end()) {
    found = patterns.try_emplace(std::string(name), element(name, "(.*)")).first;
  }
  return found->second;
}

/// The first line of the element with its line end; only the line end when the element is missing.
std::string elementLine(std::string_view record, std::string_view name) {
  const auto match = elementPattern(name).find(record);
  return (match ? std::string(match->whole) : std::string()) + "\n";
}

/// What follows name and URL in a record that was never scanned.
std::string freshElements() {
  return element(kIgnoreRobotFile, "NO") + "\n" + element(kPagesFound, "0") + "\n" +
         element(kTotalLinks, "0");
}

}  // namespace

std::string newSiteRecord(std::string_view name, std::string_view url) {
  return element(kSiteName, name) + "\n" + element(kSiteUrl, url) + "\n" + freshElements();
}

std::optional<std::string> recordValue(std::string_view record, std::string_view name) {
  const auto match = elementPattern(name).find(record);
  if (!match) return {};
  return std::string(match->groups[0]);
}

std::optional<int> recordCount(std::string_view record, std::string_view name) {
  const auto value = recordValue(record, name);
  if (!value) return {};
  int count = 0;
  const char* end = value->data() + value->size();
  const auto [stop, error] = std::from_chars(value->data(), end, count);
  if (error != std::errc() || stop != end) return {};
  return count;
}

std::string withRecordValue(std::string_view record, std::string_view name, std::string_view value) {
  const auto match = elementPattern(name).find(record);
  if (!match) return std::string(record);
  return platform::replaceText(record, match->whole, element(name, value));
}

std::string withMissingCounters(std::string_view record) {
  const std::string folded = platform::foldCase(record);
  std::string result(record);
  for (const std::string_view counter : kCounters) {
    // Any case counts as there: a second element of the name would never be read, but grow the record.
    const std::string tag = platform::foldCase("<" + std::string(counter) + ">");
    if (folded.find(tag) == std::string::npos) result += "\n" + element(counter, "0");
  }
  return result;
}

std::optional<std::string> withStatistics(std::string_view record, const ScanStatistics& statistics) {
  for (const std::string_view counter : kCounters) {
    if (!elementPattern(counter).find(record)) return {};
  }
  std::string result = withRecordValue(record, kTotalLinks, std::to_string(statistics.totalLinks));
  result = withRecordValue(result, kPagesFound, std::to_string(statistics.pagesFound));
  return withRecordValue(result, kPagesUsed, std::to_string(statistics.pagesUsed));
}

bool ignoresRobots(std::string_view record) {
  return recordValue(record, kIgnoreRobotFile) == "YES";
}

std::string withIgnoreRobots(std::string_view record, bool ignore) {
  const std::string off = element(kIgnoreRobotFile, "NO");
  const std::string on = element(kIgnoreRobotFile, "YES");
  return ignore ? platform::replaceText(record, off, on) : platform::replaceText(record, on, off);
}

std::optional<std::string> upgradedRecord(std::string_view olderRecord) {
  if (!recordValue(olderRecord, kSiteName) && !recordValue(olderRecord, kSiteUrl)) return {};
  return elementLine(olderRecord, kSiteName) + elementLine(olderRecord, kSiteUrl) + freshElements();
}

}  // namespace store
