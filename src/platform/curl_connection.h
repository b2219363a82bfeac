// One connection of the HTTP client, and what all of them share. Of no interest to anybody but the client.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <mutex>
#include <stop_token>
#include <string>
#include <string_view>

#include <curl/curl.h>

#include "platform/curl_http_client.h"
#include "platform/curl_site.h"

namespace platform {

/// What all connections know together: cookies, resolved names and TLS sessions. Any thread; outlives them.
class CurlShare {
 public:
  CurlShare() : m_handle(curl_share_init()) {
    curl_share_setopt(m_handle, CURLSHOPT_USERDATA, this);
    curl_share_setopt(m_handle, CURLSHOPT_LOCKFUNC, &CurlShare::lock);
    curl_share_setopt(m_handle, CURLSHOPT_UNLOCKFUNC, &CurlShare::unlock);
    curl_share_setopt(m_handle, CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
    curl_share_setopt(m_handle, CURLSHOPT_SHARE, CURL_LOCK_DATA_DNS);
    curl_share_setopt(m_handle, CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
  }
  ~CurlShare() { curl_share_cleanup(m_handle); }
  CurlShare(const CurlShare&) = delete;
  CurlShare& operator=(const CurlShare&) = delete;

  CURLSH* handle() const { return m_handle; }

 private:
  static void lock(CURL*, curl_lock_data data, curl_lock_access, void* self) {
    static_cast<CurlShare*>(self)->m_mutexes[data].lock();
  }
  static void unlock(CURL*, curl_lock_data data, void* self) {
    static_cast<CurlShare*>(self)->m_mutexes[data].unlock();
  }

  CURLSH* m_handle;
  std::array<std::mutex, CURL_LOCK_DATA_LAST> m_mutexes;
};

/// One exchange at a time, of one thread, over a kept-alive connection. The multi handle holds that
/// connection, and lets another thread interrupt the wait for it.
class CurlConnection {
 public:
  CurlConnection(CurlSite& site, const HttpLimits& limits, const CurlShare& share)
      : m_site(site), m_limits(limits), m_share(share), m_easy(curl_easy_init()), m_multi(curl_multi_init()) {
    if (usable()) configure();
  }
  ~CurlConnection() {
    curl_easy_cleanup(m_easy);
    curl_multi_cleanup(m_multi);
  }
  CurlConnection(const CurlConnection&) = delete;
  CurlConnection& operator=(const CurlConnection&) = delete;

  /// False when the library had no memory for it.
  bool usable() const { return m_easy != nullptr && m_multi != nullptr; }

  /// As HttpClient::fetch().
  HttpAnswer exchange(const HttpRequest& request, const std::stop_token& stop);

  /// Forgets the cookies of all connections when there are too many of them.
  void dropExcessCookies();

 private:
  enum class Stage {
    connecting,
    asked,  // and no status line was understood since
    headers,
    afterHeaders,
  };

  void configure();
  void prepare(const HttpRequest& request);
  HttpAnswer visit(const std::string& address, const std::stop_token& stop);
  HttpAnswer ask(const std::stop_token& stop);
  HttpAnswer attempt(const std::stop_token& stop);
  bool keptConnectionDied() const;
  FetchFailure transfer(const std::stop_token& stop);
  FetchFailure outcome();
  FetchFailure failureOf(CURLcode code) const;
  bool outgrown() const;
  HttpAnswer takeAnswer();
  std::chrono::seconds certificateEnds() const;
  std::chrono::milliseconds timeToAnswer() const;
  std::chrono::seconds retryAfter() const;
  std::string header(const char* name, std::size_t index = 0) const;
  std::string listHeader(const char* name) const;
  bool isRedirect() const;

  static curl_socket_t openSocket(void* self, curlsocktype, curl_sockaddr* address);
  static int beforeRequest(void* self, char*, char*, int, int);
  static int watch(CURL* easy, curl_infotype kind, char* data, std::size_t size, void* self);
  static std::size_t receiveHeader(char* data, std::size_t, std::size_t size, void* self);
  static std::size_t receiveBody(char* data, std::size_t, std::size_t size, void* self);
  bool append(std::string_view data);

  CurlSite& m_site;
  const HttpLimits& m_limits;
  const CurlShare& m_share;
  CURL* m_easy;
  CURLM* m_multi;
  // Of the exchange that runs, with all its redirects:
  std::size_t m_maxBytes = 0;
  Overflow m_overflow = Overflow::fail;
  bool (*m_wantsBody)(std::string_view) = nullptr;
  std::size_t m_headerBytes = 0;
  std::size_t m_wireBytes = 0;                          // of bodies as they came, with all that frames them
  std::chrono::steady_clock::time_point m_deadline;     // of the limit for every exchange
  std::chrono::steady_clock::time_point m_ownDeadline;  // of the request's, if that is earlier
  // Of one request of it:
  std::string m_body;
  std::size_t m_droppedBytes = 0;  // of a redirect's body
  bool m_answered = false;         // something came
  Stage m_stage = Stage::connecting;
  bool m_isPrivate = false;
  bool m_tooLarge = false;
  bool m_truncated = false;
};

}  // namespace platform
