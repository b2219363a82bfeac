// The pages that a scan has fetched, kept in a file, so that a scan that was stopped or killed can go on.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "crawler/page_record.h"
#include "platform/files.h"
#include "store/site_settings.h"
#include "store/state_folder.h"

namespace crawler {

/// What a journal says of its scan: pages are read anew when one of these changes.
struct ScanIdentity {
  std::string startUrl;
  store::LinkStyle links = store::LinkStyle::simple;

  bool operator==(const ScanIdentity&) const = default;
};

/// The scan of this site that could go on, if there is one. Cheap, whatever it has kept.
std::optional<ScanIdentity> unfinishedScan(const store::StateFolder& state, std::string_view siteName);

/// One file in the site's state folder, "unfinished-scan.tsv": a line that says which scan it is of, and one
/// a page. It grows while the scan runs and is gone when the scan is complete. What was added in the second
/// before a process is killed may be lost with it; then those pages are fetched again. The scan's thread,
/// which holds the site's lock.
class PageJournal {
 public:
  /// Touches nothing yet.
  PageJournal(const store::StateFolder& state, std::string_view siteName, std::uint64_t maxBytes);

  /// Begins with no page.
  void beginAnew(const ScanIdentity& scan);
  /// Goes on with the pages that are there, which are kept; begins anew where they are another scan's.
  void goOn(const ScanIdentity& scan);

  /// Whether a page was there when it went on.
  bool holds(std::string_view url) const { return m_places.contains(std::hash<std::string_view>{}(url)); }
  /// Such a page; nothing when it cannot be read any more.
  std::optional<PageRecord> find(std::string_view url);

  void add(std::string_view url, const FetchedPage& page, const std::optional<std::string>& date);

  /// Writes what is left to write.
  void finish();
  /// The scan is complete: nothing is left to go on with.
  void remove();

  /// What went wrong. From then on nothing is kept, and the file is gone, so that it takes no room.
  const platform::FileResult& result() const { return m_result; }

 private:
  struct Place {
    std::uint64_t offset;
    std::size_t size;
  };

  void write();
  void giveUp(platform::FileResult result);

  std::filesystem::path m_file;
  const std::uint64_t m_maxBytes;
  platform::FileAppender m_appender;
  platform::FileResult m_result;
  bool m_isKept = false;
  std::uint64_t m_size = 0;
  std::string m_unwritten;
  std::chrono::steady_clock::time_point m_lastWritten;
  std::ifstream m_reader;
  std::unordered_map<std::uint64_t, Place> m_places;  // by the address's hash
};

}  // namespace crawler
