#include "crawler/page_journal.h"

#include <functional>
#include <system_error>

#include "platform/phrases.h"
#include "store/text_lines.h"

namespace crawler {

namespace {

namespace fs = std::filesystem;
using platform::FileResult;
using platform::FileStatus;

constexpr std::string_view kFormat = "pages 1";
constexpr std::size_t kPieceBytes = 64u << 10;
constexpr std::chrono::seconds kLongestUnwritten{1};

fs::path journalFile(const store::StateFolder& state, std::string_view siteName) {
  return state.ofSite(siteName) / "unfinished-scan.tsv";
}

std::string headingOf(const ScanIdentity& scan) {
  std::string heading(kFormat);
  heading.append("\t").append(store::nameOf(scan.links)).append("\t");
  store::appendEscapedField(heading, scan.startUrl);
  return heading + "\n";
}

std::optional<ScanIdentity> readHeading(std::string_view line) {
  if (store::takeField(line) != kFormat) return {};
  const std::string links = store::takeField(line);
  for (std::size_t i = 0; i < store::kLinkStyles.size(); ++i) {
    if (links == store::kLinkStyles[i].name)
      return ScanIdentity{store::takeField(line), static_cast<store::LinkStyle>(i)};
  }
  return {};
}

/// A pipe would keep whoever opens it waiting.
std::ifstream openRegular(const fs::path& file) {
  std::error_code error;
  return fs::is_regular_file(file, error) ? std::ifstream(file, std::ios::binary) : std::ifstream();
}

/// The next line, if it is whole: of the last one a part may be missing.
bool readWholeLine(std::ifstream& file, std::string& line) {
  return std::getline(file, line) && !file.eof();
}

}  // namespace

std::optional<ScanIdentity> unfinishedScan(const store::StateFolder& state, std::string_view siteName) {
  std::ifstream file = openRegular(journalFile(state, siteName));
  std::string line;
  if (!file.is_open() || !readWholeLine(file, line)) return {};
  return readHeading(line);
}

PageJournal::PageJournal(const store::StateFolder& state, std::string_view siteName, std::uint64_t maxBytes)
    : m_file(journalFile(state, siteName)), m_maxBytes(maxBytes), m_appender(m_file) {}

void PageJournal::beginAnew(const ScanIdentity& scan) {
  const std::string heading = headingOf(scan);
  FileResult result = platform::makeFolders(m_file.parent_path());
  if (result.ok()) result = platform::replaceFile(m_file, heading);
  m_isKept = result.ok();
  m_size = heading.size();
  m_lastWritten = std::chrono::steady_clock::now();
  if (!m_isKept) giveUp(std::move(result));
}

void PageJournal::goOn(const ScanIdentity& scan) {
  m_reader = openRegular(m_file);
  std::string line;
  if (!m_reader.is_open() || !readWholeLine(m_reader, line) || readHeading(line) != scan)
    return beginAnew(scan);
  m_size = line.size() + 1;
  while (readWholeLine(m_reader, line)) {
    std::string_view fields = line;
    m_places[std::hash<std::string>{}(store::takeField(fields))] = {m_size, line.size()};
    m_size += line.size() + 1;
  }
  m_reader.clear();
  std::error_code error;
  fs::resize_file(m_file, m_size, error);  // without a line that was cut off
  m_isKept = !error;
  m_lastWritten = std::chrono::steady_clock::now();
  if (error) giveUp({FileStatus::failed, error.message()});
}

std::optional<PageRecord> PageJournal::find(std::string_view url) {
  const auto place = m_places.find(std::hash<std::string_view>{}(url));
  if (place == m_places.end()) return {};
  std::string line(place->second.size, '\0');
  m_reader.seekg(static_cast<std::streamoff>(place->second.offset));
  m_reader.read(line.data(), static_cast<std::streamsize>(line.size()));
  const bool wasRead = m_reader.good();
  m_reader.clear();
  return wasRead ? readRecordLine(line, url) : std::nullopt;
}

void PageJournal::add(std::string_view url, const FetchedPage& page, const std::optional<std::string>& date) {
  if (!m_isKept) return;
  appendRecordLine(m_unwritten, url, page, date);
  // Where pages come slowly, each is worth something.
  if (m_unwritten.size() >= kPieceBytes ||
      std::chrono::steady_clock::now() - m_lastWritten > kLongestUnwritten)
    write();
}

void PageJournal::write() {
  m_size += m_unwritten.size();
  FileResult result =
      m_size <= m_maxBytes
          ? m_appender.append(m_unwritten)
          : FileResult{FileStatus::failed, platform::Phrases::tr("The site holds too much for that")};
  m_unwritten.clear();
  m_lastWritten = std::chrono::steady_clock::now();
  if (!result.ok()) giveUp(std::move(result));
}

void PageJournal::finish() {
  if (m_isKept && !m_unwritten.empty()) write();
}

void PageJournal::remove() {
  m_isKept = false;
  static_cast<void>(platform::removeFile(m_file));
}

void PageJournal::giveUp(FileResult result) {
  remove();
  m_result = std::move(result);
}

}  // namespace crawler
