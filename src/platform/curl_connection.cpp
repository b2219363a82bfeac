#include "platform/curl_connection.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <new>
#include <utility>

#include "platform/ascii.h"
#include "platform/idna.h"
#include "platform/private_address.h"
#include "platform/uri.h"

namespace platform {

namespace {

// Of one exchange, with its redirects and interim answers, so that endless ones of any kind end.
constexpr std::size_t kMaxHeaderBytes = 256u << 10;
// What may come over the wire beyond twice the size allowed for the decoded body: the pages that go with
// redirects, small chunks, and encodings that add to their content.
constexpr std::size_t kWireSlack = 1u << 20;
// An announced length is a claim. More than this is set aside only as the bytes arrive.
constexpr std::size_t kMaxReserve = 1u << 20;
// The library repeats a request that has to be authenticated, as often as the server says that what it gave
// to work with has expired.
constexpr long kMaxRepeats = 5;
// The library rounds to milliseconds.
constexpr std::chrono::milliseconds kClockSlack{2};
constexpr long kReceiveBuffer = 64 << 10;
// Slower counts as silence, or a byte a second would hold a connection for days.
constexpr long kSilentBytesPerSecond = 100;
// The library bounds the cookies of one answer but not their sum, and searches them one by one.
constexpr int kMaxCookies = 1000;

/// Whether requests may go to a proxy, as the library reads the environment.
bool isProxied() {
  constexpr std::array kNames = {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"};
  return std::any_of(kNames.begin(), kNames.end(), [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  });
}

bool isHttpUrl(std::string_view url) {
  const UriParts parts = splitUri(url);
  if (!parts.scheme || parts.host().empty()) return false;
  const std::string scheme = lowerAscii(*parts.scheme);
  return scheme == "http" || scheme == "https";
}

/// Where a redirect leads; what the server wrote where that is no address.
std::string resolved(const std::string& base, const std::string& location) {
  const std::unique_ptr<CURLU, decltype(&curl_url_cleanup)> url(curl_url(), &curl_url_cleanup);
  char* text = nullptr;
  if (!url || curl_url_set(url.get(), CURLUPART_URL, base.c_str(), CURLU_PATH_AS_IS) != CURLUE_OK ||
      curl_url_set(url.get(), CURLUPART_URL, location.c_str(), CURLU_URLENCODE | CURLU_ALLOW_SPACE) !=
          CURLUE_OK ||
      curl_url_get(url.get(), CURLUPART_URL, &text, 0) != CURLUE_OK)
    return location;
  const std::unique_ptr<char, decltype(&curl_free)> owner(text, &curl_free);
  return text;
}

}  // namespace

void CurlConnection::configure() {
  const auto set = [this](CURLoption option, auto value) { curl_easy_setopt(m_easy, option, value); };
  set(CURLOPT_SHARE, m_share.handle());
  set(CURLOPT_COOKIEFILE, "");  // cookies on, none loaded
  set(CURLOPT_USERAGENT, m_site.userAgent().c_str());
  set(CURLOPT_ACCEPT_ENCODING, "gzip, br");
  set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
  set(CURLOPT_HTTP09_ALLOWED, 0L);
  set(CURLOPT_PATH_AS_IS, 1L);
  set(CURLOPT_PROTOCOLS_STR, "http,https");
  set(CURLOPT_FOLLOWLOCATION, 0L);  // exchange() does, since each step has to be allowed
  set(CURLOPT_MAXREDIRS, kMaxRepeats);
  set(CURLOPT_CONNECTTIMEOUT, static_cast<long>(m_limits.connectTimeout.count()));
  set(CURLOPT_LOW_SPEED_LIMIT, kSilentBytesPerSecond);
  set(CURLOPT_LOW_SPEED_TIME, static_cast<long>(m_limits.silenceTimeout.count()));
  set(CURLOPT_QUICK_EXIT, 1L);  // a stop must not wait for the thread that resolves a name
  set(CURLOPT_NOSIGNAL, 1L);
  set(CURLOPT_NOPROGRESS, 1L);
  set(CURLOPT_BUFFERSIZE, kReceiveBuffer);
  // The library remembers the trusted certificates it has read only when they come from its bundle alone.
  // Else it reads them for every connection, some 35 ms each time. Debian's folder holds the same as its
  // bundle.
  const char* bundle = nullptr;
  curl_easy_getinfo(m_easy, CURLINFO_CAINFO, &bundle);
  if (bundle != nullptr) set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
  set(CURLOPT_PREREQFUNCTION, &CurlConnection::beforeRequest);
  set(CURLOPT_PREREQDATA, this);
  set(CURLOPT_CERTINFO, m_limits.tellsCertificates ? 1L : 0L);
  if (m_limits.publicOnly && !isProxied()) {
    set(CURLOPT_OPENSOCKETFUNCTION, &CurlConnection::openSocket);
    set(CURLOPT_OPENSOCKETDATA, this);
  }
  set(CURLOPT_VERBOSE, 1L);
  set(CURLOPT_DEBUGFUNCTION, &CurlConnection::watch);
  set(CURLOPT_DEBUGDATA, this);
  set(CURLOPT_HEADERFUNCTION, &CurlConnection::receiveHeader);
  set(CURLOPT_HEADERDATA, this);
  set(CURLOPT_WRITEFUNCTION, &CurlConnection::receiveBody);
  set(CURLOPT_WRITEDATA, this);
}

HttpAnswer CurlConnection::exchange(const HttpRequest& request, const std::stop_token& stop) {
  prepare(request);
  std::string address = request.url;
  for (long redirects = 0;; ++redirects) {
    address = requestAddress(withAsciiHost(address));
    HttpAnswer answer =
        isHttpUrl(address) ? visit(address, stop) : HttpAnswer{.failure = FetchFailure::invalidAddress};
    if (answer.failure == FetchFailure::invalidAddress && redirects > 0)
      answer.failure = FetchFailure::forbiddenRedirect;
    if (answer.failure != FetchFailure::none) return answer;
    if (redirects > 0) answer.redirectedTo = address;
    if (!isRedirect()) return answer;
    address = resolved(address, header("Location"));
    if (request.followsTo && !request.followsTo(address)) {
      answer.redirectedTo = std::move(address);
      return answer;
    }
    if (redirects == m_limits.maxRedirects) return {.failure = FetchFailure::tooManyRedirects};
  }
}

void CurlConnection::prepare(const HttpRequest& request) {
  curl_easy_setopt(m_easy, request.method == HttpMethod::head ? CURLOPT_NOBODY : CURLOPT_HTTPGET, 1L);
  const auto start = std::chrono::steady_clock::now();
  m_deadline = m_ownDeadline = start + m_limits.exchangeTimeout;
  if (request.timeout.count() > 0) m_ownDeadline = std::min(m_deadline, start + request.timeout);
  m_maxBytes = request.maxBytes;
  m_overflow = request.overflow;
  m_wantsBody = request.wantsBody;
  m_headerBytes = m_wireBytes = 0;
}

/// Asks for one address.
HttpAnswer CurlConnection::visit(const std::string& address, const std::stop_token& stop) {
  // The library refuses texts beyond some megabytes; the previous URL would stay.
  if (curl_easy_setopt(m_easy, CURLOPT_URL, address.c_str()) != CURLE_OK)
    return {.failure = FetchFailure::invalidAddress};
  const bool isSite = m_site.isAt(address);
  curl_easy_setopt(m_easy, CURLOPT_HTTPHEADER, isSite ? m_site.headers() : nullptr);
  curl_easy_setopt(m_easy, CURLOPT_COOKIE, isSite ? m_site.cookies() : nullptr);
  // Of the last address:
  for (const CURLoption option : {CURLOPT_USERNAME, CURLOPT_PASSWORD})
    curl_easy_setopt(m_easy, option, static_cast<const char*>(nullptr));
  curl_easy_setopt(m_easy, CURLOPT_HTTPAUTH, CURLAUTH_BASIC);
  const unsigned long ways = m_site.ways();
  const bool isAuthenticated = isSite && m_site.authenticate(m_easy, ways, stop);
  HttpAnswer answer = ask(stop);
  if (!isAuthenticated) {
    // The library would take what was offered here for the next server's offer.
    if (answer.status == 401 && m_site.hasUser()) {
      curl_easy_reset(m_easy);
      configure();
    }
    return answer;
  }
  if (m_site.learnWay(m_easy, ways) && answer.status == 401) {
    m_site.authenticate(m_easy, m_site.ways(), stop);
    answer = ask(stop);
  }
  answer.sentPassword = answer.status != 0;
  return answer;
}

HttpAnswer CurlConnection::ask(const std::stop_token& stop) {
  HttpAnswer answer = attempt(stop);
  // A server may close a kept connection just when it is used again. The library asks once more by itself,
  // but counts such cases over all exchanges and lets each sixth fail.
  if (answer.failure == FetchFailure::connectionClosed && keptConnectionDied()) answer = attempt(stop);
  return answer;
}

HttpAnswer CurlConnection::attempt(const std::stop_token& stop) {
  using std::chrono::milliseconds;
  const auto left = std::chrono::ceil<milliseconds>(m_ownDeadline - std::chrono::steady_clock::now());
  const long timeout = std::max<long>(left.count(), 1);  // 0 would be none
  curl_easy_setopt(m_easy, CURLOPT_TIMEOUT_MS, timeout);
  curl_easy_setopt(m_easy, CURLOPT_FORBID_REUSE, 0L);
  m_droppedBytes = 0;
  m_stage = Stage::connecting;
  m_answered = m_tooLarge = m_truncated = m_isPrivate = false;
  if (curl_multi_add_handle(m_multi, m_easy) != CURLM_OK) return {.failure = FetchFailure::other};
  const FetchFailure failure = transfer(stop);
  HttpAnswer answer = failure == FetchFailure::none ? takeAnswer() : HttpAnswer{.failure = failure};
  m_body = {};  // an idle connection holds no memory of a body that grew too large
  // Taken out in the middle of an exchange, the connection is closed and never used again.
  curl_multi_remove_handle(m_multi, m_easy);
  return answer;
}

/// Whether the last attempt used a kept connection, and that brought nothing at all.
bool CurlConnection::keptConnectionDied() const {
  long connectionsMade = 0;
  curl_easy_getinfo(m_easy, CURLINFO_NUM_CONNECTS, &connectionsMade);
  return connectionsMade == 0 && m_stage == Stage::asked && !m_answered;
}

FetchFailure CurlConnection::transfer(const std::stop_token& stop) {
  const std::stop_callback wake(stop, [this] { curl_multi_wakeup(m_multi); });
  while (!stop.stop_requested()) {
    int running = 0;
    if (curl_multi_perform(m_multi, &running) != CURLM_OK) return FetchFailure::other;
    if (running == 0) return outcome();
    if (outgrown()) return FetchFailure::tooLarge;
    constexpr int kLongestWait = 60'000;  // milliseconds; the library's own timers end it earlier
    if (curl_multi_poll(m_multi, nullptr, 0, kLongestWait, nullptr) != CURLM_OK) return FetchFailure::other;
  }
  return FetchFailure::stopped;
}

FetchFailure CurlConnection::outcome() {
  int remaining = 0;
  const CURLMsg* message = curl_multi_info_read(m_multi, &remaining);
  if (message == nullptr || message->msg != CURLMSG_DONE) return FetchFailure::other;
  if (m_truncated) return FetchFailure::none;
  if (m_tooLarge) return FetchFailure::tooLarge;
  if (m_isPrivate && message->data.result == CURLE_COULDNT_CONNECT) return FetchFailure::privateAddress;
  const FetchFailure failure = failureOf(message->data.result);
  // What goes with a redirect is dropped, and may be broken.
  const bool isBroken = failure == FetchFailure::connectionClosed || failure == FetchFailure::undecodable;
  return isBroken && m_stage == Stage::afterHeaders && isRedirect() ? FetchFailure::none : failure;
}

FetchFailure CurlConnection::failureOf(CURLcode code) const {
  switch (code) {
    case CURLE_OK:
      // The library takes an end within the headers for an answer without a body.
      return m_stage == Stage::afterHeaders ? FetchFailure::none : FetchFailure::connectionClosed;
    case CURLE_URL_MALFORMAT:
      return FetchFailure::invalidAddress;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return FetchFailure::nameNotResolved;
    case CURLE_COULDNT_CONNECT:
    case CURLE_PROXY:
      return FetchFailure::connectionFailed;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CIPHER:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CRL_BADFILE:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_INVALIDCERTSTATUS:
    case CURLE_SSL_CLIENTCERT:
      return FetchFailure::tlsFailed;
    case CURLE_SSL_CACERT_BADFILE:
      return FetchFailure::noCertificates;
    case CURLE_OPERATION_TIMEDOUT:
      return std::chrono::steady_clock::now() > m_deadline - kClockSlack ? FetchFailure::tookTooLong
                                                                         : FetchFailure::timedOut;
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_HTTP2:
    case CURLE_HTTP2_STREAM:
    case CURLE_UNSUPPORTED_PROTOCOL:  // an answer in something else than HTTP
      return FetchFailure::connectionClosed;
    case CURLE_OUT_OF_MEMORY:
      return FetchFailure::tooLarge;  // also a header line longer than the library takes
    case CURLE_TOO_MANY_REDIRECTS:
      return FetchFailure::tooManyRedirects;
    case CURLE_BAD_CONTENT_ENCODING:
      return FetchFailure::undecodable;
    default:
      return FetchFailure::other;
  }
}

/// Whether more came than any body of the allowed size needs: an encoded one that decodes to nothing, what is
/// said beside a chunk, or what goes with the redirects of one exchange may be endless too.
bool CurlConnection::outgrown() const {
  return m_wireBytes > kWireSlack && (m_wireBytes - kWireSlack) / 2 > m_maxBytes;
}

HttpAnswer CurlConnection::takeAnswer() {
  long status = 0;
  curl_easy_getinfo(m_easy, CURLINFO_RESPONSE_CODE, &status);
  if (status < 100 || status > 999) return {.failure = FetchFailure::connectionClosed};
  return {.status = static_cast<int>(status),
          .contentType = header("Content-Type"),
          .lastModified = header("Last-Modified"),
          .robotsTag = listHeader("X-Robots-Tag"),
          .time = timeToAnswer(),
          .body = std::move(m_body),
          .certificateEnds = certificateEnds(),
          .retryAfter = retryAfter()};
}

std::chrono::milliseconds CurlConnection::timeToAnswer() const {
  curl_off_t microseconds = 0;
  curl_easy_getinfo(m_easy, CURLINFO_STARTTRANSFER_TIME_T, &microseconds);
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::microseconds(microseconds));
}

std::chrono::seconds CurlConnection::certificateEnds() const {
  constexpr std::string_view kKey = "Expire date:";
  curl_certinfo* info = nullptr;
  if (curl_easy_getinfo(m_easy, CURLINFO_CERTINFO, &info) != CURLE_OK || info == nullptr ||
      info->num_of_certs < 1)
    return {};
  // The first one is the server's own.
  for (const curl_slist* line = info->certinfo[0]; line != nullptr; line = line->next) {
    const std::string_view text = line->data;
    if (text.starts_with(kKey))
      return std::chrono::seconds(std::max<time_t>(curl_getdate(line->data + kKey.size(), nullptr), 0));
  }
  return {};
}

/// The library reads both forms; of a date it tells how far away that is, less than nothing for one that has
/// passed.
std::chrono::seconds CurlConnection::retryAfter() const {
  curl_off_t seconds = 0;
  curl_easy_getinfo(m_easy, CURLINFO_RETRY_AFTER, &seconds);
  return std::chrono::seconds(std::max<curl_off_t>(seconds, 0));
}

std::string CurlConnection::header(const char* name, std::size_t index) const {
  constexpr int kLastRequest = -1;  // of a redirect chain
  curl_header* found = nullptr;
  if (curl_easy_header(m_easy, name, index, CURLH_HEADER, kLastRequest, &found) != CURLHE_OK) return {};
  return found->value;
}

/// Servers may write a list as several lines.
std::string CurlConnection::listHeader(const char* name) const {
  constexpr std::size_t kMostLines = 16;
  std::string list = header(name);
  for (std::size_t i = 1; i < kMostLines && !list.empty(); ++i) {
    const std::string more = header(name, i);
    if (more.empty()) break;
    list.append(", ").append(more);
  }
  return list;
}

bool CurlConnection::isRedirect() const {
  long status = 0;
  curl_easy_getinfo(m_easy, CURLINFO_RESPONSE_CODE, &status);
  return status / 100 == 3 && !header("Location").empty();
}

/// Before anything is said to the address.
curl_socket_t CurlConnection::openSocket(void* self, curlsocktype, curl_sockaddr* address) {
  if (isPrivateAddress(address->addr)) {
    static_cast<CurlConnection*>(self)->m_isPrivate = true;
    return CURL_SOCKET_BAD;
  }
  return socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

int CurlConnection::beforeRequest(void* self, char*, char*, int, int) {
  static_cast<CurlConnection*>(self)->m_stage = Stage::asked;
  return CURL_PREREQFUNC_OK;
}

/// Told of the library's doings. It drops what comes behind an answer and has been read with it, and keeps
/// the connection, where the rest would be taken for the next answer.
int CurlConnection::watch(CURL* easy, curl_infotype kind, char* data, std::size_t size, void* self) {
  const std::string_view text(data, size);
  if (kind == CURLINFO_DATA_IN) static_cast<CurlConnection*>(self)->m_wireBytes += size;
  if (kind == CURLINFO_TEXT && (text.starts_with("Excess found") || text.starts_with("Leftovers after"))) {
    curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
  }
  return 0;
}

std::size_t CurlConnection::receiveHeader(char* data, std::size_t, std::size_t size, void* self) {
  auto& connection = *static_cast<CurlConnection*>(self);
  const std::string_view line(data, size);
  if (line.starts_with("HTTP/")) connection.m_stage = Stage::headers;
  if (line == "\r\n" || line == "\n") connection.m_stage = Stage::afterHeaders;
  connection.m_answered = true;
  connection.m_headerBytes += size;
  if (connection.m_headerBytes <= kMaxHeaderBytes) return size;
  connection.m_tooLarge = true;
  return CURL_WRITEFUNC_ERROR;
}

std::size_t CurlConnection::receiveBody(char* data, std::size_t, std::size_t size, void* self) {
  auto& connection = *static_cast<CurlConnection*>(self);
  try {
    if (connection.append({data, size})) return size;
  } catch (const std::bad_alloc&) {  // must not pass through the library's frames
    connection.m_tooLarge = true;
  }
  return CURL_WRITEFUNC_ERROR;
}

/// False when no more of the body is to come.
bool CurlConnection::append(std::string_view data) {
  if (m_droppedBytes > 0 || (m_body.empty() && isRedirect())) {
    m_droppedBytes += data.size();
    m_tooLarge = m_droppedBytes > m_maxBytes;  // however few bytes it is encoded in
    return !m_tooLarge;
  }
  if (m_body.empty()) {
    m_truncated = m_wantsBody != nullptr && !m_wantsBody(header("Content-Type"));
    if (m_truncated) return false;
    curl_off_t announced = 0;
    curl_easy_getinfo(m_easy, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &announced);
    if (announced > 0)
      m_body.reserve(std::min({static_cast<std::size_t>(announced), m_maxBytes, kMaxReserve}));
  }
  const std::size_t room = m_maxBytes - m_body.size();
  if (data.size() <= room) {
    m_body.append(data);
    return true;
  }
  if (m_overflow == Overflow::truncate) {
    m_body.append(data.substr(0, room));
    m_truncated = true;
  } else {
    m_tooLarge = true;
  }
  return false;
}

void CurlConnection::dropExcessCookies() {
  curl_slist* cookies = nullptr;
  curl_easy_getinfo(m_easy, CURLINFO_COOKIELIST, &cookies);
  int count = 0;
  for (const curl_slist* cookie = cookies; cookie != nullptr; cookie = cookie->next) ++count;
  curl_slist_free_all(cookies);
  if (count > kMaxCookies) curl_easy_setopt(m_easy, CURLOPT_COOKIELIST, "ALL");  // removes them
}

}  // namespace platform
