#include "platform/http_client.h"

#include <algorithm>
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
