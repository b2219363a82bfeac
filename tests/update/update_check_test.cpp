// The check for a newer version, against servers that do well and others.
#include "update/update_check.h"

#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/appcasts.h"
#include "support/raw_server.h"
#include "support/secured_client.h"
#include "support/site_server.h"

namespace update {
namespace {

using support::appcastItem;
using support::appcastOf;
using support::SecuredClient;
using support::ServedPage;
using support::SiteServer;
using testing::HasSubstr;
using testing::StartsWith;

CheckRequest requestFor(const std::string& path) {
  return {.address = std::string(SecuredClient::kOrigin) + path,
          .programVersion = "2.0.0",
          .systemVersion = "6.1.0",
          .timeout = std::chrono::minutes(10)};
}

CheckResult checkOn(const SiteServer& server, const CheckRequest& request) {
  SecuredClient client(server.url());
  return checkForUpdate(client, request, {});
}

std::string needs(const std::string& system) {
  return "<sparkle:minimumSystemVersion>" + system + "</sparkle:minimumSystemVersion>";
}

TEST(CheckForUpdate, TellsTheNewestVersionThatFits) {
  struct Case {
    const char* name;
    std::string items;
    CheckEnd end;
    const char* title;
    const char* message;
  };
  const Case cases[] = {
      {"newer", appcastItem("2.1"), CheckEnd::newer, "Veskel 2.1 is available.", "This is version 2.0.0."},
      {"the newest of several", appcastItem("1.9") + appcastItem("2.1") + appcastItem("2.0.5"),
       CheckEnd::newer, "Veskel 2.1 is available.", "This is version 2.0.0."},
      {"the newest that fits",
       appcastItem("3", needs("6.10")) + appcastItem("2.1", needs("6.1")) + appcastItem("2.0.5"),
       CheckEnd::newer, "Veskel 2.1 is available.", "This is version 2.0.0."},
      {"the same", appcastItem("1.9") + appcastItem("2"), CheckEnd::current,
       "Veskel 2.0.0 is the newest version.", ""},
      {"only for newer systems", appcastItem("2.0") + appcastItem("3", needs("6.2")),
       CheckEnd::needsNewerSystem, "Veskel 2.0.0 is the newest version for this system.",
       "Version 3 needs Linux 6.2 or later, and this is Linux 6.1.0."},
      {"older", appcastItem("1.9") + appcastItem("2.0-rc1"), CheckEnd::programIsNewer,
       "Veskel 2.0.0 is newer than what is offered.", "The newest version offered is 2.0-rc1."},
      {"older, and for newer systems", appcastItem("1.9", needs("7")), CheckEnd::programIsNewer,
       "Veskel 2.0.0 is newer than what is offered.", "The newest version offered is 1.9."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const SiteServer server({{"/list", {.body = appcastOf(c.items)}}});
    const CheckRequest request = requestFor("list");
    const CheckResult result = checkOn(server, request);
    EXPECT_EQ(result.end, c.end);
    const CheckText text = textOf(result, request);
    EXPECT_EQ(text.title, c.title);
    EXPECT_EQ(text.message, c.message);
  }
}

TEST(CheckForUpdate, TakesEverySystemWhereItsOwnIsNotKnown) {
  const SiteServer server({{"/list", {.body = appcastOf(appcastItem("3", needs("99")))}}});
  CheckRequest request = requestFor("list");
  request.systemVersion.clear();
  EXPECT_EQ(checkOn(server, request).end, CheckEnd::newer);
}

TEST(CheckForUpdate, SaysWhyAListIsOfNoUse) {
  const SiteServer elsewhere({{"/list", {.body = appcastOf(appcastItem("3"))}}});
  const auto leadingTo = [](std::string address) {
    return ServedPage{.status = 302, .location = std::move(address)};
  };
  const SiteServer server(SiteServer::Pages{
      {"/broken", {.body = "<rss><channel>"}},
      {"/page", {.body = "<!doctype html><p>Sign in"}},
      {"/none", {.body = appcastOf("<item><title>3.0</title></item>")}},
      {"/plain", leadingTo(elsewhere.url("list"))},
      {"/chain", leadingTo("/plain")},
      {"/far", leadingTo("http://a.test/" + std::string(5000, 'a'))},
      {"/named", {.body = "<rss>&" + std::string(5000, 'a') + ";</rss>"}},
      {"/file", leadingTo("file:///etc/passwd")},
      {"/circle", leadingTo("/circle")},
      {"/closed", {.status = 0}},
  });
  struct Case {
    const char* path;
    CheckEnd end;
    std::string problem;
  };
  const std::string notHttps = ", which is not https";
  const Case cases[] = {
      {"broken", CheckEnd::notRead, "Line 1: "},
      {"page", CheckEnd::notRead, "It is no list of versions"},
      {"none", CheckEnd::notRead, "It names no version"},
      {"missing", CheckEnd::notReached, "The server answers 404 - Not Found"},
      {"plain", CheckEnd::notReached, "The server leads to " + elsewhere.url("list") + notHttps},
      {"chain", CheckEnd::notReached, "The server leads to " + elsewhere.url("list") + notHttps},
      {"far", CheckEnd::notReached, "The server leads to http://a.test/a"},
      {"named", CheckEnd::notRead, "Line 1: "},
      {"file", CheckEnd::notReached, "The server leads to file:///etc/passwd" + notHttps},
      {"circle", CheckEnd::notReached, "Too many redirects"},
      {"closed", CheckEnd::notReached, "The answer was broken off or malformed"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path);
    const CheckRequest request = requestFor(c.path);
    const CheckResult result = checkOn(server, request);
    EXPECT_EQ(result.end, c.end);
    EXPECT_THAT(result.problem, StartsWith(c.problem));
    EXPECT_LE(result.problem.size(), 210u);
    EXPECT_EQ(textOf(result, request).message, request.address + ": " + result.problem + ".");
  }
  EXPECT_TRUE(elsewhere.requests().empty());
}

TEST(CheckForUpdate, AsksNothingButHttps) {
  const SiteServer server({{"/list", {.body = appcastOf(appcastItem("3"))}}});
  for (const std::string& address : {server.url("list"), std::string("ftp://127.0.0.1/list"),
                                     std::string("file:///etc/passwd"), std::string("list"), std::string()}) {
    SCOPED_TRACE(address);
    CheckRequest request = requestFor("");
    request.address = address;
    const CheckResult result = checkOn(server, request);
    EXPECT_EQ(result.end, CheckEnd::notReached);
    EXPECT_EQ(result.problem, "The address is not https, and was not asked");
  }
  EXPECT_TRUE(server.requests().empty());
}

TEST(CheckForUpdate, EndsWithAListThatDoesNot) {
  struct Case {
    const char* name;
    std::string start;
    std::string repeated;
    CheckEnd end;
  };
  const std::string head = "HTTP/1.1 200 OK\r\nContent-Type: application/xml\r\n\r\n";
  const Case cases[] = {
      {"items for ever", head + "<rss><channel>", appcastItem("3"), CheckEnd::notRead},
      {"a comment for ever", head + "<rss><!--", std::string(1000, 'x'), CheckEnd::notRead},
      {"headers for ever", "HTTP/1.1 200 OK\r\n", "X-Header: x\r\n", CheckEnd::notRead},
      {"silence", head + "<rss>", "", CheckEnd::notReached},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    support::RawServer server([&](support::RawConnection& connection) {
      connection.readRequest();
      connection.send(c.start);
      c.repeated.empty() ? connection.waitForClose() : connection.sendForever(c.repeated);
    });
    SecuredClient client(server.url());
    CheckRequest request = requestFor("list");
    if (c.repeated.empty()) request.timeout = std::chrono::milliseconds(50);
    EXPECT_EQ(checkForUpdate(client, request, {}).end, c.end);
  }
}

TEST(CheckForUpdate, IsStoppedInTheMiddle) {
  std::stop_source stop;
  support::RawServer server([&](support::RawConnection& connection) {
    connection.readRequest();
    stop.request_stop();
    connection.waitForClose();
  });
  SecuredClient client(server.url());
  const CheckRequest request = requestFor("list");
  const CheckResult result = checkForUpdate(client, request, stop.get_token());
  EXPECT_EQ(result.end, CheckEnd::stopped);
  EXPECT_TRUE(textOf(result, request).title.empty());
}

TEST(CheckForUpdate, ReadsNotesThatLieElsewhere) {
  struct Case {
    const char* name;
    ServedPage notes;
    std::string text;
    std::string problem;
  };
  const Case cases[] = {
      {"a page", {.body = "<title>x</title><ul><li>Faster"}, "- Faster", ""},
      {"a page of another character set",
       {.body = "<p>\xE4", .contentType = "text/html; charset=iso-8859-1"},
       "\xC3\xA4",
       ""},
      {"plain text", {.body = "a <b>\n", .contentType = "text/plain"}, "a <b>", ""},
      {"something else", {.body = "%PDF", .contentType = "application/pdf"}, "", "They are no text"},
      {"none", {.status = 404}, "", "The server answers 404 - Not Found"},
      {"a redirect to http",
       {.status = 301, .location = "http://127.0.0.1:1/"},
       "",
       "The server leads to http://127.0.0.1:1/, which is not https"},
  };
  const std::string link = "<sparkle:releaseNotesLink>https://secure.test/notes</sparkle:releaseNotesLink>";
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const SiteServer server(
        SiteServer::Pages{{"/list", {.body = appcastOf(appcastItem("2.1", link))}}, {"/notes", c.notes}});
    const CheckResult result = checkOn(server, requestFor("list"));
    EXPECT_EQ(result.end, CheckEnd::newer);
    EXPECT_EQ(result.release.notes, c.text);
    EXPECT_EQ(result.notesProblem, c.problem);
  }

  const SiteServer without(SiteServer::Pages{
      {"/own", {.body = appcastOf(appcastItem("2.1", link + "<description>Faster</description>"))}},
      {"/older", {.body = appcastOf(appcastItem("1.9", link))}}});
  EXPECT_EQ(checkOn(without, requestFor("own")).release.notes, "Faster");
  EXPECT_EQ(checkOn(without, requestFor("older")).end, CheckEnd::programIsNewer);
  EXPECT_EQ(without.requests().size(), 2u);
}

}  // namespace
}  // namespace update
