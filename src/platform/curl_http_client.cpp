#include "platform/curl_http_client.h"

#include <atomic>
#include <map>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

#include <curl/curl.h>

#include "platform/curl_connection.h"
#include "platform/curl_site.h"

namespace platform {

namespace {

constexpr unsigned kExchangesPerCookieCheck = 64;

void initializeLibrary() {
  static const CURLcode initialized = curl_global_init(CURL_GLOBAL_DEFAULT);
  static_cast<void>(initialized);  // without it no handle can be made, and every fetch says so
}

}  // namespace

struct CurlHttpClient::Impl {
  explicit Impl(HttpIdentity identity) : site(std::move(identity)) {}

  std::unique_ptr<CurlConnection> borrow(HttpMethod method) {
    {
      const std::lock_guard lock(mutex);
      std::vector<std::unique_ptr<CurlConnection>>& free = idle[method];
      if (!free.empty()) {
        // The one returned last: its connection is the least likely to have been closed by the server.
        std::unique_ptr<CurlConnection> connection = std::move(free.back());
        free.pop_back();
        return connection;
      }
    }
    return std::make_unique<CurlConnection>(site, limits, share);
  }

  void giveBack(HttpMethod method, std::unique_ptr<CurlConnection> connection) {
    if (exchanges.fetch_add(1) % kExchangesPerCookieCheck == 0) connection->dropExcessCookies();
    const std::lock_guard lock(mutex);
    idle[method].push_back(std::move(connection));
  }

  CurlSite site;
  HttpLimits limits;
  CurlShare share;
  std::atomic<unsigned> exchanges = 0;
  std::mutex mutex;
  // Some servers send a body after a HEAD, perhaps late: it must not be taken for the answer to a GET.
  std::map<HttpMethod, std::vector<std::unique_ptr<CurlConnection>>>
      idle;  // guarded by mutex; uses site and share
};

CurlHttpClient::CurlHttpClient(HttpIdentity identity, HttpLimits limits) {
  initializeLibrary();
  m_impl = std::make_unique<Impl>(std::move(identity));
  m_impl->limits = limits;
}

CurlHttpClient::~CurlHttpClient() = default;

HttpAnswer CurlHttpClient::fetch(const HttpRequest& request, std::stop_token stop) {
  if (stop.stop_requested()) return {.failure = FetchFailure::stopped};
  try {
    std::unique_ptr<CurlConnection> connection = m_impl->borrow(request.method);
    if (!connection->usable()) return {.failure = FetchFailure::other};
    HttpAnswer answer = connection->exchange(request, stop);
    m_impl->giveBack(request.method, std::move(connection));
    return answer;
  } catch (const std::bad_alloc&) {
    return {.failure = FetchFailure::tooLarge};
  } catch (...) {
    return {.failure = FetchFailure::other};
  }
}

}  // namespace platform
