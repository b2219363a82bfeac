// The site that a client was made for, as its connections need to know it. Of no interest to anybody but the
// client.
#pragma once

#include <array>
#include <atomic>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>

#include <curl/curl.h>

#include "platform/curl_http_client.h"

namespace platform {

/// Who asks, and what the site's server alone is told. Outlives the connections. Any thread.
class CurlSite {
 public:
  explicit CurlSite(HttpIdentity identity);

  const std::string& userAgent() const { return m_identity.userAgent; }

  bool hasUser() const { return !m_identity.user.empty(); }

  /// Whether a request for this address, fit to be sent, goes to the site's server.
  bool isAt(std::string_view address) const;

  /// The ways in which the password may be told, of CURLAUTH_...: as long as nobody knows which one the
  /// server wants any of two, which costs a further request each time.
  unsigned long ways() const { return m_ways; }

  /// Has the next request of this connection tell name and password in these ways. False when there are none.
  bool authenticate(CURL* easy, unsigned long ways, const std::stop_token& stop) const;

  /// Takes from the answer to such a request which way the server wants. True where that is none of `ways`,
  /// so that the request has to be repeated.
  bool learnWay(CURL* easy, unsigned long ways);

  /// The extra header lines, null for none. Cookies are not among them: the library adds them to those that
  /// the site has set, as there may be one such line only.
  curl_slist* headers() const { return m_headers.get(); }

  /// "a=b; c=d", null for none.
  const char* cookies() const { return m_cookies.empty() ? nullptr : m_cookies.c_str(); }

 private:
  struct FreeList {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
  };

  void addHeader(const std::string& line);

  const HttpIdentity m_identity;
  std::array<std::string, 2> m_origins;  // empty for none
  std::unique_ptr<curl_slist, FreeList> m_headers;
  std::string m_cookies;
  std::atomic<unsigned long> m_ways = CURLAUTH_BASIC | CURLAUTH_DIGEST;
};

}  // namespace platform
