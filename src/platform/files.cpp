#include "platform/files.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <new>
#include <optional>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/phrases.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kFileMode = 0644;  // the umask takes its share
constexpr int kMaxLinks = 40;       // on the way to a file, as the kernel has it
constexpr int kMaxAttempts = 20;    // to replace a file that others replace at the same time
constexpr std::string_view kTemporaryPrefix = ".veskel-";
constexpr std::string_view kTemporarySuffix = ".tmp";
constexpr std::size_t kTemporaryDigits = 16;

FileResult failure(int error) {
  FileResult result{FileStatus::failed, std::generic_category().message(error)};
  if (error == ENOENT || error == ENOTDIR) result.status = FileStatus::missing;
  if (error == EEXIST) result.status = FileStatus::exists;
  if (error == EWOULDBLOCK) result.status = FileStatus::busy;
  return result;
}

/// How a system call went that reports 0 for done.
FileResult outcome(int returned) {
  return returned == 0 ? FileResult{} : failure(errno);
}

FileResult tooLarge(std::size_t maxBytes) {
  constexpr std::size_t kMegabyte = 1u << 20;
  const std::size_t megabytes = (maxBytes + kMegabyte - 1) / kMegabyte;
  return {FileStatus::failed, Phrases::tr("The file is larger than %1 MB", {std::to_string(megabytes)})};
}

/// Opening anything else may wait for ever, as with a pipe, or set off something, as with a device.
FileResult whetherRegular(const struct stat& status) {
  if (S_ISREG(status.st_mode)) return {};
  if (S_ISDIR(status.st_mode)) return failure(EISDIR);
  return {FileStatus::failed, Phrases::tr("Not a regular file")};
}

/// Calls again as long as a signal comes between.
template <typename Call>
auto withoutInterruption(Call call) {
  auto returned = call();
  while (returned == -1 && errno == EINTR) returned = call();
  return returned;
}

/// An open file, closed with this object.
class Descriptor {
 public:
  Descriptor(const fs::path& path, int flags, mode_t mode = 0)
      : m_number(withoutInterruption([&] { return open(path.c_str(), flags | O_CLOEXEC, mode); })) {}
  ~Descriptor() {
    if (isOpen()) close(m_number);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool isOpen() const { return m_number >= 0; }
  int number() const { return m_number; }

 private:
  int m_number;
};

/// A regular file, open; symbolic links are followed.
struct RegularFile {
  RegularFile(const fs::path& path, int flags) {
    result = outcome(stat(path.c_str(), &status));
    if (result.ok()) result = whetherRegular(status);
    if (!result.ok()) return;
    // It may have become something else by now.
    descriptor.emplace(path, flags | O_NONBLOCK | O_NOCTTY);
    result = outcome(descriptor->isOpen() ? fstat(descriptor->number(), &status) : -1);
    if (result.ok()) result = whetherRegular(status);
  }

  FileResult result;
  struct stat status {};
  std::optional<Descriptor> descriptor;  // open if `result` is ok
};

FileResult writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = withoutInterruption([&] { return write(descriptor, text.data(), text.size()); });
    if (written < 0) return failure(errno);
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

FileResult sync(int descriptor) {
  return outcome(withoutInterruption([&] { return fsync(descriptor); }));
}

/// The file that a symbolic link leads to at last, so that a link stays one when its file is replaced. It
/// need not exist.
fs::path linkTarget(fs::path file) {
  std::error_code error;
  for (int i = 0; i < kMaxLinks && fs::is_symlink(fs::symlink_status(file, error)); ++i) {
    const fs::path target = fs::read_symlink(file, error);
    if (error) break;
    file = file.parent_path() / target;  // an absolute target stands for itself
  }
  return file;
}

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

/// Takes a lock on an open file without waiting; it goes with the file.
FileResult lock(int descriptor, int kind) {
  return outcome(withoutInterruption([&] { return flock(descriptor, kind | LOCK_NB); }));
}

/// Whether nobody has the lock of the temporary file `path`.
bool isLeftover(const fs::path& path) {
  const Descriptor file(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
  return file.isOpen() && lock(file.number(), LOCK_SH).ok();
}

/// Removes what processes that were killed left in `folder`.
void removeLeftovers(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code ignored;
    const fs::path& path = entry->path();
    const bool isOurs =
        isTemporaryName(path.filename().native()) && fs::is_regular_file(entry->symlink_status(ignored));
    if (isOurs && isLeftover(path)) unlink(path.c_str());
  }
}

/// The file that a new text is written to before it takes the place of the old one. It has no name until it
/// is complete, so that a process that is killed while it writes and syncs leaves nothing behind. Not every
/// file system has such files; there it is a plain one from the start.
class TemporaryFile {
 public:
  TemporaryFile(const fs::path& folder, mode_t mode) : m_name(folder / temporaryName()) {
    m_file.emplace(folder, O_WRONLY | O_TMPFILE, mode);
    if (!m_file->isOpen() && (errno == EOPNOTSUPP || errno == EISDIR)) {
      m_file.emplace(m_name, O_WRONLY | O_CREAT | O_EXCL, mode);
      m_named = m_file->isOpen();
    }
    m_result = outcome(m_file->isOpen() ? 0 : -1);
    // Before the lock is there, somebody may take the file for one that was left behind. Where there are no
    // locks, nobody removes anything.
    if (m_result.ok() && lock(number(), LOCK_EX).status == FileStatus::busy) m_result = failure(EWOULDBLOCK);
  }
  ~TemporaryFile() {
    if (m_named) unlink(m_name.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  /// How making it went.
  const FileResult& result() const { return m_result; }
  int number() const { return m_file->number(); }

  FileResult moveOver(const fs::path& file) {
    if (!m_named) {
      // There is no call that would rename a file without a name, so it gets one for a moment.
      const std::string self = "/proc/self/fd/" + std::to_string(number());
      if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, m_name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return failure(errno);
      m_named = true;
    }
    if (rename(m_name.c_str(), file.c_str()) == 0) {
      m_named = false;
      return {};
    }
    FileResult result = failure(errno);
    if (result.status == FileStatus::missing) result.status = FileStatus::busy;
    return result;
  }

 private:
  fs::path m_name;
  std::optional<Descriptor> m_file;
  FileResult m_result;
  bool m_named = false;
};

FileResult writeWhole(int descriptor, std::string_view text, const struct stat* replaced) {
  if (replaced != nullptr && fchmod(descriptor, replaced->st_mode & 07777) != 0) return failure(errno);
  const FileResult written = writeAll(descriptor, text);
  return written.ok() ? sync(descriptor) : written;
}

/// `exists` or `busy` when somebody else came between: the caller tries again.
FileResult replaceOnce(const fs::path& file, std::string_view text, const struct stat* replaced) {
  removeLeftovers(folderOf(file));
  // Nobody may read the new text meanwhile who could not read the old one.
  TemporaryFile temporary(folderOf(file), replaced != nullptr ? 0600 : kFileMode);
  if (!temporary.result().ok()) return temporary.result();
  const FileResult written = writeWhole(temporary.number(), text, replaced);
  return written.ok() ? temporary.moveOver(file) : written;
}

}  // namespace

FileContent readFile(const fs::path& path, std::size_t maxBytes) try {
  const RegularFile file(path, O_RDONLY);
  if (!file.result.ok()) return {file.result};
  // One byte more than the file seems to have: its end is then found without another round.
  const std::size_t expected = static_cast<std::size_t>(std::max<off_t>(file.status.st_size, 0)) + 1;
  if (expected > maxBytes + 1) return {tooLarge(maxBytes)};
  FileContent content;
  std::size_t length = 0;
  for (;;) {
    if (length == content.text.size())
      content.text.resize(std::min(std::max({expected, 2 * length, std::size_t{4096}}), maxBytes + 1));
    const ssize_t count = withoutInterruption([&] {
      return read(file.descriptor->number(), content.text.data() + length, content.text.size() - length);
    });
    if (count < 0) return {failure(errno)};
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
    if (length > maxBytes) return {tooLarge(maxBytes)};
  }
  content.text.resize(length);
  return content;
} catch (const std::bad_alloc&) {
  return {failure(ENOMEM)};
}

FileResult replaceFile(const fs::path& path, std::string_view text) {
  const fs::path file = linkTarget(path);
  struct stat status {};
  const bool exists = lstat(file.c_str(), &status) == 0;
  if (!exists && errno != ENOENT) return failure(errno);
  // A rename would put a plain file in the place of a device or pipe.
  FileResult result = exists ? whetherRegular(status) : FileResult{};
  if (!result.ok()) return result;
  for (int attempt = 0; attempt < kMaxAttempts; ++attempt) {
    result = replaceOnce(file, text, exists ? &status : nullptr);
    if (result.status != FileStatus::exists && result.status != FileStatus::busy) break;
  }
  return result.ok() ? syncFolder(folderOf(file)) : result;
}

std::string temporaryName() {
  // Where two processes come to the same number the second finds it taken, and takes the next.
  static std::atomic<std::uint64_t> counter{0};
  const auto now = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  const std::uint64_t number = (now << 20) ^ (static_cast<std::uint64_t>(getpid()) << 8) ^ counter++;
  std::array<char, kTemporaryDigits + 1> digits{};
  std::snprintf(digits.data(), digits.size(), "%016jx", std::uintmax_t{number});
  return std::string(kTemporaryPrefix) + digits.data() + std::string(kTemporarySuffix);
}

bool isTemporaryName(std::string_view name) {
  if (!name.starts_with(kTemporaryPrefix) || !name.ends_with(kTemporarySuffix)) return false;
  name.remove_prefix(kTemporaryPrefix.size());
  return name.size() == kTemporaryDigits + kTemporarySuffix.size() &&
         name.find_first_not_of("0123456789abcdef") == kTemporaryDigits;
}

FileResult syncFile(const fs::path& path) {
  const RegularFile file(path, O_RDONLY);
  return file.result.ok() ? sync(file.descriptor->number()) : file.result;
}

FileResult syncFolder(const fs::path& folder) {
  const Descriptor descriptor(folder, O_RDONLY | O_DIRECTORY);
  if (!descriptor.isOpen()) return errno == EACCES ? FileResult{} : failure(errno);
  if (withoutInterruption([&] { return fsync(descriptor.number()); }) == 0) return {};
  // Not every file system can do this. Where none can, nothing better is to be had.
  if (errno == EINVAL || errno == EOPNOTSUPP) return {};
  FileResult result = failure(errno);
  result.error =
      Phrases::tr("the new content is in place, but its folder could not be synced: %1", {result.error});
  return result;
}

FileResult makeFolder(const fs::path& folder) {
  return outcome(mkdir(folder.c_str(), 0777));
}

FileResult makeFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  return error ? failure(error.value()) : FileResult{};
}

FileResult makeEmptyFile(const fs::path& file) {
  const Descriptor descriptor(file, O_WRONLY | O_CREAT | O_EXCL, kFileMode);
  return descriptor.isOpen() ? FileResult{} : failure(errno);
}

FileResult moveTo(const fs::path& from, const fs::path& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return {};
  // Some network file systems cannot refuse to replace by themselves.
  if (errno != EINVAL && errno != ENOSYS) return failure(errno);
  if (somethingAt(to)) return failure(EEXIST);
  return outcome(rename(from.c_str(), to.c_str()));
}

FileResult removeFile(const fs::path& file) {
  return outcome(unlink(file.c_str()));
}

FileResult removeFolder(const fs::path& folder) {
  std::error_code error;
  const fs::file_status status = fs::symlink_status(folder, error);
  if (status.type() == fs::file_type::not_found) return failure(ENOENT);
  if (fs::exists(status) && !fs::is_directory(status) && !fs::is_symlink(status)) {
    return {FileStatus::failed, failure(ENOTDIR).error};
  }
  fs::remove_all(folder, error);
  return error ? failure(error.value()) : FileResult{};
}

bool somethingAt(const fs::path& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

std::vector<std::string> filesBelow(const fs::path& folder) {
  std::vector<std::string> files;
  std::vector<fs::path> pending{fs::path()};  // relative to `folder`
  while (!pending.empty()) {
    const fs::path below = std::move(pending.back());
    pending.pop_back();
    // Not the recursive iterator of the library: that one ends at the first error.
    std::error_code error;
    for (fs::directory_iterator entry(folder / below, error), end; !error && entry != end;
         entry.increment(error)) {
      std::error_code ignored;
      const fs::path path = below / entry->path().filename();
      if (fs::is_directory(entry->symlink_status(ignored))) {
        pending.push_back(path);
      } else if (fs::is_regular_file(entry->status(ignored))) {
        files.push_back(path.string());
      }
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

FileAppender::FileAppender(FileAppender&& other) noexcept
    : m_file(std::move(other.m_file)),
      m_descriptor(std::exchange(other.m_descriptor, -1)),
      m_device(other.m_device),
      m_inode(other.m_inode) {}

FileResult FileAppender::append(std::string_view text) {
  struct stat status {};
  if (stat(m_file.c_str(), &status) != 0) return failure(errno);
  if (const FileResult regular = whetherRegular(status); !regular.ok()) return regular;
  if (m_descriptor < 0 || status.st_dev != m_device || status.st_ino != m_inode) {
    close();
    m_descriptor = withoutInterruption(
        [&] { return open(m_file.c_str(), O_WRONLY | O_APPEND | O_NONBLOCK | O_CLOEXEC); });
    if (m_descriptor < 0 || fstat(m_descriptor, &status) != 0) return failure(errno);
    m_device = status.st_dev;
    m_inode = status.st_ino;
  }
  FileResult result = writeAll(m_descriptor, text);
  if (result.ok()) return result;
  if (withoutInterruption([&] { return ftruncate(m_descriptor, status.st_size); }) != 0) {
    result.error += Phrases::tr("; the file could not be cut back: %1", {failure(errno).error});
  }
  return result;
}

void FileAppender::close() {
  if (m_descriptor >= 0) ::close(m_descriptor);
  m_descriptor = -1;
}

FolderLock::FolderLock(const fs::path& folder)
    : m_descriptor(
          withoutInterruption([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); })) {
  if (m_descriptor < 0) {
    m_result = failure(errno);
    return;
  }
  m_result = lock(m_descriptor, LOCK_EX);
}

FolderLock::~FolderLock() {
  if (m_descriptor >= 0) close(m_descriptor);
}

}  // namespace platform
