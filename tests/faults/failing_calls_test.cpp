// System calls that fail, one at a time: the first, the second and so on, as long as there are any.
#include <string_view>

#include "fault_test.h"
#include "platform/files.h"

namespace faults {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr int kMostCalls = 40;

/// Calls by name, and how they fail.
struct Failure {
  const char* calls;
  const char* error;
  bool inFolderOnly = false;  // only those that name the site's folder or a file in it
};

class FailingCalls : public FaultTest {
 protected:
  void SetUp() override { SKIP_WITHOUT_STRACE(); }

  struct Run {
    support::ProgramResult result;
    bool failureHappened;
  };

  /// Runs the program with the n-th of the calls failing.
  Run runWithFailure(const Arguments& arguments, const Failure& failure, int n) const {
    const fs::path trace = ownHome.path() / "trace";
    Arguments strace = {
        "strace", "-f", "--seccomp-bpf", "-o", trace, "-e", std::string("trace=") + failure.calls};
    if (failure.inFolderOnly) {
      strace.insert(strace.end(), {"-P", site()});
      for (const auto& [file, text] : m_before) {
        if (file.starts_with("shop/")) strace.insert(strace.end(), {"-P", data() / file});
      }
    }
    strace.insert(strace.end(), {"-e", std::string("inject=") + failure.calls + ":error=" + failure.error +
                                           ":when=" + std::to_string(n)});
    auto result = runUnder(strace, arguments);
    const bool happened = platform::readFile(trace).text.find("(INJECTED)") != std::string::npos;
    return {std::move(result), happened};
  }

  /// What the data folder holds now is where reset() leads back to.
  void keepAsBefore() {
    m_before = snapshotOf(data());
    fs::remove_all(m_kept.path());
    fs::copy(data(), m_kept.path(), fs::copy_options::recursive);
  }

  void reset() const {
    fs::remove_all(data());
    fs::copy(m_kept.path(), data(), fs::copy_options::recursive);
  }

  const Snapshot& before() const { return m_before; }

 private:
  support::TempFolder m_kept;
  Snapshot m_before;
};

TEST_F(FailingCalls, EditsAreDoneOrReported) {
  prepare({"add", "shop", "http://a.test/"});
  prepare({"filters", "shop", "--add", "/first/"});
  keepAsBefore();
  const Arguments edits[] = {{"edit", "shop", "--url", "http://b.test/"},
                             {"edit", "shop", "--ignore-robots", "yes"},
                             {"edit", "shop", "--name", "store", "--url", "http://b.test/"},
                             {"filters", "shop", "--add", "/second/"},
                             {"add", "store", "http://b.test/"}};
  const Failure failures[] = {{"write", "ENOSPC"},       {"fsync", "EIO"},       {"linkat", "ENOSPC"},
                              {"/^rename(at)?$", "EIO"}, {"renameat2", "EIO"},   {"mkdir", "ENOSPC"},
                              {"fchmod", "EPERM"},       {"openat", "EIO", true}};
  for (const Arguments& edit : edits) {
    reset();
    const auto reference = run(edit);
    ASSERT_EQ(reference.exitCode, 0) << reference.errors;
    const Snapshot after = snapshotOf(data());
    for (const Failure& failure : failures) {
      for (int n = 1; n <= kMostCalls; ++n) {
        SCOPED_TRACE(edit[0] + " " + edit[2] + ", " + failure.calls + " " + std::to_string(n));
        ASSERT_LT(n, kMostCalls) << "the calls do not come to an end";
        reset();
        const auto [result, happened] = runWithFailure(edit, failure, n);
        const Snapshot now = snapshotOf(data());
        if (result.exitCode == 0) {
          EXPECT_TRUE(now == after);
          EXPECT_EQ(result.output, reference.output);
          // Folders are looked through for leftovers, too, which nobody needs to know about.
          EXPECT_TRUE(!happened || failure.inFolderOnly || result.errors != "");
        } else {
          EXPECT_EQ(result.exitCode, 4);
          EXPECT_NE(result.errors, "");
          EXPECT_TRUE(now == before() || now == after) << result.errors;
        }
        if (!happened) break;
      }
    }
  }
}

TEST_F(FailingCalls, ADeletionThatFailsLeavesASite) {
  prepare({"add", "shop", "http://a.test/"});
  prepare({"filters", "shop", "--add", "/first/"});
  ASSERT_TRUE(platform::replaceFile(site() / "sitemap.xml", "<urlset>").ok());
  keepAsBefore();
  int failed = 0;
  for (const char* calls : {"renameat2", "unlinkat", "rmdir"}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE(std::string(calls) + " " + std::to_string(n));
      ASSERT_LT(n, kMostCalls);
      reset();
      const auto [result, happened] = runWithFailure({"delete", "shop", "--yes"}, {calls, "EPERM"}, n);
      if (!happened) break;
      ++failed;
      EXPECT_EQ(result.exitCode, 4);
      EXPECT_EQ(result.errors, "Could not delete " + site().string() + ": Operation not permitted\n");
      EXPECT_EQ(platform::readFile(site() / "shop.qzVSK").text, before().at("shop/shop.qzVSK"));
      prepare({"delete", "shop", "--yes"});
      EXPECT_TRUE(fs::is_empty(data()));
    }
  }
  EXPECT_GE(failed, 4);  // the renaming, and the removal of three files and their folder
}

TEST_F(FailingCalls, WithoutUnnamedFilesNamedOnesDo) {
  prepare({"add", "shop", "http://a.test/"});
  keepAsBefore();
  prepare({"edit", "shop", "--url", "http://b.test/"});
  const Snapshot after = snapshotOf(data());
  int done = 0;
  for (int n = 1;; ++n) {
    reset();
    const auto [result, happened] =
        runWithFailure({"edit", "shop", "--url", "http://b.test/"}, {"openat", "EOPNOTSUPP", true}, n);
    if (!happened) break;
    ASSERT_LT(n, kMostCalls);
    EXPECT_TRUE(result.exitCode != 0 || snapshotOf(data()) == after);
    const std::string trace = platform::readFile(ownHome.path() / "trace").text;
    if (trace.find("O_TMPFILE, 0600) = -1 EOPNOTSUPP") == std::string::npos) continue;
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    ++done;
  }
  EXPECT_EQ(done, 1);
}

TEST_F(FailingCalls, ScansKeepWhatTheyCouldWrite) {
  const support::SiteServer server(manyPages(12));
  prepare({"add", "shop", server.url()});
  prepare({"scan", "shop"}, 1);
  const Snapshot after = snapshotOf(data());
  prepare({"scan", "shop", "--max-pages", "2"});
  keepAsBefore();
  ASSERT_EQ(before().size(), after.size());
  struct Case {
    Failure failure;
    int step;                  // from one failing call to the next
    bool mayBeSilent = false;  // folders are looked through for leftovers, too
  };
  const Case cases[] = {{{"write", "ENOSPC", true}, 9}, {{"openat", "EMFILE", true}, 9, true},
                        {{"fsync", "EIO", true}, 2},    {{"fsync", "EIO"}, 5},
                        {{"/^rename(at)?$", "EIO"}, 3}, {{"linkat", "ENOSPC"}, 4}};
  for (const auto& [failure, step, mayBeSilent] : cases) {
    for (int n = 1;; n += step) {
      SCOPED_TRACE(std::string(failure.calls) + " " + std::to_string(n));
      reset();
      const auto [result, happened] = runWithFailure({"scan", "shop"}, failure, n);
      const Snapshot now = snapshotOf(data());
      if (result.exitCode == 1) {
        EXPECT_TRUE(now == after);
        // The reasons are kept beside the site, and are no part of the scan.
        EXPECT_THAT(result.errors,
                    AnyOf("", StartsWith("Warning: The reasons of the broken pages could not")));
        EXPECT_TRUE(!happened || mayBeSilent || result.errors != "");
      } else {
        EXPECT_EQ(result.exitCode, 4);
        EXPECT_NE(result.errors, "");
      }
      EXPECT_EQ(now.size(), after.size());
      for (const auto& [file, text] : now) {
        SCOPED_TRACE(file);
        ASSERT_TRUE(after.contains(file));
        const bool isDocument = file.starts_with("shop/sitemap");
        EXPECT_TRUE(text == before().at(file) || text == after.at(file) ||
                    (isDocument && endsBehindACell(fs::path(file).filename(), text, after.at(file))))
            << text;
      }
      if (!happened || HasFailure()) break;
    }
  }
}

TEST_F(FailingCalls, AnAppendThatCannotBeCutBackIsTold) {
  const support::SiteServer server(manyPages(5));
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
