// Reports that cannot be written, or whose writing is killed: the scan is as without one, and the report as
// before it or as behind it.
#include <csignal>

#include "fault_test.h"
#include "platform/files.h"
#include "report/report_database.h"

namespace faults {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::StartsWith;

const Arguments kScan = {"scan", "shop"};

class Reports : public FaultTest {
 protected:
  void SetUp() override {
    SKIP_WITHOUT_STRACE();
    prepare({"add", "shop", server.url()});
    prepare(kScan, 1);
    prepare(kScan, 1);
    m_whole = snapshot();
    m_before = platform::readFile(file()).text;
    calls = callsOf(watched(), kScan);
    ASSERT_GT(calls.size(), 8u);
    ASSERT_EQ(kept(), kAfter);
  }

  fs::path file() const { return state.ofSite("shop") / "report.db"; }
  fs::path journal() const { return file().native() + "-journal"; }

  /// The calls that change the database.
  Arguments watched() const {
    return {"-e", "trace=pwrite64,fdatasync,fsync,?unlink,unlinkat", "-P", file(), "-P", journal()};
  }

  /// Does it to a third scan, whose report has two before it.
  support::ProgramResult scanWith(const std::string& what, const SystemCall& call) const {
    fs::remove(journal());
    EXPECT_TRUE(platform::replaceFile(file(), m_before).ok());
    const auto result = runWith(what, call, watched(), kScan);
    EXPECT_TRUE(snapshot() == m_whole);
    EXPECT_THAT(kept(), AnyOf(kBefore, kAfter));
    return result;
  }

  /// How many scans there are, and the pages of those that are kept whole; what is wrong instead.
  std::string kept() const {
    report::ReportDatabase database(state, "shop", report::ReportDatabase::Use::read);
    std::string text = std::to_string(database.history().size()) + " scans";
    for (const report::ScanFacts& scan : database.keptScans())
      text += ", " + std::to_string(database.contents(scan).pages.size());
    return database.result().ok() ? text : database.result().error;
  }

  const std::string kBefore = "2 scans, 7, 7";
  const std::string kAfter = "3 scans, 7, 7";
  const support::SiteServer server{manyPages(4)};
  std::vector<SystemCall> calls;

 private:
  Snapshot m_whole;
  std::string m_before;
};

TEST_F(Reports, AreOldOrNewWhereverAScanIsKilled) {
  for (std::size_t i = 0; i < calls.size(); i += 2) {
    SCOPED_TRACE(calls[i].line);
    EXPECT_EQ(scanWith("signal=KILL", calls[i]).exitCode, 128 + SIGKILL);
    if (HasFailure()) return;
  }
  prepare(kScan, 1);
  EXPECT_EQ(kept(), kAfter);
}

TEST_F(Reports, ThatCannotBeWrittenAreAllThatAScanLacks) {
  int told = 0;
  for (std::size_t i = 0; i < calls.size(); i += 2) {
    SCOPED_TRACE(calls[i].line);
    const auto result = scanWith("error=ENOSPC", calls[i]);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.errors, AnyOf("", StartsWith("Warning: The report could not be kept: ")));
    EXPECT_TRUE(result.errors != "" || kept() == kAfter);
    told += result.errors == "" ? 0 : 1;
    if (HasFailure()) return;
  }
  EXPECT_GT(told, 4);
}

}  // namespace
}  // namespace faults
