// System calls that fail, one at a time.
#include "fault_test.h"
#include "platform/files.h"

namespace faults {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

const Arguments kChanges = {"-e",
                            "trace=write,fsync,fchmod,linkat,?mkdir,?mkdirat,?rename,?renameat,renameat2"};

class FailingCalls : public FaultTest {
 protected:
  void SetUp() override { SKIP_WITHOUT_STRACE(); }

  /// Openings of the site's folder and of the files that it has. Libraries are opened, too, so that others
  /// are not even counted.
  Arguments openings() const {
    Arguments watched = {"-e", "trace=openat", "-P", data()};
    for (const auto& [file, text] : snapshot()) watched.insert(watched.end(), {"-P", data() / file});
    return watched;
  }
};

TEST_F(FailingCalls, EditsAreDoneOrReported) {
  prepare({"add", "shop", "http://a.test/"});
  prepare({"filters", "shop", "--add", "/first/"});
  const Snapshot before = snapshot();
  const Arguments edits[] = {{"edit", "shop", "--url", "http://b.test/"},
                             {"edit", "shop", "--name", "store", "--url", "http://b.test/"},
                             {"filters", "shop", "--add", "/second/"},
                             {"add", "store", "http://b.test/"}};
  for (const Arguments& edit : edits) {
    for (const Arguments& watched : {kChanges, openings()}) {
      restore(before);
      const std::vector<SystemCall> calls = callsOf(watched, edit);
      EXPECT_GE(calls.size(), 4u);
      const Snapshot after = snapshot();
      for (const SystemCall& call : calls) {
        SCOPED_TRACE(call.line);
        restore(before);
        const auto result = runWith("error=EIO", call, watched, edit);
        if (result.exitCode == 0) {
          EXPECT_EQ(snapshot(), after);
          // Folders are looked through for leftovers, too, which nobody needs to know about.
          EXPECT_TRUE(call.name == "openat" || result.errors != "");
        } else {
          EXPECT_EQ(result.exitCode, 4);
          EXPECT_NE(result.errors, "");
          EXPECT_THAT(snapshot(), AnyOf(before, after)) << result.errors;
        }
      }
    }
  }
}

TEST_F(FailingCalls, ADeletionThatFailsLeavesASite) {
  prepare({"add", "shop", "http://a.test/"});
  prepare({"filters", "shop", "--add", "/first/"});
  ASSERT_TRUE(platform::replaceFile(site() / "sitemap.xml", "<urlset>").ok());
  const Snapshot before = snapshot();
  const Arguments deletion = {"delete", "shop", "--yes"};
  const Arguments watched = {"-e", "trace=renameat2,unlinkat,?rmdir"};
  const std::vector<SystemCall> calls = callsOf(watched, deletion);
  EXPECT_GE(calls.size(), 4u);  // the renaming, and the removal of three files and their folder
  for (const SystemCall& call : calls) {
    SCOPED_TRACE(call.line);
    restore(before);
    const auto result = runWith("error=EPERM", call, watched, deletion);
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_EQ(result.errors, "Could not delete " + site().string() + ": Operation not permitted\n");
    EXPECT_EQ(snapshot()["shop/shop.qzVSK"], before.at("shop/shop.qzVSK"));
    prepare(deletion);
    EXPECT_TRUE(fs::is_empty(data()));
  }
}

TEST_F(FailingCalls, WithoutUnnamedFilesNamedOnesDo) {
  prepare({"add", "shop", "http://a.test/"});
  const Arguments edit = {"edit", "shop", "--url", "http://b.test/"};
  const Arguments watched = openings();
  int done = 0;
  for (const SystemCall& call : callsOf(watched, edit)) {
    if (call.line.find("O_TMPFILE") == call.line.npos) continue;
    const Snapshot after = snapshot();
    prepare({"edit", "shop", "--url", "http://c.test/"});
    const auto result = runWith("error=EOPNOTSUPP", call, watched, edit);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(snapshot(), after);
    ++done;
  }
  EXPECT_EQ(done, 1);
}

TEST_F(FailingCalls, ScansKeepWhatTheyCouldWrite) {
  const support::SiteServer server(manyPages(6));
  prepare({"add", "shop", server.url()});
  const Arguments scan = {"scan", "shop"};
  prepare(scan, 1);
  const Snapshot after = snapshot();
  prepare({"scan", "shop", "--max-pages", "2"});
  const Snapshot before = snapshot();
  ASSERT_EQ(before.size(), after.size());
  for (const Arguments& watched : {kChanges, openings()}) {
    restore(before);
    const std::vector<SystemCall> calls = callsOf(watched, scan);
    EXPECT_GT(calls.size(), 40u);
    for (std::size_t i = 0; i < calls.size(); i += 8) {
      const SystemCall& call = calls[i];
      SCOPED_TRACE(call.line);
      // They are counted by thread, and the first ones are what the user is told as well.
      if (call.name == "write" && call.number < 4) continue;
      restore(before);
      const auto result = runWith("error=ENOSPC", call, watched, scan);
      const Snapshot now = snapshot();
      if (result.exitCode == 1) {
        EXPECT_EQ(now, after);
        // Reasons and what was left out are kept beside the site, and are no part of the scan.
        EXPECT_THAT(result.errors, AnyOf("", StartsWith("Warning: The reasons of the broken pages could not"),
                                         StartsWith("Warning: What was left out could not"),
                                         StartsWith("Warning: The report could not"),
                                         StartsWith("Warning: The edited sitemaps of before could not"),
                                         StartsWith("Warning: What was written could not be remembered")));
        // Beside the site, databases make little of a folder that cannot be synced, and pages to go on with
        // are not missed once all are scanned.
        const bool isOfSite = call.line.find(data()) != call.line.npos;
        EXPECT_TRUE(call.name == "openat" || !isOfSite || result.errors != "");
      } else {
        EXPECT_EQ(result.exitCode, 4);
        EXPECT_NE(result.errors, "");
      }
      expectNothingLost(now, before, after);
      if (HasFailure()) return;
    }
  }
}

TEST_F(FailingCalls, SitemapsAreRestoredOrAsBefore) {
  makeFormerSet();
  const Snapshot before = sets();
  const Arguments restore = {"restore", "shop", "--yes"};
  const std::vector<SystemCall> calls = callsOf(kChanges, restore);
  const Snapshot after = sets();
  EXPECT_NE(before, after);
  EXPECT_GT(calls.size(), 50u);
  for (std::size_t i = 0; i < calls.size(); i += 3) {
    SCOPED_TRACE(calls[i].line);
    const bool isBefore = sets() == before;
    const auto result = runWith("error=EIO", calls[i], kChanges, restore);
    EXPECT_THAT(result.exitCode, AnyOf(0, 4));
    EXPECT_EQ(result.exitCode == 0, result.errors.empty());
    EXPECT_EQ(sets(), isBefore == (result.exitCode == 0) ? after : before);
    if (HasFailure()) return;
  }
}

TEST_F(FailingCalls, AnAppendThatCannotBeCutBackIsTold) {
  const support::SiteServer server(manyPages(2));
  prepare({"add", "shop", server.url()});
  prepare({"scan", "shop"}, 1);
  const auto result = runUnder(
      {"strace", "-f", "--seccomp-bpf", "-o", "/dev/null", "-P", site() / "sitemap.xml", "-e",
       "trace=write,ftruncate", "-e", "inject=write:error=ENOSPC:when=2", "-e", "inject=ftruncate:error=EIO"},
      {"scan", "shop"});
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_THAT(result.errors,
              HasSubstr("sitemap.xml: No space left on device; the file could not be cut back"));
  EXPECT_THAT(result.output, testing::Not(HasSubstr("sitemap.xml")));
}

}  // namespace
}  // namespace faults
