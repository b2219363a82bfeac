// Processes that are killed as they enter one of the calls that change files, for every such call that there
// is: between two of them nothing changes.
#include <csignal>

#include "fault_test.h"
#include "platform/files.h"
#include "store/site_record.h"

namespace faults {
namespace {

namespace fs = std::filesystem;

const Arguments kChanges = {
    "-e", "trace=?mkdir,?mkdirat,write,linkat,?rename,?renameat,renameat2,?unlink,unlinkat,?rmdir"};

class Killed : public FaultTest {
 protected:
  void SetUp() override { SKIP_WITHOUT_STRACE(); }

  void runAndKill(const SystemCall& call, const Arguments& arguments) const {
    EXPECT_EQ(runWith("signal=KILL", call, kChanges, arguments).exitCode, 128 + SIGKILL);
  }
};

/// Without what a program that was killed in the very moment of a renaming may leave.
Snapshot withoutLeftovers(Snapshot snapshot) {
  std::erase_if(snapshot, [](const auto& file) { return file.first.find(".veskel-") != file.first.npos; });
  return snapshot;
}

TEST_F(Killed, ScansLoseNothing) {
  const support::SiteServer server(manyPages(15));
  prepare({"add", "shop", server.url()});
  Snapshot fresh = snapshot();
  std::string& record = fresh.at("shop/shop.qzVSK");
  record = store::withMissingCounters(record);
  const Arguments scan = {"scan", "shop"};
  prepare(scan, 1);
  const Snapshot whole = snapshot();
  // A folder, seven documents, the broken pages, the filters, the record.
  ASSERT_EQ(whole.size(), 11u);
  // What was edited stays kept, whatever the scans that are killed leave.
  ASSERT_TRUE(platform::replaceFile(site() / "sitemap1c.html", "edited").ok());
  const auto formerSet = [this] {
    Snapshot former;
    for (const auto& [file, text] : sets()) {
      if (file.starts_with("former/")) former["shop" + file.substr(file.find('/'))] = text;
    }
    return former;
  };
  prepare(scan, 1);
  ASSERT_EQ(formerSet()["shop/sitemap1c.html"], "edited");
  const Snapshot kept = formerSet();

  const std::vector<SystemCall> calls = callsOf(kChanges, scan);
  ASSERT_GT(calls.size(), 7u * 15);
  for (std::size_t i = 0; i < calls.size(); i += 5) {
    SCOPED_TRACE(calls[i].line);
    // The others begin with what the kill before them has left.
    if (i % 4 == 0) restore(fresh);
    const Snapshot before = withoutLeftovers(snapshot());
    runAndKill(calls[i], scan);
    expectNothingLost(withoutLeftovers(snapshot()), before, whole);
    EXPECT_TRUE(formerSet() == kept);
    if (i % 50 == 0) {
      prepare(scan, 1);
      EXPECT_TRUE(snapshot() == whole);
    }
    if (HasFailure()) return;
  }
}

/// Once the list of sites was read, all is as before or as after.
TEST_F(Killed, ASiteIsChangedOrNotWhereverThatEnds) {
  const std::string record = store::newSiteRecord("shop", "http://a.test/");
  const std::string older = "<siteName>shop</siteName>\n<siteURL>http://a.test/</siteURL>\n";
  const Snapshot bare = {{"shop", "(folder)"}, {"shop/shop.qzVSK", record}};
  const Snapshot shop = {
      {"shop", "(folder)"}, {"shop/filters.vskp", "/kept/\n"}, {"shop/shop.qzVSK", record}};
  struct Case {
    Arguments command;
    Snapshot before;
    Snapshot after;
  };
  const Case cases[] = {
      {{"add", "shop", "http://a.test/"}, {}, bare},
      {{"edit", "shop", "--url", "http://b.test/"},
       bare,
       {{"shop", "(folder)"}, {"shop/shop.qzVSK", store::newSiteRecord("shop", "http://b.test/")}}},
      {{"filters", "shop", "--delete", "/kept/", "--add", "/new/"},
       shop,
       {{"shop", "(folder)"}, {"shop/filters.vskp", "/new/\n"}, {"shop/shop.qzVSK", record}}},
      {{"delete", "shop", "--yes"}, shop, {}},
      {{"edit", "shop", "--name", "store", "--url", "http://b.test/"},
       shop,
       {{"store", "(folder)"},
        {"store/filters.vskp", "/kept/\n"},
        {"store/store.qzVSK", store::newSiteRecord("store", "http://b.test/")}}},
      {{"sites"}, {{"shop", "(folder)"}, {"shop/shop.qzvsk", older}, {"shop/sitemap.html", "x"}}, bare},
  };
  for (const auto& [command, before, after] : cases) {
    const auto begin = [&, &start = before] {
      restore(start);
      ASSERT_TRUE(reasons.save("shop", {{"u", "of shop"}}).ok());
    };
    begin();
    const std::vector<SystemCall> calls = callsOf(kChanges, command);
    EXPECT_EQ(snapshot(), after);
    EXPECT_GE(calls.size(), 3u);
    for (const SystemCall& call : calls) {
      SCOPED_TRACE(call.line);
      begin();
      runAndKill(call, command);
      const std::string name = fs::exists(site()) ? "shop" : "store";
      const std::string left = read(name + "/" + name + ".qzVSK");
      EXPECT_TRUE(command[0] != "edit" || store::recordValue(left, store::kSiteName) == name);
      prepare({"sites"});
      const Snapshot now = withoutLeftovers(snapshot());
      EXPECT_TRUE(now == after || (now == before && command[0] != "sites"));
      EXPECT_TRUE(before.empty() || now.empty() || reasons.lookUp(name, {"u"})[0].reason == "of shop");
      if (now == before) prepare(command);
      EXPECT_EQ(withoutLeftovers(snapshot()), after);
      // The next change of the site takes leftovers away.
      if (snapshot() != after) prepare({"edit", after.begin()->first, "--url", "c.test"});
      EXPECT_EQ(snapshot(), withoutLeftovers(snapshot()));
      if (HasFailure()) return;
    }
  }
}

TEST_F(Killed, EditedSitemapsAreKeptOrStillThere) {
  makeFormerSet();
  const Snapshot former = sets();
  ASSERT_TRUE(platform::replaceFile(site() / "sitemap1c.html", "edited").ok());
  const Snapshot fresh = snapshot();
  const fs::path memory = state.ofSite("shop") / "scanned-documents";
  const std::string remembered = platform::readFile(memory).text;
  const Arguments scan = {"scan", "shop"};  // of a server that has gone
  const std::vector<SystemCall> calls = callsOf(kChanges, scan);
  for (std::size_t i = 0; i < calls.size(); i += 4) {
    SCOPED_TRACE(calls[i].line);
    restore(fresh);
    ASSERT_TRUE(platform::replaceFile(memory, remembered).ok());
    runAndKill(calls[i], scan);
    prepare({"sites"});
    const Snapshot now = sets();
    const bool isKept = now.at("former/sitemap1c.html") == "edited";
    EXPECT_TRUE(isKept || read("shop/sitemap1c.html") == "edited");
    EXPECT_TRUE(isKept || now.at("former/sitemap2c.html") == former.at("former/sitemap2c.html"));
    if (HasFailure()) return;
  }
}

TEST_F(Killed, ARestoringIsDoneOrNotOnceTheListIsRead) {
  makeFormerSet();
  const Snapshot before = sets();
  const Arguments restoring = {"restore", "shop", "--yes"};
  const std::vector<SystemCall> calls = callsOf(kChanges, restoring);
  const Snapshot after = sets();
  bool isBefore = false;
  int done = 0;
  for (const SystemCall& call : calls) {
    SCOPED_TRACE(call.line);
    runAndKill(call, restoring);
    prepare({"sites"});
    const Snapshot now = sets();
    EXPECT_TRUE(now == before || now == after);
    done += (now == before) != isBefore ? 1 : 0;
    isBefore = now == before;
    if (HasFailure()) return;
  }
  EXPECT_GT(done, 20);
  EXPECT_LT(done, static_cast<int>(calls.size()) - 20);
}

}  // namespace
}  // namespace faults
