// The HttpClient that talks to the network.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/http_client.h"

namespace platform {

/// Bounds on a site that misbehaves.
struct HttpLimits {
  long maxRedirects = 20;
  std::chrono::seconds connectTimeout{30};  // resolving the name, connecting and the TLS handshake together
  std::chrono::seconds silenceTimeout{60};  // a transfer that brings next to nothing for so long is given up
  std::chrono::milliseconds exchangeTimeout = std::chrono::minutes{10};  // with all redirects; more than 0
};

/// Speaks HTTP/1.1 and HTTP/2 over kept-alive connections: one per thread that fetches at the same time, and
/// another one for its HEAD requests. None is kept on which something came that was not asked for. Only http
/// and https are followed, also after redirects. Cookies live in memory, shared by all connections, as
/// long as this object; a site that sets them by the thousand loses them all. Asks for gzip and br. Proxies
/// are taken from the environment as usual. Must outlive every running `fetch`.
class CurlHttpClient : public HttpClient {
 public:
  explicit CurlHttpClient(std::string userAgent, HttpLimits limits = {});
  ~CurlHttpClient() override;

  HttpAnswer fetch(const HttpRequest& request, std::stop_token stop) override;

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace platform
