// A disk that has no room left.
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "fault_test.h"
#include "platform/files.h"

namespace faults {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class FullDisk : public FaultTest {
 protected:
  void SetUp() override {
    SKIP_UNLESS_MOUNTED(m_disk);
    useHome(m_disk.path());
  }

  /// Takes all room but `bytes`, rounded down to whole blocks.
  void leaveRoomFor(std::size_t bytes) const {
    struct statvfs disk {};
    ASSERT_EQ(statvfs(m_disk.path().c_str(), &disk), 0);
    const std::size_t free = disk.f_bavail * disk.f_frsize;
    ASSERT_GT(free, bytes);
    const int file = open(ballast().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(file, 0);
    const std::size_t size = (free - bytes) / disk.f_frsize * disk.f_frsize;
    EXPECT_EQ(posix_fallocate(file, 0, static_cast<off_t>(size)), 0);
    close(file);
  }

  void freeRoom() const { fs::remove(ballast()); }

  fs::path ballast() const { return m_disk.path() / "ballast"; }

 private:
  MountedFolder m_disk{"size=2m"};
};

TEST_F(FullDisk, ScansKeepWhatStillFits) {
  const support::SiteServer server(manyPages(40));
  prepare({"add", "shop", server.url()});
  prepare({"scan", "shop"}, 1);
  const Snapshot after = snapshot();
  prepare({"scan", "shop", "--max-pages", "2"});
  const Snapshot before = snapshot();

  // The old documents make room as the new ones are started, so even 0 lets a scan come a bit further.
  for (const std::size_t room : {0u, 10'000u, 40'000u, 80'000u}) {
    SCOPED_TRACE(room);
    leaveRoomFor(room);
    const auto result = run({"scan", "shop"});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_THAT(result.errors, HasSubstr("Could not write"));
    EXPECT_THAT(result.errors, HasSubstr("No space left on device"));
    const Snapshot now = snapshot();
    expectNothingLost(now, before, after);
    for (const auto& [file, text] : now) {
      // What was not written in full is named. Without any room the scan does not begin.
      const bool isTold = result.errors.find(data() / file) != std::string::npos;
      EXPECT_TRUE(text == after.at(file) || isTold || room == 0) << file;
    }
    freeRoom();
    restore(before);
  }
  prepare({"scan", "shop"}, 1);
  EXPECT_TRUE(snapshot() == after);
}

}  // namespace
}  // namespace faults
