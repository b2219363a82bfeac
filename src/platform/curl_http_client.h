// The HttpClient that talks to the network.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "platform/http_client.h"

namespace platform {

/// Bounds on a site that misbehaves.
struct HttpLimits {
  long maxRedirects = 20;
  std::chrono::seconds connectTimeout{30};  // resolving the name, connecting and the TLS handshake together
  std::chrono::seconds silenceTimeout{60};  // a transfer that brings next to nothing for so long is given up
  bool publicOnly = false;         // hosts on private addresses are not asked; a proxy decides for itself
  bool tellsCertificates = false;  // how long that of a https server is valid
  std::chrono::milliseconds exchangeTimeout = std::chrono::minutes{10};  // with all redirects; more than 0
};

/// Who asks, and what the site's own server is told besides.
struct HttpIdentity {
  std::string userAgent;  // told to every server
  // For the server of this address alone, whatever redirects lead elsewhere. One of http counts by https,
  // too, where both are at their scheme's own port.
  std::string site = {};                  // an http or https address; empty for none
  std::vector<std::string> headers = {};  // "Name: value", such as platform/header_line.h lets pass
  std::string user = {};                  // for HTTP authentication, Basic and Digest; empty for none
  /// Gives the user's password, nothing when it is not known. Asked before each request, on any thread, and
  /// may block until the request is stopped.
  std::function<std::optional<std::string>(const std::stop_token& stop)> password = {};
};

/// Speaks HTTP/1.1 and HTTP/2 over kept-alive connections: one per thread that fetches at the same time, and
/// another one for its HEAD requests. None is kept on which something came that was not asked for. Only http
/// and https are followed, also after redirects. Cookies live in memory, shared by all connections, as
/// long as this object; a site that sets them by the thousand loses them all. Asks for gzip and br. Proxies
/// are taken from the environment as usual. Must outlive every running `fetch`.
class CurlHttpClient : public HttpClient {
 public:
  explicit CurlHttpClient(HttpIdentity identity, HttpLimits limits = {});
  ~CurlHttpClient() override;

  HttpAnswer fetch(const HttpRequest& request, std::stop_token stop) override;

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace platform
