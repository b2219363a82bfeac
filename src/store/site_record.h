// The site record as text: one element per line, values raw. Rules only; files are read and
// written by site_list.h and add_edit_delete_sites.h.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace store {

/// The elements of a record.
inline constexpr std::string_view kSiteName = "siteName";
inline constexpr std::string_view kSiteUrl = "siteURL";
inline constexpr std::string_view kIgnoreRobotFile = "ignoreRobotFile";
inline constexpr std::string_view kPagesFound = "pagesFound";
inline constexpr std::string_view kTotalLinks = "totalLinks";
inline constexpr std::string_view kPagesUsed = "pagesUsed";

/// What one scan counted.
struct ScanStatistics {
  int totalLinks = 0;  // one per page whose content was fetched plus one per anchor examined
  int pagesFound = 0;  // pages known at the end, visited or not
  int pagesUsed = 0;   // pages visited minus broken ones
};

/// The record of a new site: five lines, no line end after the last.
std::string newSiteRecord(std::string_view name, std::string_view url);

/// The value of an element ("siteURL"), as written; nothing when the element is missing. A value ends at its
/// line.
std::optional<std::string> recordValue(std::string_view record, std::string_view element);

/// A count ("pagesFound"); nothing when the element is missing or holds no decimal number.
std::optional<int> recordCount(std::string_view record, std::string_view element);

/// `record` with the element's value replaced wherever the element stands with the same old value; unchanged
/// when it is missing. All other text stays byte for byte.
std::string withRecordValue(std::string_view record, std::string_view element, std::string_view value);

/// `record` with the counters that it lacks appended as 0: pagesFound, totalLinks, pagesUsed, in this order.
std::string withMissingCounters(std::string_view record);

/// `record` with the counts of a scan; nothing when one of the three elements is missing.
std::optional<std::string> withStatistics(std::string_view record, const ScanStatistics& statistics);

/// Whether the user wants robots.txt ignored. A record without the element says no.
bool ignoresRobots(std::string_view record);

/// `record` with the robots switch turned on or off.
std::string withIgnoreRobots(std::string_view record, bool ignore);

/// The record that replaces one in the older format: name and URL are kept, switch and counts start anew. The
/// line of an element that was missing is left empty; nothing for a text that has neither, which is no record
/// at all.
std::optional<std::string> upgradedRecord(std::string_view olderRecord);

}  // namespace store
