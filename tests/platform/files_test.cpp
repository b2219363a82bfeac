#include "platform/files.h"

#include <atomic>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

void put(const fs::path& file, const std::string& text) {
  std::ofstream(file, std::ios::binary) << text;
}

mode_t modeOf(const fs::path& path) {
  struct stat status {};
  stat(path.c_str(), &status);
  return status.st_mode & 07777;
}

class Files : public testing::Test {
 protected:
  fs::path in(const char* name) const { return m_folder.path() / name; }
  std::vector<std::string> everything() const { return filesBelow(m_folder.path()); }

 private:
  support::TempFolder m_folder;
};

TEST_F(Files, ReadsBytesWithinABound) {
  EXPECT_TRUE(readFile("/proc/self/status").text.ends_with('\n'));  // which hides its size
  const std::string text = std::string("a\0b\r\n\xff", 6) + std::string(100'000, 'x');
  put(in("f"), text);
  EXPECT_EQ(readFile(in("f"), text.size()).text, text);
  EXPECT_EQ(readFile(in("f"), text.size() - 1).text, "");
  fs::resize_file(in("f"), 20'000'000'000);
  EXPECT_EQ(readFile(in("f"), kMaxListBytes).result.error, "The file is larger than 64 MB");
  EXPECT_EQ(readFile(in("f")).result.error, "The file is larger than 2048 MB");
}

/// None of these may be waited for: a pipe has no end before somebody writes to it.
TEST_F(Files, AreRegularOrRefused) {
  ASSERT_TRUE(makeFolder(in("folder")).ok());
  put(in("file"), "x");
  ASSERT_EQ(mkfifo(in("pipe").c_str(), 0600), 0);
  fs::create_symlink("pipe", in("link"));
  fs::create_symlink("loop", in("loop"));
  struct Case {
    fs::path path;
    FileStatus status;
    const char* error;
    bool canBeMade = false;
  };
  const Case cases[] = {{in("none"), FileStatus::missing, "No such file or directory", true},
                        {in("none/f"), FileStatus::missing, "No such file or directory"},
                        {in("file/f"), FileStatus::missing, "Not a directory"},
                        {in("folder"), FileStatus::failed, "Is a directory"},
                        {in("loop"), FileStatus::failed, ""},
                        {in("pipe"), FileStatus::failed, "Not a regular file"},
                        {in("link"), FileStatus::failed, "Not a regular file"},
                        {"/dev/zero", FileStatus::failed, "Not a regular file"}};
  for (const auto& [path, status, error, canBeMade] : cases) {
    SCOPED_TRACE(path);
    std::vector<FileResult> results = {readFile(path).result, syncFile(path), FileAppender(path).append("x")};
    if (!canBeMade) results.push_back(replaceFile(path, "x"));
    for (const FileResult& result : results) {
      EXPECT_EQ(result.status, status);
      EXPECT_THAT(result.error, StartsWith(error));
    }
  }
  EXPECT_TRUE(fs::is_fifo(in("pipe")));
  EXPECT_THAT(everything(), ElementsAre("file"));
}

TEST_F(Files, ReplacesAndKeepsPermissions) {
  EXPECT_TRUE(replaceFile(in("f"), "first, and longer").ok());
  const mode_t mask = umask(0);
  umask(mask);
  EXPECT_EQ(modeOf(in("f")), 0644 & ~mask);
  for (const mode_t mode : {0664u, 0444u}) {
    ASSERT_EQ(chmod(in("f").c_str(), mode), 0);
    EXPECT_TRUE(replaceFile(in("f"), "second").ok());
    EXPECT_EQ(modeOf(in("f")), mode);
  }
  EXPECT_EQ(readFile(in("f")).text, "second");
  EXPECT_THAT(everything(), ElementsAre("f"));
}

TEST_F(Files, ReplacesBehindLinks) {
  ASSERT_TRUE(makeFolder(in("real")).ok());
  put(in("real/f"), "old");
  fs::create_symlink("f", in("real/inner"));
  fs::create_symlink("real/inner", in("outer"));
  fs::create_symlink("real/new", in("dangling"));
  EXPECT_TRUE(replaceFile(in("outer"), "new").ok());
  EXPECT_TRUE(replaceFile(in("dangling"), "made").ok());
  EXPECT_TRUE(fs::is_symlink(in("outer")));
  EXPECT_TRUE(fs::is_symlink(in("dangling")));
  EXPECT_EQ(readFile(in("real/f")).text, "new");
  EXPECT_EQ(readFile(in("real/new")).text, "made");
}

TEST_F(Files, ReplacesByABareName) {
  const fs::path before = fs::current_path();
  fs::current_path(in("."));
  const FileResult result = replaceFile("bare", "x");
  fs::current_path(before);
  EXPECT_TRUE(result.ok()) << result.error;
  EXPECT_THAT(everything(), ElementsAre("bare"));
}

TEST_F(Files, RemovesLeftoversOfKilledProcessesAlone) {
  const std::string left = temporaryName();
  const std::string inUse = temporaryName();
  const std::vector<std::string> others = {".veskel-notes", left + ".bak", "x" + left, ".veskel-12.tmp",
                                           ".veskel-x/note"};
  ASSERT_TRUE(makeFolder(in(".veskel-x")).ok());
  for (const std::string& file : others) put(in(file.c_str()), "somebody's own");
  put(in(left.c_str()), "left");
  put(in(inUse.c_str()), "in use");
  const int user = open(in(inUse.c_str()).c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_EQ(flock(user, LOCK_EX), 0);
  EXPECT_TRUE(replaceFile(in("f"), "x").ok());
  std::vector<std::string> kept = others;
  kept.insert(kept.end(), {"f", inUse});
  EXPECT_THAT(everything(), testing::UnorderedElementsAreArray(kept));
  close(user);
  EXPECT_TRUE(replaceFile(in("f"), "x").ok());
  EXPECT_FALSE(somethingAt(in(inUse.c_str())));
}

TEST_F(Files, ReplacesBesideOthersThatDo) {
  std::vector<std::jthread> writers;
  std::atomic<int> failures{0};
  for (const char letter : {'a', 'b', 'c', 'd'}) {
    writers.emplace_back([&, text = std::string(5000, letter)] {
      for (int i = 0; i < 25; ++i) failures += replaceFile(in("shared"), text).ok() ? 0 : 1;
    });
  }
  writers.clear();
  EXPECT_EQ(failures, 0);
  EXPECT_THAT(everything(), ElementsAre("shared"));
  const std::string text = readFile(in("shared")).text;
  EXPECT_EQ(text, std::string(5000, text.front()));
}

TEST_F(Files, AFailedWriteLeavesTheOldFileAlone) {
  put(in("f"), std::string(900, 'a'));
  FileAppender file(in("f"));
  {
    const support::FileSizeLimit limit(1000);  // room for 100 of the bytes that are added
    EXPECT_EQ(replaceFile(in("f"), std::string(2000, 'b')).error, "File too large");
    EXPECT_EQ(file.append(std::string(200, 'b')).error, "File too large");
  }
  EXPECT_EQ(readFile(in("f")).text, std::string(900, 'a'));
  EXPECT_THAT(everything(), ElementsAre("f"));
}

TEST_F(Files, AppendsToWhatStandsAtThePathNow) {
  put(in("f"), "one");
  FileAppender file(in("f"));
  EXPECT_TRUE(file.append(" two").ok());
  EXPECT_TRUE(syncFile(in("f")).ok());
  EXPECT_EQ(readFile(in("f")).text, "one two");
  ASSERT_TRUE(replaceFile(in("f"), "another").ok());
  EXPECT_TRUE(file.append(" two").ok());
  EXPECT_EQ(readFile(in("f")).text, "another two");
  fs::rename(in("f"), in("g"));
  EXPECT_EQ(file.append("lost").status, FileStatus::missing);
  fs::rename(in("g"), in("f"));
  EXPECT_TRUE(file.append(" more").ok());
  EXPECT_EQ(readFile(in("f")).text, "another two more");
}

TEST_F(Files, NeverMakesOverSomethingElse) {
  fs::create_symlink("nowhere", in("dangling"));
  put(in("file"), "x");
  for (const char* taken : {"dangling", "file", "."}) {
    SCOPED_TRACE(taken);
    EXPECT_TRUE(somethingAt(in(taken)));
    EXPECT_EQ(makeFolder(in(taken)).status, FileStatus::exists);
    EXPECT_EQ(makeEmptyFile(in(taken)).status, FileStatus::exists);
  }
  EXPECT_FALSE(somethingAt(in("nowhere")));
  EXPECT_EQ(makeFolder(in("a/b")).status, FileStatus::missing);
  EXPECT_TRUE(makeEmptyFile(in("new")).ok());
  EXPECT_EQ(fs::file_size(in("new")), 0u);
}

TEST_F(Files, MovesWithoutReplacing) {
  put(in("a"), "a");
  put(in("b"), "b");
  ASSERT_TRUE(makeFolder(in("full")).ok());
  ASSERT_TRUE(makeFolder(in("empty")).ok());
  put(in("full/f"), "f");
  EXPECT_EQ(moveTo(in("a"), in("b")).status, FileStatus::exists);
  EXPECT_EQ(moveTo(in("full"), in("empty")).status, FileStatus::exists);  // plain rename() would do it
  EXPECT_EQ(moveTo(in("none"), in("c")).status, FileStatus::missing);
  EXPECT_EQ(moveTo(in("full"), in("full/inside")).status, FileStatus::failed);
  EXPECT_TRUE(moveTo(in("full"), in("moved")).ok());
  EXPECT_THAT(everything(), ElementsAre("a", "b", "moved/f"));
  EXPECT_EQ(readFile(in("b")).text, "b");
}

TEST_F(Files, RemovesWhatItIsToldTo) {
  ASSERT_TRUE(makeFolder(in("keep")).ok());
  put(in("keep/f"), "x");
  fs::create_directories(in("gone/deeper"));
  put(in("gone/deeper/f"), "x");
  fs::create_symlink("../keep", in("gone/link"));
  put(in("file"), "x");
  EXPECT_TRUE(removeFolder(in("gone")).ok());
  EXPECT_FALSE(somethingAt(in("gone")));
  EXPECT_EQ(removeFolder(in("gone")).status, FileStatus::missing);
  EXPECT_EQ(removeFolder(in("file")).status, FileStatus::failed);
  EXPECT_EQ(removeFile(in("keep")).status, FileStatus::failed);
  EXPECT_TRUE(removeFile(in("file")).ok());
  EXPECT_EQ(removeFile(in("file")).status, FileStatus::missing);
  EXPECT_THAT(everything(), ElementsAre("keep/f"));
}

TEST_F(Files, ListsInByteOrderWhatItMayRead) {
  for (const char* folder : {"b", "b/c", "B", "closed", "empty"}) ASSERT_TRUE(makeFolder(in(folder)).ok());
  for (const char* file : {"b.x", "b/c/2", "b/1", "B/z", "\xC3\xA4", ".hidden", "closed/f"})
    put(in(file), "");
  fs::create_symlink("b", in("to-folder"));
  fs::create_symlink("b.x", in("to-file"));
  fs::create_symlink("none", in("to-nothing"));
  ASSERT_EQ(chmod(in("closed").c_str(), 0), 0);
  ASSERT_EQ(chmod(in(".").c_str(), 0755), 0);
  const bool isRoot = geteuid() == 0;  // who may read everything
  ASSERT_EQ(isRoot ? seteuid(65534) : 0, 0);
  const std::vector<std::string> files = everything();
  ASSERT_EQ(isRoot ? seteuid(0) : 0, 0);
  ASSERT_EQ(chmod(in("closed").c_str(), 0700), 0);
  EXPECT_THAT(files, ElementsAre(".hidden", "B/z", "b.x", "b/1", "b/c/2", "to-file", "\xC3\xA4"));
  EXPECT_THAT(filesBelow(in("none")), IsEmpty());
}

}  // namespace
}  // namespace platform
