#include "report/report_database.h"

#include <algorithm>
#include <array>

#include "platform/phrases.h"

namespace report {

namespace {

using crawler::LinkReason;
using crawler::PageStanding;
using platform::Database;
using platform::Phrases;
using platform::Statement;

constexpr std::int64_t kVersion = 3;
constexpr std::string_view kFileName = "report.db";
constexpr std::string_view kPageSize = "PRAGMA page_size = 16384";
constexpr std::size_t kNameBytes = 200;
constexpr std::size_t kScansKept = 2;

// Pages are rows by number, not by a key of columns: those lie in the tree's inner pages too, which hold no
// row of more than a quarter of their size. With rows of some 1,200 bytes three quarters of the file were
// empty.
constexpr std::array kSchema = {
    "CREATE TABLE scans (id INTEGER PRIMARY KEY, started INTEGER, ended INTEGER, end TEXT, pages_found "
    "INTEGER, "
    "pages_used INTEGER, broken INTEGER, links INTEGER, has_pages INTEGER, has_all_outside INTEGER)",
    "CREATE TABLE pages (id INTEGER PRIMARY KEY, address TEXT, title TEXT, type TEXT, modified TEXT, "
    "redirected_to TEXT, broken_reason TEXT, status INTEGER, standing INTEGER, left_out_by INTEGER, level "
    "INTEGER, "
    "bytes INTEGER, time INTEGER, linked_from INTEGER, links BLOB)",
    "CREATE TABLE outside (id INTEGER PRIMARY KEY, address TEXT, linked_from INTEGER)",
    "CREATE TABLE checks (address TEXT PRIMARY KEY, state INTEGER, status INTEGER, reason TEXT, moved_to "
    "TEXT, "
    "certificate_ends INTEGER, found_on TEXT) WITHOUT ROWID",
    "CREATE TABLE last_check (started INTEGER, ended INTEGER)",
    "PRAGMA user_version = 3",
};

/// The rows of a scan follow each other in the order of their numbers, of which there are less than 2^32.
constexpr std::int64_t rowOf(std::int64_t scan, std::uint32_t number) {
  return scan << 32 | number;
}

/// For "id BETWEEN ? AND ?".
Statement& addRowsOf(std::int64_t scan, Statement& statement) {
  return statement.add(rowOf(scan, 0)).add(rowOf(scan, UINT32_MAX));
}

constexpr std::string_view kFactsColumns =
    "SELECT id, started, ended, end, pages_found, pages_used, broken, links FROM scans ";

std::vector<ScanFacts> readFacts(Statement statement) {
  std::vector<ScanFacts> all;
  while (statement.next()) {
    all.push_back({.id = statement.number(0),
                   .started = statement.number(1),
                   .ended = statement.number(2),
                   .end = std::string(statement.text(3)),
                   .pagesFound = statement.number(4),
                   .pagesUsed = statement.number(5),
                   .broken = statement.number(6),
                   .links = statement.number(7)});
  }
  return all;
}

/// A value of an enum, whatever the file holds.
template <typename Enum>
Enum valueOf(std::int64_t number, Enum last) {
  return number < 0 || number > static_cast<std::int64_t>(last) ? Enum{} : static_cast<Enum>(number);
}

void packNumber(std::string& bytes, std::uint64_t number) {
  for (; number >= 0x80; number >>= 7) bytes += static_cast<char>(number | 0x80);
  bytes += static_cast<char>(number);
}

std::uint64_t takeNumber(std::string_view& bytes) {
  std::uint64_t number = 0;
  for (int shift = 0; !bytes.empty() && shift < 64; shift += 7) {
    const auto byte = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    number |= static_cast<std::uint64_t>(byte & 0x7f) << shift;
    if (byte < 0x80) break;
  }
  return number;
}

/// The first characters of a name.
std::string_view shortened(std::string_view name) {
  if (name.size() <= kNameBytes) return name;
  std::size_t end = kNameBytes;
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xc0) == 0x80) --end;
  return name.substr(0, end);
}

}  // namespace

std::string_view nameOf(PageStanding standing) {
  switch (standing) {
    case PageStanding::listed:
      return "listed";
    case PageStanding::leftOut:
      return "leftOut";
    case PageStanding::broken:
      return "broken";
    case PageStanding::folderListing:
      return "folderListing";
  }
  return "";
}

void packLink(std::string& links, const Target& target, std::string_view name) {
  name = shortened(name);
  packNumber(links, std::uint64_t{target.number} * 2 + (target.isOutside ? 1 : 0));
  packNumber(links, name.size());
  links += name;
}

void eachLink(std::string_view links, const std::function<void(const Target&, std::string_view name)>& use) {
  while (!links.empty()) {
    const std::uint64_t code = takeNumber(links);
    const std::uint64_t size = takeNumber(links);
    if (size > links.size()) return;
    use({(code & 1) != 0, static_cast<std::uint32_t>(code / 2)}, links.substr(0, size));
    links.remove_prefix(size);
  }
}

ReportDatabase::ReportDatabase(const store::StateFolder& state, std::string_view siteName, Use use) {
  const std::filesystem::path file = state.ofSite(siteName) / kFileName;
  const bool writes = use != Use::read;
  const Database::Access access = writes ? Database::Access::write : Database::Access::read;
  if (writes) static_cast<void>(platform::makeFolders(file.parent_path()));
  m_database.emplace(file, access);
  const std::int64_t version = m_database->version();
  const bool isDamaged = m_database->isDamaged() || use == Use::writeInPlace;
  if (isDamaged || (version != kVersion && version != 0)) {
    const std::string why = isDamaged            ? Phrases::tr("damaged")
                            : version > kVersion ? Phrases::tr("written by a newer version of this program")
                                                 : Phrases::tr("written by an older version of this program");
    if (!writes) m_refused = {platform::FileStatus::failed, Phrases::tr("The report is %1", {why})};
    if (!writes || !setAside(file, why)) return;
    m_database.emplace(file, access);
  } else if (version == kVersion) {
    return;
  } else if (!writes) {
    // Made by a scan that had no room for more.
    if (m_database->ok()) m_refused = {platform::FileStatus::missing};
    return;
  }
  m_database->run(kPageSize);  // counts before the first table only
  m_database->run("BEGIN");
  for (const char* statement : kSchema) m_database->run(statement);
  m_database->run("COMMIT");
}

bool ReportDatabase::setAside(const std::filesystem::path& file, std::string_view why) {
  m_database.reset();
  std::filesystem::path aside = file;
  aside += ".set-aside";
  static_cast<void>(platform::removeFile(aside));
  m_refused = platform::moveTo(file, aside);
  if (!m_refused.ok()) return m_database.emplace(file, Database::Access::read), false;
  m_notice =
      Phrases::tr("The report of the scans before is %1; it was set aside as %2.", {why, aside.native()});
  return true;
}

std::vector<ScanFacts> ReportDatabase::history() {
  return readFacts(m_database->prepare(std::string(kFactsColumns) + "ORDER BY id DESC"));
}

std::vector<ScanFacts> ReportDatabase::keptScans() {
  return readFacts(m_database->prepare(std::string(kFactsColumns) + "WHERE has_pages = 1 ORDER BY id DESC"));
}

void ReportDatabase::eachPage(const ScanFacts& scan, const std::function<void(Page)>& use) {
  Statement pages = m_database->prepare(
      "SELECT id, address, title, type, modified, redirected_to, broken_reason, status, standing, "
      "left_out_by, "
      "level, bytes, time, linked_from FROM pages WHERE id BETWEEN ? AND ? ORDER BY id");
  addRowsOf(scan.id, pages);
  while (pages.next()) {
    use({.number = static_cast<std::uint32_t>(pages.number(0)),
         .address = std::string(pages.text(1)),
         .title = std::string(pages.text(2)),
         .type = std::string(pages.text(3)),
         .modified = std::string(pages.text(4)),
         .redirectedTo = std::string(pages.text(5)),
         .brokenReason = std::string(pages.text(6)),
         .status = static_cast<int>(pages.number(7)),
         .standing = valueOf(pages.number(8), PageStanding::folderListing),
         .leftOutBy = valueOf(pages.number(9), static_cast<LinkReason>(crawler::kLinkReasons - 1)),
         .level = static_cast<int>(pages.number(10)),
         .bytes = pages.number(11),
         .time = std::chrono::milliseconds(pages.number(12)),
         .linkedFrom = static_cast<std::uint32_t>(pages.number(13))});
  }
}

ScanContents ReportDatabase::contents(const ScanFacts& scan) {
  ScanContents contents{.facts = scan, .outside = outside(scan), .hasAllOutside = hasAllOutside(scan)};
  eachPage(scan, [&](Page page) { contents.pages.push_back(std::move(page)); });
  return contents;
}

std::vector<OutsideAddress> ReportDatabase::outside(const ScanFacts& scan) {
  std::vector<OutsideAddress> addresses;
  Statement outside = m_database->prepare(
      "SELECT id, address, linked_from FROM outside WHERE id BETWEEN ? AND ? ORDER BY id");
  addRowsOf(scan.id, outside);
  while (outside.next()) {
    addresses.push_back({.number = static_cast<std::uint32_t>(outside.number(0)),
                         .address = std::string(outside.text(1)),
                         .linkedFrom = static_cast<std::uint32_t>(outside.number(2))});
  }
  return addresses;
}

bool ReportDatabase::hasAllOutside(const ScanFacts& scan) {
  Statement all = m_database->prepare("SELECT has_all_outside FROM scans WHERE id = ?");
  all.add(scan.id);
  bool hasAll = true;
  while (all.next()) hasAll = all.number(0) != 0;
  return hasAll;
}

std::map<Target, std::vector<LinkingPage>> ReportDatabase::linksTo(const ScanFacts& scan,
                                                                   const std::set<Target>& targets) {
  std::map<Target, std::vector<LinkingPage>> found;
  Statement pages =
      m_database->prepare("SELECT address, links FROM pages WHERE id BETWEEN ? AND ? ORDER BY id");
  addRowsOf(scan.id, pages);
  while (pages.next()) {
    eachLink(pages.bytes(1), [&](const Target& target, std::string_view name) {
      if (targets.contains(target)) found[target].push_back({std::string(pages.text(0)), std::string(name)});
    });
  }
  return found;
}

std::vector<LinkCheck> ReportDatabase::linkChecks() {
  std::vector<LinkCheck> checks;
  Statement statement = m_database->prepare(
      "SELECT address, state, status, reason, moved_to, certificate_ends, found_on FROM checks ORDER BY "
      "address");
  while (statement.next()) {
    checks.push_back({.address = std::string(statement.text(0)),
                      .state = valueOf(statement.number(1), LinkState::unchecked),
                      .status = static_cast<int>(statement.number(2)),
                      .reason = std::string(statement.text(3)),
                      .movedTo = std::string(statement.text(4)),
                      .certificateEnds = std::chrono::seconds(statement.number(5)),
                      .foundOn = std::string(statement.text(6))});
  }
  return checks;
}

CheckFacts ReportDatabase::lastCheck() {
  Statement statement = m_database->prepare("SELECT started, ended FROM last_check");
  CheckFacts facts;
  while (statement.next()) facts = {.started = statement.number(0), .ended = statement.number(1)};
  return facts;
}

void ReportDatabase::beginCheck() {
  m_database->run("BEGIN IMMEDIATE");
  m_database->run("DELETE FROM checks");
  m_database->run("DELETE FROM last_check");
  m_database->run("INSERT INTO last_check VALUES (strftime('%s'), 0)");
  m_database->run("COMMIT");
}

void ReportDatabase::keepChecks(const std::vector<LinkCheck>& checks) {
  m_database->run("BEGIN IMMEDIATE");
  Statement statement = m_database->prepare("INSERT OR REPLACE INTO checks VALUES (?, ?, ?, ?, ?, ?, ?)");
  for (const LinkCheck& check : checks) {
    statement.add(check.address)
        .add(static_cast<std::int64_t>(check.state))
        .add(check.status)
        .add(check.reason)
        .add(check.movedTo)
        .add(check.certificateEnds.count())
        .add(check.foundOn)
        .run();
  }
  m_database->run("COMMIT");
}

void ReportDatabase::finishCheck() {
  m_database->run("UPDATE last_check SET ended = strftime('%s')");
}

void ReportDatabase::begin(const ScanFacts& facts) {
  m_database->run("BEGIN IMMEDIATE");
  m_database
      ->prepare(
          "INSERT INTO scans (started, ended, end, pages_found, pages_used, broken, links, has_pages, "
          "has_all_outside) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 1)")
      .add(facts.started)
      .add(facts.ended)
      .add(facts.end)
      .add(facts.pagesFound)
      .add(facts.pagesUsed)
      .add(facts.broken)
      .add(facts.links)
      .add(facts.isComplete() ? 1 : 0)
      .run();
  Statement id = m_database->prepare("SELECT last_insert_rowid()");
  while (id.next()) m_scan = id.number(0);
  m_addPage.emplace(
      m_database->prepare("INSERT INTO pages VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
  m_addOutside.emplace(m_database->prepare("INSERT INTO outside VALUES (?, ?, ?)"));
}

void ReportDatabase::add(const PageRow& row) {
  const Page& page = row.page;
  m_addPage->add(rowOf(m_scan, page.number))
      .add(page.address)
      .add(page.title)
      .add(page.type)
      .add(page.modified)
      .add(page.redirectedTo)
      .add(page.brokenReason)
      .add(page.status)
      .add(static_cast<std::int64_t>(page.standing))
      .add(static_cast<std::int64_t>(page.leftOutBy))
      .add(page.level)
      .add(page.bytes)
      .add(page.time.count())
      .add(page.linkedFrom)
      .addBytes(row.links)
      .run();
}

void ReportDatabase::add(const OutsideAddress& address) {
  m_addOutside->add(rowOf(m_scan, address.number)).add(address.address).add(address.linkedFrom).run();
}

void ReportDatabase::commit(bool hasAllOutside) {
  m_addPage.reset();
  m_addOutside.reset();
  m_database->prepare("UPDATE scans SET has_all_outside = ? WHERE id = ?")
      .add(hasAllOutside ? 1 : 0)
      .add(m_scan)
      .run();
  const std::vector<ScanFacts> kept = keptScans();
  for (std::size_t i = kScansKept; i < kept.size(); ++i) {
    for (const char* statement :
         {"DELETE FROM pages WHERE id BETWEEN ? AND ?", "DELETE FROM outside WHERE id BETWEEN ? AND ?"}) {
      Statement rows = m_database->prepare(statement);
      addRowsOf(kept[i].id, rows).run();
    }
    m_database->prepare("UPDATE scans SET has_pages = 0 WHERE id = ?").add(kept[i].id).run();
  }
  m_database->run("COMMIT");
}

}  // namespace report
