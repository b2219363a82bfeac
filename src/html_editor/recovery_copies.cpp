#include "html_editor/recovery_copies.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace html_editor {

namespace {

using platform::FileResult;
using platform::FileStatus;

constexpr std::string_view kFormerFirstLine = "veskel recovery copy 1\n";
constexpr std::string_view kFirstLine = "veskel recovery copy 2\n";

/// 64-bit FNV-1a: the same in every version of the program, unlike a hash of the standard library.
std::string fingerprint(std::string_view text) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16);
  return {digits.data(), end.ptr};
}

/// What stands in front of the text: the document may have become another one.
std::string heading(std::string_view original) {
  std::string text(kFirstLine);
  return text.append(std::to_string(original.size())).append(" ").append(fingerprint(original)).append("\n");
}

/// A former copy: the document's path stood behind the first line, its length before it.
struct FormerCopy {
  std::filesystem::path document;
  std::string_view rest;  // what follows the path: the state of the original, and the text
};

std::optional<FormerCopy> formerCopy(std::string_view text) {
  if (!text.starts_with(kFormerFirstLine)) return {};
  text.remove_prefix(kFormerFirstLine.size());
  std::size_t length = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), length);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (error != std::errc() || !text.starts_with(' ') || text.size() < length + 2) return {};
  return FormerCopy{text.substr(1, length), text.substr(length + 2)};
}

}  // namespace

FileResult RecoveryCopies::save(const std::filesystem::path& document, std::string_view original,
                                std::string_view text) const {
  const auto copy = file(document);
  if (auto made = platform::makeFolders(copy.parent_path()); !made.ok()) return made;
  return platform::replaceFile(copy, heading(original).append(text));
}

std::optional<std::string> RecoveryCopies::load(const std::filesystem::path& document,
                                                std::string_view onDisk) const {
  platform::FileContent content = platform::readFile(file(document));
  const std::string expected = heading(onDisk);
  if (!content.result.ok() || !content.text.starts_with(expected)) return std::nullopt;
  content.text.erase(0, expected.size());
  if (content.text == onDisk) return std::nullopt;
  return std::move(content.text);
}

FileResult RecoveryCopies::drop(const std::filesystem::path& document) const {
  FileResult result = platform::removeFile(file(document));
  if (result.status == FileStatus::missing) return {};
  return result;
}

void RecoveryCopies::takeFormer() const {
  const auto former = m_state.location() / "unsaved";
  for (const std::string& name : platform::filesBelow(former)) {
    const std::string content = platform::readFile(former / name).text;
    const auto copy = formerCopy(content);
    if (!copy) continue;
    const auto target = file(copy->document);
    const bool isTaken = platform::makeFolders(target.parent_path()).ok() &&
                         platform::replaceFile(target, std::string(kFirstLine).append(copy->rest)).ok();
    if (isTaken) static_cast<void>(platform::removeFile(former / name));
  }
  std::error_code error;
  std::filesystem::remove(former, error);  // unless it holds something still
}

std::filesystem::path RecoveryCopies::file(const std::filesystem::path& document) const {
  return m_state.ofSite(document.parent_path().filename().native()) /
         ("unsaved-" + document.filename().native());
}

}  // namespace html_editor
