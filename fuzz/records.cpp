// Site records: any text may lie in the file. Input: a value, a second value, then the record.
#include <algorithm>
#include <array>
#include <climits>
#include <string>

#include "fuzz_target.h"
#include "store/site_record.h"

namespace {

using fuzz::require;

constexpr std::array kElements = {store::kSiteName,   store::kSiteUrl,    store::kIgnoreRobotFile,
                                  store::kPagesFound, store::kTotalLinks, store::kPagesUsed};

void checkValues(const std::string& record, const std::string& value) {
  for (const std::string_view element : kElements) {
    const std::string changed = store::withRecordValue(record, element, value);
    const auto old = store::recordValue(record, element);
    if (!old) {
      require(changed == record, "an element that is missing is not added");
      require(!store::recordCount(record, element), "an element that is missing has no count");
      continue;
    }
    require(old->find('\n') == std::string::npos, "a value ends at its line");
    require(
        !store::recordCount(record, element) || old->find_first_not_of("-0123456789") == std::string::npos,
        "a count is a number and nothing else");
    require(store::withRecordValue(record, element, *old) == record, "the old value changes nothing");
    // No value spans bytes that are no UTF-8.
    if (fuzz::isUtf8(value))
      require(store::recordValue(changed, element) == value, "a new value is read back");
  }
}

void checkCounters(const std::string& record) {
  const std::string complete = store::withMissingCounters(record);
  require(complete.starts_with(record), "counters are added at the end");
  require(store::withMissingCounters(complete) == complete, "counters are added once");

  const bool hasAll = std::all_of(kElements.begin() + 3, kElements.end(), [&](std::string_view counter) {
    return store::recordValue(record, counter).has_value();
  });
  require(store::withStatistics(record, {1, 2, 3}).has_value() == hasAll,
          "statistics need all of the counters, and nothing else");
}

void checkRobots(const std::string& record) {
  const auto old = store::recordValue(record, store::kIgnoreRobotFile);
  for (const bool ignore : {true, false}) {
    const std::string changed = store::withIgnoreRobots(record, ignore);
    if (old == "YES" || old == "NO") {
      require(store::ignoresRobots(changed) == ignore, "the robots switch is read back");
    } else {
      require(!store::ignoresRobots(record), "only YES switches robots.txt off");
    }
  }
}

void checkUpgrade(const std::string& record) {
  const auto name = store::recordValue(record, store::kSiteName);
  const auto url = store::recordValue(record, store::kSiteUrl);
  const auto upgraded = store::upgradedRecord(record);
  require(upgraded.has_value() == (name || url), "a text without name and URL is no record");
  if (!upgraded) return;
  if (name) require(store::recordValue(*upgraded, store::kSiteName) == name, "an upgrade keeps the name");
  const bool nested = name && name->find('<') != std::string::npos;
  if (url && !nested)
    require(store::recordValue(*upgraded, store::kSiteUrl) == url, "an upgrade keeps the URL");
}

/// A site's life: made, completed, scanned, changed. A name holds no slash, so it holds no end tag.
void checkOwnRecord(std::string name, const std::string& url) {
  std::erase(name, '/');
  if (!fuzz::isUtf8(name) || !fuzz::isUtf8(url)) return;
  const std::string record = store::newSiteRecord(name, url);
  require(store::recordValue(record, store::kSiteName) == name, "the name is read back");
  require(store::recordValue(record, store::kSiteUrl) == url, "the URL is read back");
  require(!store::ignoresRobots(record) || url.find('<') != std::string::npos,
          "a new site honours robots.txt");
  if ((name + url).find('<') != std::string::npos) return;  // may look like elements

  const auto scanned = store::withStatistics(store::withMissingCounters(record), {INT_MAX, 7, 0});
  require(scanned.has_value(), "a completed record takes statistics");
  require(store::recordCount(*scanned, store::kTotalLinks) == INT_MAX, "the links are read back");
  require(store::recordCount(*scanned, store::kPagesFound) == 7, "the pages found are read back");
  require(store::recordCount(*scanned, store::kPagesUsed) == 0, "the pages used are read back");
  const std::string switched = store::withIgnoreRobots(*scanned, true);
  require(store::ignoresRobots(switched), "the robots switch is read back");
  require(store::withIgnoreRobots(switched, false) == *scanned, "the robots switch goes back");
  require(store::recordValue(switched, store::kSiteUrl) == url, "counts and switch leave the URL alone");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = fuzz::textOf(data, size);
  const std::string first(fuzz::takeLine(rest));
  const std::string second(fuzz::takeLine(rest));
  const std::string record(rest);
  checkValues(record, first);
  checkCounters(record);
  checkRobots(record);
  checkUpgrade(record);
  checkOwnRecord(first, second);
  return 0;
}
