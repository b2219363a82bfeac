// A disk that has no room left for larger files, so that writes come up short.
#include "fault_test.h"

namespace faults {
namespace {

using testing::HasSubstr;

using FullDisk = FaultTest;

TEST_F(FullDisk, ScansKeepWhatStillFits) {
  const support::SiteServer server(manyPages(20));
  prepare({"add", "shop", server.url()});
  prepare({"scan", "shop"}, 1);
  const Snapshot after = snapshot();
  prepare({"scan", "shop", "--max-pages", "2"});
  const Snapshot before = snapshot();
  for (const char* blocks : {"3", "9", "16", "20"}) {  // of 512 bytes, in each file
    SCOPED_TRACE(blocks);
    const auto result =
        runUnder({"sh", "-c", "trap '' XFSZ; ulimit -f \"$0\"; exec \"$@\"", blocks}, {"scan", "shop"});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_THAT(result.errors, HasSubstr("Could not write"));
    EXPECT_THAT(result.errors, HasSubstr("File too large"));
    const Snapshot now = snapshot();
    expectNothingLost(now, before, after);
    for (const auto& [file, text] : now) {
      // What was not written in full is named.
      const bool isTold = result.errors.find(data() / file) != std::string::npos;
      EXPECT_TRUE(text == after.at(file) || isTold) << file;
    }
    restore(before);
  }
}

}  // namespace
}  // namespace faults
