#include "report/report_writer.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <system_error>

#include <unistd.h>

namespace report {

namespace {

using crawler::ScanEnd;
using platform::FileResult;
using platform::FileStatus;

constexpr std::size_t kPieceBytes = 256u << 10;
constexpr std::size_t kTextBytes = 2'000;  // of a title; an address is bounded by the scan

FileResult failure(int error) {
  return {FileStatus::failed, std::generic_category().message(error)};
}

std::string_view nameOf(ScanEnd end) {
  switch (end) {
    case ScanEnd::complete:
      return "complete";
    case ScanEnd::cancelled:
      return "cancelled";
    case ScanEnd::lost:
      return "lost";
    default:
      return "failed";
  }
}

// The draft holds one page behind the other: numbers as they lie in memory, texts behind their length.

template <typename Number>
void put(std::string& bytes, Number number) {
  bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

void putText(std::string& bytes, std::string_view text) {
  put(bytes, static_cast<std::uint32_t>(text.size()));
  bytes += text;
}

template <typename Number>
void take(std::string_view& bytes, Number& number) {
  std::memcpy(&number, bytes.data(), sizeof number);
  bytes.remove_prefix(sizeof number);
}

std::string_view takeText(std::string_view& bytes) {
  std::uint32_t size = 0;
  take(bytes, size);
  const std::string_view text = bytes.substr(0, size);
  bytes.remove_prefix(size);
  return text;
}

}  // namespace

ReportWriter::ReportWriter(const store::StateFolder& state, std::string siteName)
    : m_state(state), m_siteName(std::move(siteName)) {}

void ReportWriter::scanStarted() {
  m_started = std::time(nullptr);
  openDraft();
}

/// In the state folder, where there is room for the report too; the memory of the machine may be smaller.
void ReportWriter::openDraft() {
  const std::filesystem::path folder = m_state.ofSite(m_siteName);
  m_failure = platform::makeFolders(folder);
  if (!m_failure.ok()) return;
  const std::filesystem::path file = folder / platform::temporaryName();
  m_draft.reset(std::fopen(file.c_str(), "w+bxe"));
  if (!m_draft) {
    m_failure = failure(errno);
    return;
  }
  // It goes with this process, however that ends.
  static_cast<void>(platform::removeFile(file));
  std::setvbuf(m_draft.get(), nullptr, _IONBF, 0);
}

void ReportWriter::pageMet(const crawler::MetPage& met) {
  if (!m_failure.ok()) return;
  finishPage();
  const crawler::FetchedPage& page = met.page;
  m_number = static_cast<std::uint32_t>(met.number);
  put(m_page, m_number);
  put(m_page, page.status);
  put(m_page, met.standing);
  put(m_page, met.reason);
  put(m_page, met.level);
  put(m_page, static_cast<std::int64_t>(page.bytes));
  put(m_page, page.time.count());
  putText(m_page, met.url);
  putText(m_page, std::string_view(page.contents.title).substr(0, kTextBytes));
  putText(m_page, page.mime);
  putText(m_page, page.lastModified);
  putText(m_page, page.redirectedTo);
  putText(m_page, met.standing == crawler::PageStanding::broken ? page.reason() : std::string());
}

void ReportWriter::finishPage() {
  if (m_page.empty()) return;
  put(m_unwritten, static_cast<std::uint32_t>(m_page.size() + sizeof(std::uint32_t) + m_links.size()));
  m_unwritten += m_page;
  putText(m_unwritten, m_links);
  m_page.clear();
  m_links.clear();
  if (m_unwritten.size() >= kPieceBytes) flush();
}

void ReportWriter::flush() {
  if (std::fwrite(m_unwritten.data(), 1, m_unwritten.size(), m_draft.get()) != m_unwritten.size()) {
    m_failure = failure(errno);
    m_draft.reset();
  }
  m_unwritten.clear();
}

void ReportWriter::link(Linked& linked, const Target& target, std::string_view name) {
  if (linked.last == m_number + 1) return;  // it stands on this page already
  linked.last = m_number + 1;
  if (linked.pages++ < kLinkingPagesKept) packLink(m_links, target, name);
}

void ReportWriter::linkToPage(std::size_t number, std::string_view name) {
  if (!m_failure.ok()) return;
  if (number >= m_linkedPages.size()) m_linkedPages.resize(number + 1);
  link(m_linkedPages[number], {false, static_cast<std::uint32_t>(number)}, name);
}

void ReportWriter::linkOutside(std::string_view address, std::string_view name) {
  if (!m_failure.ok()) return;
  const auto next = static_cast<std::uint32_t>(m_linkedOutside.size());
  auto place = m_outside.find(std::string(address));
  if (place == m_outside.end()) {
    m_hasAllOutside = m_hasAllOutside && next < kMostOutside;
    if (!m_hasAllOutside) return;
    place = m_outside.emplace(address, next).first;
    m_linkedOutside.emplace_back();
  }
  link(m_linkedOutside[place->second], {true, place->second}, name);
}

void ReportWriter::scanEnded(crawler::ScanResult& result) {
  if (m_failure.ok()) finishPage();
  if (m_failure.ok()) flush();
  const ScanFacts facts{.started = m_started,
                        .ended = std::time(nullptr),
                        .end = std::string(nameOf(result.end)),
                        .pagesFound = result.statistics.pagesFound,
                        .pagesUsed = result.statistics.pagesUsed,
                        .broken = result.progress.brokenLinks,
                        .links = result.statistics.totalLinks};
  bool isDamaged = false;
  if (m_failure.ok()) m_failure = write(facts, ReportDatabase::Use::write, isDamaged, result.reportNotice);
  if (isDamaged) m_failure = write(facts, ReportDatabase::Use::writeInPlace, isDamaged, result.reportNotice);
  result.reportKept = m_failure;
  m_draft.reset();
}

FileResult ReportWriter::write(const ScanFacts& facts, ReportDatabase::Use use, bool& isDamaged,
                               std::string& notice) {
  ReportDatabase database(m_state, m_siteName, use);
  if (!database.notice().empty()) notice = database.notice();
  if (!database.result().ok()) return database.result();
  database.begin(facts);
  if (facts.isComplete()) {
    std::rewind(m_draft.get());
    std::string bytes;
    while (database.result().ok() && readPage(bytes)) {
      std::string_view rest = bytes;
      Page page;
      take(rest, page.number);
      take(rest, page.status);
      take(rest, page.standing);
      take(rest, page.leftOutBy);
      take(rest, page.level);
      take(rest, page.bytes);
      std::chrono::milliseconds::rep time = 0;
      take(rest, time);
      page.time = std::chrono::milliseconds(time);
      for (std::string* text :
           {&page.address, &page.title, &page.type, &page.modified, &page.redirectedTo, &page.brokenReason}) {
        *text = takeText(rest);
      }
      if (page.number < m_linkedPages.size()) page.linkedFrom = m_linkedPages[page.number].pages;
      database.add(PageRow{page, takeText(rest)});
    }
    for (const auto& [address, number] : m_outside) {
      database.add(OutsideAddress{number, address, m_linkedOutside[number].pages});
    }
  }
  database.commit(m_hasAllOutside);
  isDamaged = database.isDamaged();
  return database.result();
}

/// Of what is behind the last one, or cut off, nothing.
bool ReportWriter::readPage(std::string& bytes) {
  std::uint32_t size = 0;
  if (std::fread(&size, 1, sizeof size, m_draft.get()) != sizeof size) return false;
  bytes.resize(size);
  return std::fread(bytes.data(), 1, size, m_draft.get()) == size;
}

}  // namespace report
