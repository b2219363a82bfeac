#include "html_editor/recovery_copies.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace html_editor {

namespace {

using platform::FileResult;
using platform::FileStatus;

constexpr std::string_view kFirstLine = "veskel recovery copy 1\n";

/// 64-bit FNV-1a: the same in every version of the program, unlike a hash of the standard library.
std::string fingerprint(std::string_view text) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16);
  return {digits.data(), end.ptr};
}

/// What stands in front of the text: two documents may share a file's name, however unlikely, and a document
/// may have become another one. A path may hold line feeds, so its length goes first.
std::string heading(const std::filesystem::path& document, std::string_view original) {
  std::string text(kFirstLine);
  text.append(std::to_string(document.native().size())).append(" ").append(document.native()).append("\n");
  return text.append(std::to_string(original.size())).append(" ").append(fingerprint(original)).append("\n");
}

}  // namespace

FileResult RecoveryCopies::save(const std::filesystem::path& document, std::string_view original,
                                std::string_view text) const {
  std::error_code error;
  std::filesystem::create_directories(m_folder, error);
  if (error) return {FileStatus::failed, error.message()};
  return platform::replaceFile(file(document), heading(document, original).append(text));
}

std::optional<std::string> RecoveryCopies::load(const std::filesystem::path& document,
                                                std::string_view onDisk) const {
  platform::FileContent content = platform::readFile(file(document));
  const std::string expected = heading(document, onDisk);
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

std::filesystem::path RecoveryCopies::file(const std::filesystem::path& document) const {
  return m_folder / (fingerprint(document.native()) + ".html");
}

}  // namespace html_editor
