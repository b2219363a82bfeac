#include "sitemaps/scanned_set.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_stamp.h"
#include "sitemaps/html_format.h"
#include "sitemaps/xml_format.h"
#include "store/text_lines.h"

namespace sitemaps {

namespace {

using platform::FileResult;
using platform::FileStamp;

constexpr std::size_t kMaxMemory = std::size_t{1} << 16;
/// The first line of a scan's memory while it runs.
constexpr std::string_view kUnfinished = "unfinished";

constexpr std::array<std::string_view, kSetFiles.size()> setFiles() {
  std::array<std::string_view, kSetFiles.size()> files{};
  std::size_t count = 0;
  for (const Layout& layout : kLayouts) files[count++] = layout.fileName;
  files[count++] = kXmlSitemapFile;
  files[count] = store::kBadLinksFile;
  return files;
}

/// What a line tells of a file.
struct Remembered {
  std::string name;
  std::vector<std::uint64_t>
      numbers;  // none of a file that was missing, else as many as the kinds below have
};
constexpr std::size_t kGrowing = 2;   // inode, birth
constexpr std::size_t kFinished = 5;  // and last change, size, checksum

std::string growingLine(std::string_view name, const FileStamp& stamp) {
  return std::string(name) + "\t" + std::to_string(stamp.inode) + "\t" +
         std::to_string(static_cast<std::uint64_t>(stamp.born));
}

std::string finishedLine(std::string_view name, const FileStamp& stamp, std::uint32_t checksum) {
  return growingLine(name, stamp) + "\t" + std::to_string(static_cast<std::uint64_t>(stamp.changed)) + "\t" +
         std::to_string(stamp.bytes) + "\t" + std::to_string(checksum);
}

std::optional<Remembered> parseLine(std::string_view line) {
  Remembered file{.name = store::takeField(line), .numbers = {}};
  while (!line.empty()) {
    const std::string field = store::takeField(line);
    std::uint64_t& number = file.numbers.emplace_back();
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
    if (error != std::errc() || end != field.data() + field.size()) return {};
  }
  const std::size_t count = file.numbers.size();
  if (count != 0 && count != kGrowing && count != kFinished) return {};
  return file;
}

bool isAsRemembered(const std::filesystem::path& path, const std::vector<std::uint64_t>& numbers) {
  const std::optional<FileStamp> now = platform::stampOf(path);
  if (!now || numbers.empty()) return !now && numbers.empty();
  FileStamp then{.inode = numbers[0], .born = static_cast<std::int64_t>(numbers[1])};
  if (numbers.size() == kGrowing) return now->isSameFile(then);
  then.changed = static_cast<std::int64_t>(numbers[2]);
  then.bytes = numbers[3];
  if (*now == then) return true;
  // A copy of the user's home has other files of the same content.
  return now->bytes == then.bytes && platform::checksumOf(path) == numbers[4];
}

/// Whether this is a document that a scan has started, with nothing in it yet.
bool isOpening(const std::filesystem::path& path) {
  const std::string name = path.filename();
  std::string opening(name == kXmlSitemapFile ? kXmlHeader : "");
  for (const Layout& layout : kLayouts) {
    if (layout.fileName == name) opening = documentOpening(layout.columns);
  }
  return !opening.empty() && platform::readFile(path, opening.size()).text == opening;
}

}  // namespace

constinit const std::array<std::string_view, kLayouts.size() + 2> kSetFiles = setFiles();

ScannedSet::ScannedSet(const store::GlobalControls& controls, const store::StateFolder& state,
                       std::string_view siteName)
    : m_folder(controls.siteFolder(siteName)), m_memory(state.ofSite(siteName) / "scanned-documents") {}

bool ScannedSet::isEdited() const {
  const bool isThere = std::any_of(kSetFiles.begin(), kSetFiles.end(), [&](std::string_view name) {
    return platform::stampOf(m_folder / name).has_value();
  });
  if (!isThere) return false;
  const platform::FileContent memory = platform::readFile(m_memory, kMaxMemory);
  if (!memory.result.ok()) return true;
  std::vector<std::string> lines = store::nonEmptyLines(memory.text);
  const bool isUnfinished = std::erase(lines, kUnfinished) > 0;
  for (const std::string& line : lines) {
    const std::optional<Remembered> file = parseLine(line);
    if (!file) return true;
    const auto path = m_folder / file->name;
    if (!isAsRemembered(path, file->numbers) && !(isUnfinished && isOpening(path))) return true;
  }
  return false;
}

/// The list of broken pages is replaced by the scan itself, at its end, and so has no line here.
FileResult ScannedSet::keepScanning() const {
  std::string text = std::string(kUnfinished) + "\n";
  for (const std::string_view name : kSetFiles) {
    if (name == store::kBadLinksFile) continue;
    const std::optional<FileStamp> stamp = platform::stampOf(m_folder / name);
    text += (stamp ? growingLine(name, *stamp) : std::string(name)) + "\n";
  }
  return save(text);
}

FileResult ScannedSet::endScan() const {
  std::string text;
  for (const std::string_view name : kSetFiles) {
    const std::optional<FileStamp> stamp = platform::stampOf(m_folder / name);
    const auto checksum = stamp ? platform::checksumOf(m_folder / name) : std::nullopt;
    text += checksum ? finishedLine(name, *stamp, *checksum) : std::string(name);
    text += "\n";
  }
  return save(text);
}

void ScannedSet::endKilledScan() const {
  // Where it cannot be saved things stay as they are.
  if (isUnfinished() && !isEdited()) static_cast<void>(endScan());
}

bool ScannedSet::isUnfinished() const {
  return platform::readFile(m_memory, kMaxMemory).text.starts_with(kUnfinished);
}

FileResult ScannedSet::save(std::string_view text) const {
  if (auto made = platform::makeFolders(m_memory.parent_path()); !made.ok()) return made;
  return platform::replaceFile(m_memory, text);
}

}  // namespace sitemaps
