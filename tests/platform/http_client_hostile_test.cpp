// What sites do wrong, by mistake or on purpose, and that a fetch ends all the same.
#include <filesystem>
#include <functional>
#include <latch>
#include <string>
#include <thread>
#include <utility>

#include <gtest/gtest.h>

#include "platform/curl_http_client.h"
#include "platform/gzip.h"
#include "support/raw_server.h"
#include "support/tls_handshake.h"

namespace {

using namespace std::chrono_literals;
using platform::CurlHttpClient;
using platform::FetchFailure;
using platform::HttpAnswer;
using platform::HttpLimits;
using platform::HttpRequest;
using platform::Overflow;
using support::rawAnswer;
using support::RawConnection;
using support::RawRequest;
using support::RawServer;

// No test here ends by these: a fetch that does not end by itself is one that the test program's time limit
// ends.
constexpr HttpLimits kPatient = {.connectTimeout = 600s, .silenceTimeout = 600s};
constexpr HttpLimits kImpatient = {.connectTimeout = 1s, .silenceTimeout = 1s};
const std::string kOkHead = "HTTP/1.1 200 OK\r\n";
// A file name without end, as the head of the gzip format may hold one, decodes to nothing at all.
const std::string kNothingEncoded("\x1F\x8B\x08\x08\0\0\0\0\0\3", 10);
const std::string kChunked = "Transfer-Encoding: chunked\r\n\r\n";

void expectFailure(const HttpAnswer& answer, FetchFailure expected) {
  EXPECT_EQ(answer.failure, expected) << platform::failureText(answer.failure);
  EXPECT_EQ(answer.status, 0);
  EXPECT_TRUE((answer.contentType + answer.lastModified + answer.body).empty());
}

struct Misbehaviour {
  const char* name;
  std::string start;
  std::string repeated = {};
  FetchFailure expected = FetchFailure::tooLarge;
  HttpLimits limits = kPatient;
  std::chrono::milliseconds timeout{0};  // of the request

  bool slow() const { return expected == FetchFailure::timedOut || expected == FetchFailure::tookTooLong; }
};

/// Sends the start; then closes or goes on for ever.
void expectEndOf(const Misbehaviour& site) {
  SCOPED_TRACE(site.name);
  RawServer server([&](RawConnection& connection) {
    connection.readRequest();
    connection.send(site.start);
    if (!site.repeated.empty()) connection.sendForever(site.repeated, site.slow() ? 50ms : 0ms);
  });
  CurlHttpClient client({"test"}, site.limits);
  const HttpRequest request = {.url = server.url(), .timeout = site.timeout, .maxBytes = 1'000'000};
  expectFailure(client.fetch(request, {}), site.expected);
  EXPECT_LE(server.connectionCount(), 1);
}

TEST(HostileSite, BreaksOffOrTalksNonsense) {
  constexpr FetchFailure kClosed = FetchFailure::connectionClosed;
  const Misbehaviour cases[] = {
      {"nothing", "", "", kClosed},
      {"less than its length", kOkHead + "Content-Type: a/b\r\nContent-Length: 3\r\n\r\nhi", "", kClosed},
      {"some headers", kOkHead + "Content-Type: a/b\r\n", "", kClosed},
      {"no HTTP", "<html><body>hello, this is a page without any header</body></html>", "", kClosed},
      {"status 000", "HTTP/1.1 000 Zero\r\n\r\nhi", "", kClosed},
      {"broken gzip", rawAnswer("200 OK", "Content-Encoding: gzip\r\n", "no gzip"), "",
       FetchFailure::undecodable},
  };
  for (const Misbehaviour& c : cases) expectEndOf(c);
}

TEST(HostileSite, SendsWithoutEnd) {
  const std::string junk(10'000, 'x');
  constexpr std::size_t kBombBytes = 16u << 20;
  const Misbehaviour cases[] = {
      {"body", kOkHead + "\r\n", junk},
      {"what is said beside a chunk", kOkHead + kChunked + "1;", junk},
      {"header line", kOkHead + "X: ", junk},
      {"small headers", kOkHead, "a: b\r\n"},
      {"body of a redirect", "HTTP/1.1 302 Found\r\nLocation: /x\r\n" + kChunked, "2710\r\n" + junk + "\r\n"},
      {"gzip bomb",
       kOkHead + "Content-Encoding: gzip\r\n\r\n" + *platform::gzipped(std::string(kBombBytes, '\0')), junk},
      {"encoded nothing", kOkHead + "Content-Encoding: gzip\r\n\r\n" + kNothingEncoded, junk},
  };
  for (const Misbehaviour& c : cases) expectEndOf(c);
}

TEST(HostileSite, TakesItsTime) {
  constexpr HttpLimits kHasty = {.exchangeTimeout = 200ms};
  constexpr FetchFailure kTimedOut = FetchFailure::timedOut;
  constexpr FetchFailure kTookTooLong = FetchFailure::tookTooLong;
  const std::string body = kOkHead + "\r\n";
  const Misbehaviour cases[] = {
      {"next to nothing counts as silence", body, "x", kTimedOut, kImpatient},
      {"the request's own limit", body, "x", kTimedOut, kPatient, 100ms},
      {"the limit for all", body, "x", kTookTooLong, kHasty, 600s},
      {"beside a chunk", kOkHead + kChunked + "1;", "x", kTookTooLong, kHasty},
  };
  for (const Misbehaviour& c : cases) expectEndOf(c);
}

TEST(HostileSite, IsCutWhereTheCallerWants) {
  const std::string chunks = kOkHead + kChunked + "2\r\nab\r\n2\r\ncd\r\n0\r\n\r\n";
  RawServer server(RawServer::answering([&](const RawRequest&) { return chunks; }));
  CurlHttpClient client({"test"}, kPatient);
  for (const std::size_t maxBytes : {4u, 3u, 1u}) {
    SCOPED_TRACE(maxBytes);
    HttpRequest request = {.url = server.url(), .maxBytes = maxBytes};
    EXPECT_EQ(client.fetch(request, {}).failure, maxBytes == 4 ? FetchFailure::none : FetchFailure::tooLarge);
    request.overflow = Overflow::truncate;
    const HttpAnswer answer = client.fetch(request, {});
    EXPECT_EQ(answer.failure, FetchFailure::none);
    EXPECT_EQ(answer.status, 200);
    EXPECT_EQ(answer.body, std::string("abcd", maxBytes));
  }
  RawServer endless([](RawConnection& connection) {
    connection.send(kOkHead + "\r\n");
    connection.sendForever(std::string(10'000, 'x'));
  });
  const HttpAnswer start =
      client.fetch({.url = endless.url(), .maxBytes = 4, .overflow = Overflow::truncate}, {});
  EXPECT_EQ(start.failure, FetchFailure::none);
  EXPECT_EQ(start.body, "xxxx");
}

/// What comes of https where it is begun at all.
FetchFailure whereSecure(FetchFailure failure) {
  return std::filesystem::exists("/etc/ssl/certs/ca-certificates.crt") ? failure
                                                                       : FetchFailure::noCertificates;
}

TEST(HostileSite, CannotBeConnectedTo) {
  std::string refused;
  {
    refused = RawServer([](RawConnection&) {}).url();
  }
  RawServer plain([](RawConnection& connection) { connection.send(rawAnswer("200 OK", "", "no TLS")); });
  RawServer silent([](RawConnection& connection) { connection.waitForClose(); });
  RawServer unknown(support::shakeHandsSelfSigned);
  const std::pair<std::string, FetchFailure> cases[] = {
      {refused, FetchFailure::connectionFailed},
      {"http://nonexistent.invalid/", FetchFailure::nameNotResolved},
      {"https" + plain.url().substr(4), whereSecure(FetchFailure::tlsFailed)},
      {"https" + unknown.url().substr(4), whereSecure(FetchFailure::tlsFailed)},
      {"https" + silent.url().substr(4), whereSecure(FetchFailure::timedOut)},
  };
  for (const auto& [url, expected] : cases) {
    SCOPED_TRACE(url);
    CurlHttpClient client({"test"}, expected == FetchFailure::timedOut ? kImpatient : kPatient);
    expectFailure(client.fetch({.url = url}, {}), expected);
  }
}

TEST(HostileSite, FloodsWithCookies) {
  // The session's cookie is known to be dropped by then, as it stands for all of them.
  std::atomic<int> next = 0;
  RawServer server(RawServer::answering([&](const RawRequest& request) {
    std::string cookies;
    if (request.target() == "/start") cookies = "Set-Cookie: session=1; Path=/\r\n";
    for (int i = 0; i < 50; ++i)
      cookies += "Set-Cookie: c" + std::to_string(next++) + "=1; Path=/elsewhere\r\n";
    return rawAnswer("200 OK", cookies, "");
  }));
  CurlHttpClient client({"test"}, kPatient);
  EXPECT_EQ(client.fetch({.url = server.url("/start")}, {}).status, 200);
  bool kept = true;
  for (int i = 0; i < 200 && kept; ++i) {
    EXPECT_EQ(client.fetch({.url = server.url()}, {}).status, 200);
    kept = server.requests().back().contains("Cookie: session=1");
    EXPECT_TRUE(kept || i >= 10);  // a few hundred cookies are no flood
  }
  EXPECT_FALSE(kept);
}

TEST(StoppedFetch, EndsWhereverItIsAndLeavesTheClientFit) {
  struct Case {
    const char* name;
    std::string start, repeated;
    const char* scheme = "http";
  };
  const Case cases[] = {
      {"before any answer", "", ""},
      {"in a TLS handshake", "", "", "https"},
      {"within the headers", kOkHead + "X: ", "x"},
      {"in a silent body", kOkHead + "\r\nhi", ""},
      {"in an endless body", kOkHead + "Content-Encoding: gzip\r\n\r\n" + kNothingEncoded,
       std::string(10'000, 'x')},
      {"beside an endless chunk", kOkHead + kChunked + "1;", std::string(10'000, 'x')},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const bool secure = c.scheme == std::string("https");
    std::latch started(1);
    RawServer server([&](RawConnection& connection) {
      const auto request = secure ? std::nullopt : connection.readRequest();
      if (request && request->target() == "/next") {
        connection.send(rawAnswer("200 OK", "", "next"));
        return;
      }
      connection.send(c.start);
      started.count_down();
      if (c.repeated.empty()) return connection.waitForClose();
      connection.sendForever(c.repeated, c.repeated.size() == 1 ? 50ms : 0ms);
    });
    CurlHttpClient client({"test"}, kPatient);
    std::stop_source stop;
    const std::jthread stopper([&] {
      started.wait();
      stop.request_stop();
    });
    const HttpRequest request = {.url = c.scheme + server.url().substr(4), .maxBytes = std::size_t{1} << 40};
    expectFailure(client.fetch(request, stop.get_token()),
                  secure ? whereSecure(FetchFailure::stopped) : FetchFailure::stopped);
    if (secure) continue;
    expectFailure(client.fetch({.url = server.url("/never")}, stop.get_token()), FetchFailure::stopped);
    EXPECT_EQ(client.fetch({.url = server.url("/next")}, {}).body, "next");
    EXPECT_EQ(server.requests().size(), 2u);
  }
}

}  // namespace
