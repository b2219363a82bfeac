#include "platform/file_stamp.h"

#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

namespace platform {

namespace {

std::int64_t nanoseconds(const statx_timestamp& time) {
  return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

std::optional<FileStamp> stampOf(const std::filesystem::path& path) {
  struct statx status {};
  if (statx(AT_FDCWD, path.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) return {};
  return FileStamp{.inode = status.stx_ino,
                   .born = (status.stx_mask & STATX_BTIME) != 0 ? nanoseconds(status.stx_btime) : 0,
                   .changed = nanoseconds(status.stx_ctime),
                   .bytes = status.stx_size};
}

std::optional<std::uint32_t> checksumOf(const std::filesystem::path& path) {
  constexpr std::size_t kPiece = std::size_t{1} << 20;
  std::error_code error;
  // Opening anything else may wait for ever.
  if (!std::filesystem::is_regular_file(path, error)) return {};
  const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (file < 0) return {};
  std::vector<unsigned char> piece(kPiece);
  uLong sum = crc32_z(0, nullptr, 0);
  ssize_t count = 0;
  while ((count = read(file, piece.data(), piece.size())) > 0 || (count < 0 && errno == EINTR)) {
    if (count > 0) sum = crc32_z(sum, piece.data(), static_cast<std::size_t>(count));
  }
  close(file);
  if (count < 0) return {};
  return static_cast<std::uint32_t>(sum);
}

}  // namespace platform
