// "veskel-cli check-update": what is printed, and the exit codes.
#include "cli/update_command.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/appcasts.h"
#include "support/program_test.h"
#include "support/secured_client.h"
#include "support/site_server.h"

namespace {

using support::appcastItem;
using support::appcastOf;
using support::SecuredClient;
using testing::HasSubstr;

struct Printed {
  int exitCode = -1;
  std::string output = {};
  std::string errors = {};
};

Printed checkUpdate(const support::SiteServer& server, const std::string& path) {
  SecuredClient client(server.url());
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  Printed printed;
  printed.exitCode = cli::checkUpdate(
      client, {.address = std::string(SecuredClient::kOrigin) + path, .programVersion = "2.0.0"});
  printed.output = testing::internal::GetCapturedStdout();
  printed.errors = testing::internal::GetCapturedStderr();
  return printed;
}

TEST(UpdateCommand, TellsByTextAndByExitCode) {
  const support::SiteServer server(support::SiteServer::Pages{
      {"/newer",
       {.body = appcastOf(appcastItem("2.1",
                                      "<link>https://a.test/get</link><description>&lt;ul&gt;"
                                      "&lt;li&gt;Faster\xC2\x9B!</description>"))}},
      {"/bare",
       {.body = appcastOf(appcastItem("2.1",
                                      "<sparkle:releaseNotesLink>https://secure.test/no"
                                      "</sparkle:releaseNotesLink>"))}},
      {"/same", {.body = appcastOf(appcastItem("2.0"))}},
      {"/older", {.body = appcastOf(appcastItem("1.9"))}},
      {"/broken", {.body = "<rss>"}},
      {"/red", {.status = 301, .location = "http://127.0.0.1:1/\x1B[31m"}},
  });
  struct Case {
    const char* path;
    int exitCode;
    std::string output;
    std::string errors;  // a part of it
  };
  const Case cases[] = {
      {"newer", 1,
       "Veskel 2.1 is available. This is version 2.0.0.\nDownload page: https://a.test/get\n\n"
       "- Faster\xEF\xBF\xBD!\n",
       ""},
      {"bare", 1, "Veskel 2.1 is available. This is version 2.0.0.\n",
       "Warning: The release notes at https://secure.test/no could not be read: The server answers 404 - Not "
       "Found.\n"},
      {"same", 0, "Veskel 2.0.0 is the newest version.\n", ""},
      {"older", 0, "Veskel 2.0.0 is newer than what is offered.\nThe newest version offered is 1.9.\n", ""},
      {"missing", 3, "",
       "The list of versions could not be reached.\nhttps://secure.test/missing: The server answers 404 - "
       "Not "
       "Found.\n"},
      {"red", 3, "", "which is not https"},
      {"broken", 4, "", "The list of versions could not be read.\nhttps://secure.test/broken: Line 1: "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path);
    const Printed printed = checkUpdate(server, c.path);
    EXPECT_EQ(printed.exitCode, c.exitCode);
    EXPECT_EQ(printed.output, c.output);
    EXPECT_THAT(printed.errors, HasSubstr(c.errors));
    EXPECT_EQ(printed.errors.empty(), c.errors.empty());
    EXPECT_EQ(printed.errors.find('\x1B'), std::string::npos);
  }
}

class UpdateProgram : public support::ProgramTest {};

TEST_F(UpdateProgram, HasTheCommandOnlyWithAnAddress) {
  const bool isThere = !update::appcastAddress().empty();
  EXPECT_EQ(run({"--help"}).output.find("check-update") != std::string::npos, isThere);
  if (isThere) return;
  const support::ProgramResult result = run({"check-update"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_THAT(result.errors, HasSubstr("Unknown command: check-update"));
}

}  // namespace
