// Where a client is led, and who is told what on the way.
#include <atomic>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/curl_http_client.h"
#include "support/raw_server.h"

namespace {

using platform::CurlHttpClient;
using platform::FetchFailure;
using platform::HttpAnswer;
using platform::HttpMethod;
using support::rawAnswer;
using support::RawRequest;
using support::RawServer;

HttpAnswer fetch(CurlHttpClient& client, const std::string& url, HttpMethod method = HttpMethod::get) {
  return client.fetch({.url = url, .method = method}, {});
}

TEST(CurlHttpClient, FollowsRedirectsWithinBounds) {
  // "/3" leads to "/2" and so on, with headers that the last answer lacks.
  RawServer server(RawServer::answering([](const RawRequest& request) {
    const int left = std::atoi(std::string(request.target().substr(1)).c_str());
    if (left == 0) return rawAnswer("410 Gone", "Last-Modified: end\r\n", "end");
    const std::string location = "Location: /" + std::to_string(left - 1) + "\r\n";
    return rawAnswer("301 Moved", location + "Content-Type: not/this\r\n", "not this");
  }));
  CurlHttpClient client({"test"});
  for (const HttpMethod method : {HttpMethod::get, HttpMethod::head}) {
    const HttpAnswer answer = fetch(client, server.url("/20"), method);
    EXPECT_EQ(answer.status, 410);
    EXPECT_EQ(answer.contentType, "");
    EXPECT_EQ(answer.lastModified, "end");
    EXPECT_EQ(answer.body, method == HttpMethod::get ? "end" : "");
    EXPECT_EQ(fetch(client, server.url("/21"), method).failure, FetchFailure::tooManyRedirects);
  }
}

TEST(CurlHttpClient, FollowsRedirectsOnlyWhereItMay) {
  RawServer outside(RawServer::answering([](const RawRequest&) { return rawAnswer("200 OK", "", "out"); }));
  // What goes with a redirect is broken, and of no matter.
  RawServer site(RawServer::answering([&](const RawRequest& request) {
    const std::string path(request.target());
    if (path == "/end") return rawAnswer("200 OK", "", "end");
    const std::string target = path == "/out" ? outside.url() : path == "/mail" ? "mailto:a@b" : "/end?x";
    return rawAnswer("302 Found", "Content-Encoding: gzip\r\nLocation: " + target + "\r\n", "no gzip");
  }));
  struct Case {
    const char* path;
    int status;
    std::string redirectedTo;
  };
  const Case cases[] = {
      {"/end", 200, ""},
      {"/in", 302, site.url("/end?x")},
      {"/out", 302, outside.url()},
      {"/mail", 302, "mailto:a@b"},
  };
  CurlHttpClient client({"test"});
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path);
    std::vector<std::string> asked;
    const HttpAnswer answer = client.fetch({.url = site.url(c.path),
                                            .followsTo =
                                                [&](std::string_view to) {
                                                  asked.emplace_back(to);
                                                  return asked.size() == 1 && to.starts_with(site.url());
                                                }},
                                           {});
    EXPECT_EQ(answer.status, c.status);
    EXPECT_EQ(answer.redirectedTo, c.redirectedTo);
    EXPECT_EQ(answer.body, c.status == 200 ? "end" : "");
  }
  EXPECT_EQ(outside.connectionCount(), 0);
}

TEST(CurlHttpClient, TellsTheSiteAloneWhatIsForIt) {
  std::string elsewhere;
  const auto answer = [&](const RawRequest& request) {
    if (request.target() == "/end") return rawAnswer("200 OK", "", "end");
    return rawAnswer("302 Found", "Set-Cookie: c=3\r\nLocation: " + elsewhere + "/end\r\n", "");
  };
  RawServer other(RawServer::answering(answer));
  RawServer site(RawServer::answering(answer));
  CurlHttpClient client(
      {.userAgent = "me", .site = site.url(), .headers = {"A: 1", "Empty:", "Cookie: a=1", "cookie: b=2"}});
  for (const std::string& leadsTo : {site.url(""), other.url("")}) {
    elsewhere = leadsTo;
    EXPECT_EQ(fetch(client, site.url("/start")).body, "end");
  }
  EXPECT_EQ(fetch(client, other.url("/end")).body, "end");
  ASSERT_EQ(site.requests().size(), 3u);
  for (const RawRequest& request : site.requests()) {
    EXPECT_TRUE(request.contains("\r\nA: 1\r\n") && request.contains("\r\nEmpty:\r\n")) << request.head;
    EXPECT_TRUE(request.contains("a=1; b=2\r\n")) << request.head;
    EXPECT_EQ(request.head.find("Cookie:"), request.head.rfind("Cookie:")) << request.head;
  }
  ASSERT_EQ(other.requests().size(), 2u);
  for (const RawRequest& request : other.requests()) {
    EXPECT_TRUE(request.contains("\r\nUser-Agent: me\r\n"));
    EXPECT_FALSE(request.contains("A: 1") || request.contains("Empty") || request.contains("a=1"))
        << request.head;
  }
}

/// A server's answer to a request that has to be authenticated. Digests are not checked, only that they are
/// there.
std::string guarded(const RawRequest& request, bool takesBasic, bool takesDigest) {
  const bool isFine = (takesBasic && request.contains("\r\nAuthorization: Basic bWU6cHc=\r\n")) ||
                      (takesDigest && request.contains("\r\nAuthorization: Digest username=\"me\","));
  if (isFine) return rawAnswer("200 OK", "", "in");
  const std::string basic = takesBasic ? "WWW-Authenticate: Basic realm=\"r\"\r\n" : "";
  const std::string digest = takesDigest ? "WWW-Authenticate: Digest realm=\"r\", nonce=\"n\"\r\n" : "";
  return rawAnswer("401 Unauthorized", basic + digest, "out");
}

TEST(CurlHttpClient, LearnsHowToAuthenticate) {
  struct Case {
    const char* name;
    bool basic, digest;
    std::string password;
    std::size_t requests;  // for three pages and a HEAD
    int status;
  };
  const Case cases[] = {
      {"basic", true, false, "pw", 1 + 4, 200},
      {"digest, once a connection", false, true, "pw", 2 + 4, 200},
      {"the safer one", true, true, "pw", 2 + 4, 200},
      {"refused", true, false, "no", 1 + 4, 401},
      {"neither", false, false, "pw", 4, 401},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RawServer server(
        RawServer::answering([&](const RawRequest& request) { return guarded(request, c.basic, c.digest); }));
    const auto password = [&](const std::stop_token&) { return std::optional(c.password); };
    CurlHttpClient client({.userAgent = "test", .site = server.url(), .user = "me", .password = password});
    for (const HttpMethod method : {HttpMethod::get, HttpMethod::get, HttpMethod::head, HttpMethod::get}) {
      const HttpAnswer answer = fetch(client, server.url("/a"), method);
      EXPECT_EQ(answer.status, c.status);
      EXPECT_TRUE(answer.sentPassword);
    }
    EXPECT_EQ(server.requests().size(), c.requests);
  }
}

TEST(CurlHttpClient, KeepsThePasswordForTheSite) {
  std::atomic<bool> wantsDigest = false;
  std::atomic<bool> isStale = false;
  RawServer other(RawServer::answering([](const RawRequest& request) {
    EXPECT_FALSE(request.contains("Authorization")) << request.head;
    return guarded(request, true, true);
  }));
  RawServer site(RawServer::answering([&](const RawRequest& request) {
    if (request.target() == "/out") return rawAnswer("302 Found", "Location: " + other.url() + "\r\n", "");
    if (!isStale) return guarded(request, !wantsDigest, wantsDigest);
    return rawAnswer("401 Unauthorized", "WWW-Authenticate: Digest realm=\"r\", nonce=\"n\", stale=true\r\n",
                     "");
  }));
  bool isKnown = true;
  const auto password = [&](const std::stop_token&) {
    return isKnown ? std::optional<std::string>("pw") : std::nullopt;
  };
  CurlHttpClient client({.userAgent = "test", .site = site.url(), .user = "me", .password = password});
  EXPECT_EQ(fetch(client, site.url()).status, 200);
  for (const std::string& url : {site.url("/out"), other.url()}) {
    const HttpAnswer answer = fetch(client, url);
    EXPECT_EQ(answer.status, 401);
    EXPECT_FALSE(answer.sentPassword);
  }
  wantsDigest = true;  // from now on
  EXPECT_EQ(fetch(client, site.url()).status, 200);
  isKnown = false;
  EXPECT_EQ(fetch(client, site.url()).status, 401);
  EXPECT_FALSE(fetch(client, site.url()).sentPassword);
  isKnown = isStale = true;  // without end
  EXPECT_EQ(fetch(client, site.url()).failure, FetchFailure::tooManyRedirects);
}

TEST(CurlHttpClient, FollowsRedirectsToHttpOnly) {
  const std::pair<const char*, FetchFailure> cases[] = {
      {"file:///etc/passwd", FetchFailure::forbiddenRedirect},
      {"http://h:99999/", FetchFailure::forbiddenRedirect},
      {"/garbage", FetchFailure::connectionClosed},
  };
  for (const auto& [location, expected] : cases) {
    SCOPED_TRACE(location);
    RawServer server(RawServer::answering([target = std::string(location)](const RawRequest& request) {
      if (request.target() == "/garbage") return std::string("nonsense\r\n\r\n");
      return rawAnswer("302 Found", "Location: " + target + "\r\n", "");
    }));
    CurlHttpClient client({"test"});
    const HttpAnswer answer = fetch(client, server.url());
    EXPECT_EQ(answer.failure, expected);
    EXPECT_EQ(answer.status, 0);
  }
}

}  // namespace
