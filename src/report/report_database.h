// The database of a site's scans, "report.db" in its state folder.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/database.h"
#include "report/link_check.h"
#include "report/report.h"
#include "store/state_folder.h"

namespace report {

/// What is written of a complete scan, piece by piece.
struct PageRow {
  const Page& page;
  std::string_view links;  // see packLink()
};

/// When the links were checked last.
struct CheckFacts {
  std::int64_t started = 0;  // seconds since 1970-01-01 UTC; 0 when they never were
  std::int64_t ended = 0;    // likewise; 0 while the check is not through

  bool isKnown() const { return started != 0; }
  bool isUnfinished() const { return started != 0 && ended == 0; }
};

/// A file that is broken, or written by another version, is set aside under another name: reports are a
/// convenience, and the next scan makes a new one. Whoever writes holds the site's lock. One thread at a
/// time; several may have one each.
class ReportDatabase {
 public:
  enum class Use {
    read,         //
    write,        // makes the file where it is missing, and sets aside what cannot be used
    writeInPlace  // of one that is damaged, however healthy it looks
  };

  ReportDatabase(const store::StateFolder& state, std::string_view siteName, Use use);

  /// `missing` when no scan was kept yet.
  const platform::FileResult& result() const { return m_refused.ok() ? m_database->result() : m_refused; }
  /// Whether the file cannot be used, and a new one would do.
  bool isDamaged() const { return m_database->isDamaged(); }
  /// A sentence when a file was set aside; empty otherwise.
  const std::string& notice() const { return m_notice; }

  /// All scans, the newest first.
  std::vector<ScanFacts> history();

  /// The complete scans whose pages are kept, at most two, the newest first.
  std::vector<ScanFacts> keptScans();

  /// One of those.
  ScanContents contents(const ScanFacts& scan);
  /// Of that, the addresses outside of the site.
  std::vector<OutsideAddress> outside(const ScanFacts& scan);
  bool hasAllOutside(const ScanFacts& scan);
  /// Its pages one by one, in the order found.
  void eachPage(const ScanFacts& scan, const std::function<void(Page)>& use);

  /// Who links to each of these, in the order of the pages. One pass over all links, whose time grows with
  /// the site.
  std::map<Target, std::vector<LinkingPage>> linksTo(const ScanFacts& scan, const std::set<Target>& targets);

  /// What the last check of the links has found, by address.
  std::vector<LinkCheck> linkChecks();
  CheckFacts lastCheck();

  // Writing a check, each in a transaction of its own:
  void beginCheck();  // forgets the last one
  void keepChecks(const std::vector<LinkCheck>& checks);
  void finishCheck();

  // Writing a scan, in one transaction: all is there, or nothing is changed.
  /// `facts.id` is given by the database.
  void begin(const ScanFacts& facts);
  void add(const PageRow& row);
  void add(const OutsideAddress& address);
  /// Keeps the pages of the two newest complete scans, and drops those of others.
  void commit(bool hasAllOutside);

 private:
  bool setAside(const std::filesystem::path& file, std::string_view why);

  std::optional<platform::Database> m_database;
  std::optional<platform::Statement> m_addPage;
  std::optional<platform::Statement> m_addOutside;
  std::int64_t m_scan = 0;         // that is being written
  platform::FileResult m_refused;  // why the database is not used, whatever it says itself
  std::string m_notice;
};

/// Adds a link to those of a page. They are kept with the page that they stand on.
void packLink(std::string& links, const Target& target, std::string_view name);
/// Calls back for each link packed; what is cut off is passed over.
void eachLink(std::string_view links, const std::function<void(const Target&, std::string_view name)>& use);

}  // namespace report
