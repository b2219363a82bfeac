// Reading and writing whole files so that nothing is lost: atomic replacement, append with cut-back, locks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

enum class FileStatus {
  ok,
  missing,  // the file, or a folder on the way to it, does not exist or is no folder
  exists,   // something stands where a new file or folder was to be made
  busy,     // somebody else holds the lock
  failed,   // anything else; `error` says what
};

/// How an operation on a file went. `error` is the system's text for the cause ("Permission denied"), empty
/// when ok.
struct [[nodiscard]] FileResult {
  FileStatus status = FileStatus::ok;
  std::string error = {};

  bool ok() const { return status == FileStatus::ok; }
};

/// A file's whole content, bytes as they are; `text` is empty unless `result.ok()`.
struct [[nodiscard]] FileContent {
  FileResult result;
  std::string text = {};
};

/// The bounds on what is read whole, so that no file can take all memory: of a record or a list, and of a
/// document. The length of either fits into an int, which libraries ask for.
inline constexpr std::size_t kMaxListBytes = std::size_t{64} << 20;
inline constexpr std::size_t kMaxDocumentBytes = (std::size_t{2} << 30) - 1;

/// Reads a regular file, also one behind symbolic links. Never waits and never throws: a pipe or device is
/// refused unopened, and so is a file of more than `maxBytes`.
FileContent readFile(const std::filesystem::path& file, std::size_t maxBytes = kMaxDocumentBytes);

/// Makes `text` the whole content of `file`, which may exist or not: a temporary file in the same folder is
/// written, synced and renamed over it, then the folder is synced where that can be done. After a failure the
/// old file is whole, unless it was the folder that could not be synced: then the new one is in place, and a
/// power cut may undo that. No temporary file is left behind; only a process that is killed in the moment of
/// the renaming leaves one, see temporaryName(), which the next replacement in that folder removes. The
/// permissions of an existing file are kept. A symbolic link stays: what it leads to is replaced, or made.
/// Devices and pipes are refused.
FileResult replaceFile(const std::filesystem::path& file, std::string_view text);

/// A name for a file or folder that is there for a moment: ".veskel-", 16 hexadecimal digits, ".tmp". Whoever
/// makes one holds its lock as long as it is needed. Without a lock it was left by a process that was killed.
std::string temporaryName();
bool isTemporaryName(std::string_view name);

/// Puts the content of an existing regular file on disk for good.
FileResult syncFile(const std::filesystem::path& file);

/// Puts a folder's entries on disk for good: what was made, renamed or removed in it. Where the file system
/// cannot do that, or the folder may not be read, nothing is done.
FileResult syncFolder(const std::filesystem::path& folder);

/// Makes one folder; its parent has to exist. `exists` when anything stands at the path.
FileResult makeFolder(const std::filesystem::path& folder);

/// Makes a folder and those above it where they are missing.
FileResult makeFolders(const std::filesystem::path& folder);

/// Makes an empty file; `exists` when anything stands at the path.
FileResult makeEmptyFile(const std::filesystem::path& file);

/// Renames a file or folder. Never replaces: `exists` when anything stands at `to`.
FileResult moveTo(const std::filesystem::path& from, const std::filesystem::path& to);

/// Removes a file; `missing` when there is none.
FileResult removeFile(const std::filesystem::path& file);

/// Removes a folder with everything below it; of symbolic links the links alone, not what they lead to.
/// `missing` when there is none; a file is left alone.
FileResult removeFolder(const std::filesystem::path& folder);

/// True when anything stands at the path, also a symbolic link that leads nowhere.
bool somethingAt(const std::filesystem::path& path);

/// The regular files below `folder` at any depth, and the symbolic links to such, as paths relative to it,
/// sorted by byte order. Folders that cannot be read are passed over and symbolic links to folders are not
/// followed. Empty when there is no such folder.
std::vector<std::string> filesBelow(const std::filesystem::path& folder);

/// Adds to the end of one existing regular file, piece by piece. The file stays open between the pieces, and
/// each one goes to what stands at the path then: a file that was replaced is found anew. One thread at a
/// time.
class FileAppender {
 public:
  /// Touches nothing yet.
  explicit FileAppender(std::filesystem::path file) : m_file(std::move(file)) {}
  ~FileAppender() { close(); }
  FileAppender(FileAppender&& other) noexcept;
  FileAppender& operator=(FileAppender&&) = delete;

  const std::filesystem::path& file() const { return m_file; }

  /// A missing file is not created (`missing`). The cost does not depend on the file's size. When a write
  /// fails or comes up short the file is cut back to its old length. Nothing is synced here: call syncFile()
  /// once the last piece is in.
  FileResult append(std::string_view text);

 private:
  void close();

  std::filesystem::path m_file;
  int m_descriptor = -1;
  std::uint64_t m_device = 0;  // of the file that is open
  std::uint64_t m_inode = 0;
};

/// An advisory lock on a folder, shared by all programs that ask for it, without a file of its own.
/// It ends with this object and with the process, however that dies.
class FolderLock {
 public:
  /// Takes the lock without waiting. `result().status` is `busy` when somebody else, in this process or
  /// another one, holds it.
  explicit FolderLock(const std::filesystem::path& folder);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  const FileResult& result() const { return m_result; }

 private:
  FileResult m_result;
  int m_descriptor = -1;
};

}  // namespace platform
