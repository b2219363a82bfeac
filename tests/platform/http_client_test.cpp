#include "platform/http_client.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/curl_http_client.h"
#include "platform/gzip.h"
#include "support/raw_server.h"

namespace {

using namespace std::chrono_literals;
using platform::CurlHttpClient;
using platform::FetchFailure;
using platform::HttpAnswer;
using platform::HttpMethod;
using support::rawAnswer;
using support::RawConnection;
using support::RawRequest;
using support::RawServer;

HttpAnswer fetch(CurlHttpClient& client, const std::string& url, HttpMethod method = HttpMethod::get) {
  return client.fetch({.url = url, .method = method}, {});
}

TEST(ReasonPhrase, FallsBackToTheClass) {
  const std::pair<int, const char*> cases[] = {
      {404, "Not Found"},    {199, "Informational"},  {299, "Success"},       {306, "Redirection"},
      {418, "Client Error"}, {600, "Unknown Status"}, {99, "Unknown Status"}, {-200, "Unknown Status"}};
  for (const auto& [status, expected] : cases) EXPECT_EQ(platform::reasonPhrase(status), expected) << status;
}

TEST(CurlHttpClient, SendsTheUrlAsHeld) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "/"},
      {"?q", "/?q"},
      {"/a/../b/./c", "/a/../b/./c"},
      {"/a\r\nHost: evil", "/a%0D%0AHost:%20evil"},
  };
  RawServer server(RawServer::answering([](const RawRequest&) { return rawAnswer("200 OK", "", ""); }));
  CurlHttpClient client({"veskel-test/1"});
  for (const auto& [path, expected] : cases) {
    SCOPED_TRACE(path);
    EXPECT_EQ(fetch(client, server.url(path)).failure, FetchFailure::none);
    const RawRequest request = server.requests().back();
    EXPECT_EQ(request.method(), "GET");
    EXPECT_EQ(request.target(), expected);
  }
  const RawRequest request = server.requests().back();
  EXPECT_TRUE(request.contains("\r\nUser-Agent: veskel-test/1\r\n")) << request.head;
  EXPECT_TRUE(request.contains("\r\nAccept-Encoding: gzip, br\r\n")) << request.head;
}

TEST(CurlHttpClient, RefusesWhatIsNoHttpUrl) {
  CurlHttpClient client({"test"});
  const std::string urls[] = {
      "",       "//127.0.0.1/",       "file:///etc/passwd", "ftp://h/",      "http://",
      "http:a", "http:///etc/passwd", "http://h:99999/",    "http://[::1/x", "https://:80/"};
  for (const std::string& url : urls)
    EXPECT_EQ(fetch(client, url).failure, FetchFailure::invalidAddress) << url;
  std::string endless = "http://127.0.0.1/";
  endless.append(9u << 20, 'a');
  EXPECT_EQ(fetch(client, endless).failure, FetchFailure::invalidAddress);
}

TEST(CurlHttpClient, ReadsEveryFormOfAnswer) {
  constexpr std::chrono::seconds kLong = 1h;  // and more
  struct Case {
    const char* name;
    std::string sent;
    HttpAnswer expected;
  };
  const Case cases[] = {
      {"with a length",
       "HTTP/1.1 201 Made\r\nContent-Length: 2\r\ncontent-type:  text/html; charset=x \r\nLAST-MODIFIED: "
       "yesterday\r\n\r\nhi",
       {.status = 201, .contentType = "text/html; charset=x", .lastModified = "yesterday", .body = "hi"}},
      {"to be asked again later",
       rawAnswer("503 ", "Retry-After: 120\r\n", ""),
       {.status = 503, .retryAfter = 120s}},
      {"not before a date",
       rawAnswer("429 ", "Retry-After: Fri, 31 Dec 9999 23:59:59 GMT\r\n", ""),
       {.status = 429, .retryAfter = kLong}},
      {"not before a date that has passed",
       rawAnswer("429 ", "Retry-After: Sun, 06 Nov 1994 08:49:37 GMT\r\n", ""),
       {.status = 429}},
      {"in some time", rawAnswer("429 ", "Retry-After: soon\r\n", ""), {.status = 429}},
      {"in chunks, with a trailer",
       "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2;x=y\r\nhi\r\n0\r\nContent-Type: "
       "text/evil\r\n\r\n",
       {.status = 200, .body = "hi"}},
      {"gzip",
       rawAnswer("200 OK", "Content-Encoding: gzip\r\n", platform::gzipped("hello").value_or("")),
       {.status = 200, .body = "hello"}},
      {"brotli",
       rawAnswer("200 OK", "Content-Encoding: br\r\n", "\x0B\x02\x80hello\x03"),
       {.status = 200, .body = "hello"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RawServer server([&](RawConnection& connection) {
      connection.readRequest();
      connection.send(c.sent);
    });
    CurlHttpClient client({"test"});
    const HttpAnswer answer = fetch(client, server.url());
    EXPECT_EQ(answer.failure, FetchFailure::none);
    EXPECT_EQ(answer.status, c.expected.status);
    EXPECT_EQ(answer.contentType, c.expected.contentType);
    EXPECT_EQ(answer.lastModified, c.expected.lastModified);
    EXPECT_EQ(answer.body, c.expected.body);
    EXPECT_EQ(std::min(answer.retryAfter, kLong), c.expected.retryAfter);
  }
}

TEST(CurlHttpClient, SurvivesServersThatCloseKeptConnections) {
  RawServer server([](RawConnection& connection) {
    connection.readRequest();
    connection.send(rawAnswer("200 OK", "", "x"));
  });
  CurlHttpClient client({"test"});
  // Often enough that it also closes between the check of a kept connection and its use.
  for (int i = 0; i < 200; ++i) EXPECT_EQ(fetch(client, server.url()).body, "x");
}

TEST(CurlHttpClient, AsksPublicHostsOnlyWhereItIsToldSo) {
  const RawServer server(
      RawServer::answering([](const RawRequest&) { return rawAnswer("200 OK", "", "x"); }));
  CurlHttpClient client({"test"}, {.publicOnly = true});
  for (const std::string host : {"127.0.0.1", "localhost", "[::ffff:127.0.0.1]", "0x7f.1"}) {
    const std::string url = "http://" + host + server.url().substr(server.url().rfind(':'));
    EXPECT_EQ(fetch(client, url).failure, FetchFailure::privateAddress) << url;
  }
  EXPECT_EQ(server.connectionCount(), 0);
}

TEST(CurlHttpClient, TakesNoLeftoverForTheNextAnswer) {
  const std::string leftover = rawAnswer("500 Leftover", "Last-Modified: never\r\n", "leftover");
  struct Case {
    const char* name;
    std::string method;  // of the requests whose answers have more behind them
    std::string atOnce;
    std::string late;  // when the next request is there
    bool spoilsHead = false;
  };
  const Case cases[] = {
      {"behind the body", "GET", leftover, ""},
      {"behind the body, in two", "GET", "x", leftover},
      {"a body after HEAD", "HEAD", leftover, ""},
      {"a body after HEAD, in two", "HEAD", "x", leftover},
      {"a late body after HEAD", "HEAD", "", leftover, true},
      {"a late body that is no answer", "HEAD", "", "leftover"},
  };
  for (const Case& c : cases) {
    for (const bool chunked : {false, true}) {
      SCOPED_TRACE(c.name + std::string(chunked ? ", in chunks" : ""));
      RawServer server([&](RawConnection& connection) {
        std::string late;
        while (const auto request = connection.readRequest()) {
          const std::string path(request->target());
          const std::string modified = "Last-Modified: " + path + "\r\n";
          std::string answer = rawAnswer("200 OK", modified, path);
          if (chunked) {
            answer = "HTTP/1.1 200 OK\r\n" + modified + "Transfer-Encoding: chunked\r\n\r\n2\r\n" + path +
                     "\r\n0\r\n\r\n";
          }
          if (request->method() == "HEAD") answer.resize(answer.find("\r\n\r\n") + 4);
          const bool more = request->method() == c.method;
          if (!connection.send(late + answer + (more ? c.atOnce : ""))) return;
          late = more ? c.late : "";
        }
      });
      CurlHttpClient client({"test"});
      for (const char* path : {"/0", "/1", "/2", "/3"}) {
        EXPECT_EQ(fetch(client, server.url(path)).body, path);
        const HttpAnswer head = fetch(client, server.url(path), HttpMethod::head);
        EXPECT_TRUE(head.lastModified == path || c.spoilsHead) << head.lastModified;
        EXPECT_EQ(head.body, "");
      }
    }
  }
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

TEST(CurlHttpClient, GivesEveryThreadItsOwnAnswerAndAllTheSameCookies) {
  RawServer server(RawServer::answering([](const RawRequest& request) {
    const std::string cookie = "Set-Cookie: c" + std::string(request.target().substr(1)) + "=1\r\n";
    return rawAnswer("200 OK", cookie, request.target());
  }));
  CurlHttpClient client({"test"});
  EXPECT_EQ(fetch(client, server.url("/first")).body, "/first");
  std::vector<std::jthread> threads;
  for (int thread = 0; thread < 8; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < 100; ++i) {
        const std::string path = "/" + std::to_string(thread) + "-" + std::to_string(i);
        EXPECT_EQ(fetch(client, server.url(path)).body, path);
      }
    });
  }
  threads.clear();
  EXPECT_LE(server.connectionCount(), 8);
  const std::vector<RawRequest> requests = server.requests();
  EXPECT_FALSE(requests[0].contains("Cookie:"));
  for (std::size_t i = 1; i < 100; ++i) EXPECT_TRUE(requests[i].contains("cfirst=1")) << requests[i].head;
}

}  // namespace
