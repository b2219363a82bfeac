// What tells whether a file is still the one that it was, and holds what it held.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace platform {

/// Times are in nanoseconds since 1970.
struct FileStamp {
  std::uint64_t inode = 0;
  std::int64_t born = 0;     // 0 where the file system does not know
  std::int64_t changed = 0;  // when something was last written to it
  std::uint64_t bytes = 0;

  /// Whether both are of one file, whatever was written to it in between. One that was replaced is another,
  /// also when it got the number of the former one.
  bool isSameFile(const FileStamp& other) const { return inode == other.inode && born == other.born; }
  bool operator==(const FileStamp&) const = default;
};

/// Of the file that a path leads to; nothing when there is none.
std::optional<FileStamp> stampOf(const std::filesystem::path& path);

/// A checksum (CRC-32) of a regular file's content, which is read piece by piece; nothing when it cannot be
/// read.
std::optional<std::uint32_t> checksumOf(const std::filesystem::path& path);

}  // namespace platform
