// Keeps what a scan meets, and makes it the site's report when the scan ends.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "crawler/scan_log.h"
#include "report/report_database.h"
#include "store/state_folder.h"

namespace report {

/// While the scan runs its pages go to a file without a name, and are counted in some twenty bytes a page;
/// the addresses outside of the site are kept in memory, up to a bound. The database is written in one
/// transaction at the end: until then, and when the process is killed, it holds the scans before. Borrowed by
/// one scan.
class ReportWriter : public crawler::ScanLog {
 public:
  static constexpr std::size_t kMostOutside = 100'000;

  ReportWriter(const store::StateFolder& state, std::string siteName);

  void scanStarted() override;
  void pageMet(const crawler::MetPage& page) override;
  void linkToPage(std::size_t number, std::string_view name) override;
  void linkOutside(std::string_view address, std::string_view name) override;
  /// What could not be kept stands in the result.
  void scanEnded(crawler::ScanResult& result) override;

 private:
  /// So many pages link there, of which this was the last.
  struct Linked {
    std::uint32_t pages = 0;
    std::uint32_t last = 0;  // its number + 1
  };

  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void openDraft();
  void finishPage();
  void flush();
  void link(Linked& linked, const Target& target, std::string_view name);
  platform::FileResult write(const ScanFacts& facts, ReportDatabase::Use use, bool& isDamaged,
                             std::string& notice);
  bool readPage(std::string& bytes);

  const store::StateFolder& m_state;
  const std::string m_siteName;
  std::int64_t m_started = 0;
  std::unique_ptr<std::FILE, CloseFile> m_draft;
  platform::FileResult m_failure;  // from then on nothing is kept

  std::string m_page;   // the page in hand, without its links
  std::string m_links;  // of the page in hand
  std::uint32_t m_number = 0;
  std::string m_unwritten;
  std::vector<Linked> m_linkedPages;  // by number
  std::vector<Linked> m_linkedOutside;
  std::unordered_map<std::string, std::uint32_t> m_outside;
  bool m_hasAllOutside = true;
};

}  // namespace report
