// Site records: any text may lie in the file. Input: a value, a line to pass over, then the record.
#include <array>
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

}  // namespace

void fuzz::tryInput(std::string_view rest) {
  const std::string value(fuzz::takeLine(rest));
  fuzz::takeLine(rest);
  const std::string record(rest);
  checkValues(record, value);
  checkCounters(record);
  checkRobots(record);
  checkUpgrade(record);
}
