// Homes that are missing, folders that cannot be written, folders that go away.
#include <atomic>
#include <fstream>

#include <unistd.h>

#include "fault_test.h"
#include "platform/files.h"

namespace faults {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

using OddFolders = FaultTest;

/// Runs what stands behind it where `mount` was run before; `$0` is `argument` there.
Arguments behindMount(const std::string& mount, const std::string& argument = {}) {
  Arguments launcher = {"unshare", "--mount"};
  if (geteuid() != 0) launcher.push_back("--map-root-user");
  launcher.insert(launcher.end(), {"sh", "-c", mount + " || exit 99; exec \"$@\"", argument});
  return launcher;
}

#define SKIP_UNLESS_MOUNTED(launcher) \
  if (runUnder(launcher, {"--version"}).exitCode != 0) GTEST_SKIP() << "no file system can be mounted here"

TEST_F(OddFolders, AReadOnlySiteIsToldAndLeftAlone) {
  prepare({"add", "shop", "http://127.0.0.1:9/"});
  prepare({"filters", "shop", "--add", "/first/"});
  const Arguments launcher = behindMount(
      "cd \"$0\" && mount -t tmpfs none \"$0\" && cp -a . \"$0\" && mount -o remount,ro \"$0\"", site());
  SKIP_UNLESS_MOUNTED(launcher);
  const Snapshot before = snapshot();
  for (const Arguments& edit : {Arguments{"filters", "shop", "--add", "/second/"}, {"scan", "shop"}}) {
    SCOPED_TRACE(edit[0]);
    const auto result = runUnder(launcher, edit);
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_THAT(result.errors, HasSubstr("Read-only file system"));
    EXPECT_TRUE(snapshot() == before);
  }
  const auto shown = runUnder(launcher, {"show", "shop"});
  EXPECT_EQ(shown.exitCode, 0) << shown.errors;
}

TEST_F(OddFolders, WithoutHomeTheUserDatabaseKnows) {
  const support::TempFolder known;
  const fs::path users = home.path() / "users";
  std::ofstream(users) << "root:x:0:0::" << known.path().string() << ":/bin/sh\n";
  Arguments launcher = behindMount("mount --bind \"$0\" /etc/passwd", users);
  SKIP_UNLESS_MOUNTED(launcher);
  launcher.push_back("env");
  for (const Arguments& unset : {Arguments{"-u", "HOME", "-u", "XDG_STATE_HOME"}, Arguments{"HOME="}}) {
    SCOPED_TRACE(unset[0]);
    Arguments complete = launcher;
    complete.insert(complete.end(), unset.begin(), unset.end());
    const auto result = runUnder(complete, {"where"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_THAT(result.output, StartsWith(known.path().string() + "/Library/"));
  }
  EXPECT_TRUE(fs::is_directory(store::GlobalControls(known.path()).homeFolderLocation()));
}

TEST_F(OddFolders, WithoutCertificatesTheReasonSaysSo) {
  const support::SiteServer server(manyPages(1));
  prepare({"add", "shop", "https" + server.url().substr(4)});
  const Arguments launcher = behindMount("mount -t tmpfs none /etc/ssl");
  SKIP_UNLESS_MOUNTED(launcher);
  const auto result = runUnder(launcher, {"scan", "shop"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_THAT(
      result.output + result.errors,
      HasSubstr("0 - No certificates of trusted authorities are installed (package ca-certificates)"));
}

TEST_F(OddFolders, AHomeThatLeadsNowhereIsTold) {
  const fs::path file = home.path() / "file";
  std::ofstream(file) << "x";
  for (const fs::path& other : {home.path() / "none", file}) {
    SCOPED_TRACE(other);
    const auto result = runUnder({"env", "HOME=" + other.string()}, {"add", "shop", "a.test"});
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, StartsWith("Could not use the data folder " + other.string()));
  }
  EXPECT_THAT(platform::filesBelow(home.path()), testing::ElementsAre("file"));
  EXPECT_FALSE(fs::exists(home.path() / "none"));
}

TEST_F(OddFolders, AnUnreadableFolderIsNoUnknownSite) {
  prepare({"add", "shop", "http://127.0.0.1:9/"});
  prepare({"add", "other", "http://a.test/"});
  // The superuser may read everything, unless that right is dropped.
  Arguments launcher = {"env"};
  if (geteuid() == 0) launcher = {"setpriv", "--bounding-set", "-dac_override,-dac_read_search"};
  const fs::path record = controls.returnFullFileLocation("shop");
  const Arguments commands[] = {{"sites"},           {"show", "shop"},
                                {"scan", "shop"},    {"edit", "shop", "--url", "http://b.test/"},
                                {"filters", "shop"}, {"delete", "shop", "--yes"}};
  for (const fs::path& path : {site(), record, data()}) {
    fs::permissions(path, fs::perms::none);
    for (const Arguments& command : commands) {
      if (path == record && (command[0] == "filters" || command[0] == "delete")) continue;  // need it not
      SCOPED_TRACE(path.filename().string() + ": " + command[0]);
      const auto result = runUnder(launcher, command);
      EXPECT_EQ(result.exitCode, 4);
      EXPECT_THAT(result.errors, HasSubstr(path.string()));
      EXPECT_THAT(result.errors, HasSubstr("Permission denied"));
    }
    fs::permissions(
        path, fs::is_directory(path) ? fs::perms::owner_all : fs::perms::owner_read | fs::perms::owner_write);
  }
  prepare({"show", "shop"});
}

TEST_F(OddFolders, ASiteThatIsDeletedInMidScanStaysDeleted) {
  const auto pages = manyPages(30);
  std::atomic<bool> deleted = false;
  const support::SiteServer server([&](const std::string& target, int) {
    if (target == "/page11.html" && !deleted.exchange(true)) fs::remove_all(site());
    return support::pageOf(pages, target);
  });
  prepare({"add", "shop", server.url()});
  const auto result = run({"scan", "shop"});
  EXPECT_TRUE(deleted);
  EXPECT_EQ(result.exitCode, 4);
  for (const char* file : {"sitemap1c.html", "sitemap.xml", "shop.qzVSK"}) {
    EXPECT_THAT(result.errors, HasSubstr("Missing during the scan: " + (site() / file).string()));
  }
  EXPECT_THAT(result.output, testing::Not(HasSubstr("Written to")));
  EXPECT_TRUE(snapshot().empty());
}

}  // namespace
}  // namespace faults
