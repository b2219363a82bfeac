#include "platform/http_client.h"

#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <brotli/encode.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <httplib.h>
#include <openssl/evp.h>
#include <openssl/x509.h>
#include <zlib.h>

#include "platform/curl_http_client.h"
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

/// Sets an environment variable for one test.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const std::string& value) : m_name(name) {
    setenv(name, value.c_str(), 1);
  }
  ~ScopedVariable() { unsetenv(m_name); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  const char* m_name;
};

std::string gzip(const std::string& text) {
  z_stream stream = {};
  constexpr int kGzipFormat = 15 + 16;
  deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, kGzipFormat, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, text.size()), '\0');
  std::string input = text;
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

std::string brotli(const std::string& text) {
  std::size_t size = BrotliEncoderMaxCompressedSize(text.size());
  std::string packed(size, '\0');
  BrotliEncoderCompress(BROTLI_DEFAULT_QUALITY, BROTLI_DEFAULT_WINDOW, BROTLI_MODE_GENERIC, text.size(),
                        reinterpret_cast<const std::uint8_t*>(text.data()), &size,
                        reinterpret_cast<std::uint8_t*>(packed.data()));
  packed.resize(size);
  return packed;
}

TEST(ReasonPhrase, FallsBackToTheClass) {
  const std::pair<int, const char*> cases[] = {
      {100, "Continue"},        {200, "OK"},
      {404, "Not Found"},       {418, "Client Error"},
      {306, "Redirection"},     {511, "Network Authentication Required"},
      {199, "Informational"},   {599, "Server Error"},
      {299, "Success"},         {99, "Unknown Status"},
      {600, "Unknown Status"},  {0, "Unknown Status"},
      {-200, "Unknown Status"},
  };
  for (const auto& [status, expected] : cases) EXPECT_EQ(platform::reasonPhrase(status), expected) << status;
}

TEST(FailureText, TellsFailuresApart) {
  std::set<std::string_view> texts;
  for (int failure = 0; failure <= static_cast<int>(FetchFailure::other); ++failure) {
    texts.insert(platform::failureText(static_cast<FetchFailure>(failure)));
  }
  EXPECT_EQ(texts.size(), static_cast<std::size_t>(FetchFailure::other) + 1);
}

TEST(CurlHttpClient, SendsTheUrlAsHeld) {
  struct Case {
    const char* name;
    std::string path;
    const char* expected;
  };
  const Case cases[] = {
      {"plain", "/a/b?c=d&e", "/a/b?c=d&e"},
      {"no path", "", "/"},
      {"query right after the host", "?q", "/?q"},
      {"fragment", "/a#b?c", "/a"},
      {"empty query", "/a?", "/a?"},
      {"dot segments", "/a/../b/./c", "/a/../b/./c"},
      {"existing escapes", "/%41%2f%zz", "/%41%2f%25zz"},
      {"blank, quote and non-ASCII", "/a b\"\xC3\xA4", "/a%20b%22%C3%A4"},
      {"line break", "/a\r\nHost: evil", "/a%0D%0AHost:%20evil"},
      {"NUL", std::string("/a\0b", 4), "/a%00b"},
  };
  RawServer server(RawServer::answering([](const RawRequest&) { return rawAnswer("200 OK", "", ""); }));
  CurlHttpClient client("veskel-test/1");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(fetch(client, server.url(c.path)).failure, FetchFailure::none);
    const RawRequest request = server.requests().back();
    EXPECT_EQ(request.method(), "GET");
    EXPECT_EQ(request.target(), c.expected);
  }
  const RawRequest request = server.requests().back();
  EXPECT_TRUE(request.contains("\r\nUser-Agent: veskel-test/1\r\n")) << request.head;
  EXPECT_TRUE(request.contains("\r\nAccept-Encoding: gzip, br\r\n")) << request.head;
}

TEST(CurlHttpClient, RefusesWhatIsNoHttpUrl) {
  CurlHttpClient client("test");
  const std::string urls[] = {
      "",           "127.0.0.1",     "//127.0.0.1/",       "/etc/passwd", "file:///etc/passwd",
      "ftp://h/",   "http://",       "http:///etc/passwd", "http:a",      "http://h:99999/",
      "mailto:a@b", "http://[::1/x", std::string("\0", 1), "https://:80/"};
  for (const std::string& url : urls)
    EXPECT_EQ(fetch(client, url).failure, FetchFailure::invalidAddress) << url;
  std::string endless = "http://127.0.0.1/";
  endless.append(16u << 20, 'a');
  EXPECT_EQ(fetch(client, endless).failure, FetchFailure::invalidAddress);
}

TEST(CurlHttpClient, ReadsEveryFormOfAnswer) {
  struct Case {
    const char* name;
    std::string sent;
    HttpAnswer expected;
  };
  const Case cases[] = {
      {"with a length",
       "HTTP/1.1 200 OK\r\nContent-Length: 2\r\ncontent-type:  text/html; charset=x \r\nLAST-MODIFIED: "
       "yesterday\r\n\r\nhi",
       {.status = 200, .contentType = "text/html; charset=x", .lastModified = "yesterday", .body = "hi"}},
      {"until the end", "HTTP/1.0 404 Gone away\r\n\r\nhi", {.status = 404, .body = "hi"}},
      {"in chunks",
       "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2;x=y\r\nhi\r\n1\r\n!\r\n0\r\n\r\n",
       {.status = 200, .body = "hi!"}},
      {"trailer is no header",
       "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n0\r\nContent-Type: text/evil\r\n\r\n",
       {.status = 200}},
      {"no content", "HTTP/1.1 204 No Content\r\n\r\n", {.status = 204}},
      {"not modified", "HTTP/1.1 304\r\nLast-Modified: x\r\n\r\n", {.status = 304, .lastModified = "x"}},
      {"interim answers",
       "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 Early Hints\r\nContent-Type: a/b\r\n\r\n"
       "HTTP/1.1 503 No\r\nContent-Length: 0\r\n\r\n",
       {.status = 503}},
      {"bare line feeds",
       "HTTP/1.1 200 OK\nContent-Type: a/b\n\nhi",
       {.status = 200, .contentType = "a/b", .body = "hi"}},
      {"non-ASCII header",
       "HTTP/1.1 200 \xFF\r\nContent-Type: \xC3\xA4\xFF\r\nX-\xFF: y\r\n\r\n",
       {.status = 200, .contentType = "\xC3\xA4\xFF"}},
      {"unassigned status", "HTTP/1.1 999 Request denied\r\n\r\n", {.status = 999}},
      {"any byte in the body",
       std::string("HTTP/1.1 200 OK\r\n\r\n\0\xFF\r\n", 23),
       {.status = 200, .body = std::string("\0\xFF\r\n", 4)}},
      {"redirect without a target", "HTTP/1.1 302 Found\r\n\r\nhi", {.status = 302, .body = "hi"}},
      {"gzip",
       rawAnswer("200 OK", "Content-Encoding: gzip\r\n", gzip("hello")),
       {.status = 200, .body = "hello"}},
      {"brotli",
       rawAnswer("200 OK", "Content-Encoding: br\r\n", brotli("hello")),
       {.status = 200, .body = "hello"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    RawServer server([&](RawConnection& connection) {
      connection.readRequest();
      connection.send(c.sent);
    });
    CurlHttpClient client("test");
    const HttpAnswer answer = fetch(client, server.url());
    EXPECT_EQ(answer.failure, FetchFailure::none);
    EXPECT_EQ(answer.status, c.expected.status);
    EXPECT_EQ(answer.contentType, c.expected.contentType);
    EXPECT_EQ(answer.lastModified, c.expected.lastModified);
    EXPECT_EQ(answer.body, c.expected.body);
  }
}

TEST(CurlHttpClient, KeepsOneConnectionForMethodsInTurn) {
  RawServer server(RawServer::answering([](const RawRequest& request) {
    std::string answer = rawAnswer("200 OK", "Last-Modified: x\r\n", request.target());
    if (request.method() == "HEAD") answer.resize(answer.size() - request.target().size());
    return answer;
  }));
  CurlHttpClient client("test");
  for (int i = 0; i < 20; ++i) {
    const std::string path = "/" + std::to_string(i);
    EXPECT_EQ(fetch(client, server.url(path)).body, path);
    const HttpAnswer head = fetch(client, server.url(path), HttpMethod::head);
    EXPECT_EQ(head.lastModified, "x");
    EXPECT_EQ(head.body, "");
    EXPECT_EQ(server.requests().back().method(), "HEAD");
  }
  EXPECT_EQ(server.requestCount(), 40);
  EXPECT_EQ(server.connectionCount(), 1);
}

TEST(CurlHttpClient, SurvivesServersThatCloseKeptConnections) {
  RawServer server([](RawConnection& connection) {
    connection.readRequest();
    connection.send(rawAnswer("200 OK", "", "x"));
  });
  CurlHttpClient client("test");
  // Often enough that it also closes between the check of a kept connection and its use.
  for (int i = 0; i < 500; ++i) EXPECT_EQ(fetch(client, server.url()).body, "x");
}

TEST(CurlHttpClient, TakesNoLeftoverForTheNextAnswer) {
  // A body after HEAD and a second answer nobody asked for would be taken for the answer to the next request.
  RawServer server(RawServer::answering([](const RawRequest& request) {
    return rawAnswer("200 OK", "", request.target()) + rawAnswer("500 Leftover", "", "leftover");
  }));
  CurlHttpClient client("test");
  for (int i = 0; i < 10; ++i) {
    const std::string path = "/" + std::to_string(i);
    EXPECT_EQ(fetch(client, server.url(path)).body, path);
    EXPECT_EQ(fetch(client, server.url(path), HttpMethod::head).status, 200);
  }
}

TEST(CurlHttpClient, SharesCookiesAmongConnections) {
  RawServer server(RawServer::answering([](const RawRequest& request) {
    return rawAnswer("200 OK", request.target() == "/set" ? "Set-Cookie: session=1\r\n" : "", "");
  }));
  CurlHttpClient client("test");
  ASSERT_EQ(fetch(client, server.url("/set")).status, 200);
  EXPECT_FALSE(server.requests().back().contains("Cookie:"));
  std::vector<std::jthread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&] { EXPECT_EQ(fetch(client, server.url()).status, 200); });
  threads.clear();
  const std::vector<RawRequest> requests = server.requests();
  for (std::size_t i = 1; i < requests.size(); ++i) {
    EXPECT_TRUE(requests[i].contains("\r\nCookie: session=1\r\n")) << requests[i].head;
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
  CurlHttpClient client("test");
  for (const HttpMethod method : {HttpMethod::get, HttpMethod::head}) {
    const HttpAnswer answer = fetch(client, server.url("/20"), method);
    EXPECT_EQ(answer.status, 410);
    EXPECT_EQ(answer.contentType, "");
    EXPECT_EQ(answer.lastModified, "end");
    EXPECT_EQ(answer.body, method == HttpMethod::get ? "end" : "");
    EXPECT_EQ(fetch(client, server.url("/21"), method).failure, FetchFailure::tooManyRedirects);
  }
}

TEST(CurlHttpClient, FollowsRedirectsToHttpOnly) {
  const std::pair<const char*, FetchFailure> cases[] = {
      {"file:///etc/passwd", FetchFailure::forbiddenRedirect},
      {"ftp://127.0.0.1/", FetchFailure::forbiddenRedirect},
      {"gopher://127.0.0.1/", FetchFailure::forbiddenRedirect},
      {"mailto:a@b.test", FetchFailure::forbiddenRedirect},
      {"http://h:99999/", FetchFailure::forbiddenRedirect},
      {"/loop", FetchFailure::tooManyRedirects},
      {"http://nonexistent.invalid/", FetchFailure::nameNotResolved},
      {"/garbage", FetchFailure::connectionClosed},
  };
  for (const auto& [location, expected] : cases) {
    SCOPED_TRACE(location);
    RawServer server(RawServer::answering([target = std::string(location)](const RawRequest& request) {
      if (request.target() == "/garbage") return std::string("nonsense\r\n\r\n");
      return rawAnswer("302 Found", "Location: " + target + "\r\n", "");
    }));
    CurlHttpClient client("test");
    const HttpAnswer answer = fetch(client, server.url());
    EXPECT_EQ(answer.failure, expected);
    EXPECT_EQ(answer.status, 0);
  }
}

TEST(CurlHttpClient, AsksTheProxyOfTheEnvironment) {
  RawServer proxy(
      RawServer::answering([](const RawRequest&) { return rawAnswer("200 OK", "", "by proxy"); }));
  const ScopedVariable variable("http_proxy", proxy.url());
  CurlHttpClient client("test");
  EXPECT_EQ(fetch(client, "http://nonexistent.invalid/a").body, "by proxy");
  EXPECT_EQ(proxy.requests().back().target(), "http://nonexistent.invalid/a");
}

TEST(CurlHttpClient, GivesEveryThreadItsOwnAnswer) {
  RawServer server(RawServer::answering([](const RawRequest& request) {
    const std::string cookie = "Set-Cookie: c" + std::string(request.target().substr(1)) + "=1\r\n";
    return rawAnswer("200 OK", cookie, request.target());
  }));
  CurlHttpClient client("test");
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 8; ++thread) {
      threads.emplace_back([&, thread] {
        for (int i = 0; i < 100; ++i) {
          const std::string path = "/" + std::to_string(thread) + "-" + std::to_string(i);
          EXPECT_EQ(fetch(client, server.url(path)).body, path);
        }
      });
    }
  }
  EXPECT_LE(server.connectionCount(), 8);
}

struct KeyFree {
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
};
struct CertificateFree {
  void operator()(X509* certificate) const { X509_free(certificate); }
};
using Key = std::unique_ptr<EVP_PKEY, KeyFree>;
using Certificate = std::unique_ptr<X509, CertificateFree>;

Certificate selfSigned(EVP_PKEY* key) {
  Certificate certificate(X509_new());
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), 0);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 3600);
  X509_set_pubkey(certificate.get(), key);
  X509_NAME* name = X509_get_subject_name(certificate.get());
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("127.0.0.1"),
                             -1, -1, 0);
  X509_set_issuer_name(certificate.get(), name);
  X509_sign(certificate.get(), key, EVP_sha256());
  return certificate;
}

TEST(CurlHttpClient, TrustsNoCertificateOfTheServersOwnMaking) {
  const Key key(EVP_EC_gen("P-256"));
  const Certificate certificate = selfSigned(key.get());
  httplib::SSLServer server(certificate.get(), key.get());
  server.Get("/",
             [](const httplib::Request&, httplib::Response& response) { response.set_content("x", "a/b"); });
  const int port = server.bind_to_any_port("127.0.0.1");
  ASSERT_GT(port, 0);
  std::thread listening([&] { server.listen_after_bind(); });

  httplib::SSLClient trusting("127.0.0.1", port);
  trusting.enable_server_certificate_verification(false);
  const httplib::Result served = trusting.Get("/");
  EXPECT_TRUE(served && served->status == 200) << "the server itself does not work";
  trusting.stop();
  CurlHttpClient client("test");
  EXPECT_EQ(fetch(client, "https://127.0.0.1:" + std::to_string(port) + "/").failure,
            FetchFailure::tlsFailed);

  server.stop();
  listening.join();
}

}  // namespace
