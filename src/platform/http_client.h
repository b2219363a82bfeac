// HTTP exchanges with sites that nobody here controls: what is asked, what comes back, and the bounds that
// hold.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <stop_token>
#include <string>
#include <string_view>

namespace platform {

enum class HttpMethod { get, head };

/// What happens to a body that grows beyond `HttpRequest::maxBytes`.
enum class Overflow {
  fail,      // the exchange ends with FetchFailure::tooLarge
  truncate,  // the first maxBytes are the body, and the exchange counts as done
};

struct HttpRequest {
  std::string url;  // as the crawl holds it; the client makes it fit for the request line (platform/uri.h)
  HttpMethod method = HttpMethod::get;
  std::chrono::milliseconds timeout{0};  // for the whole exchange; 0 means no limit but the client's own
  std::size_t maxBytes = 64u << 20;      // of the decoded body
  Overflow overflow = Overflow::fail;
  /// Asked when a body begins, with the Content-Type header's value. Where it says no the rest is not
  /// fetched: the exchange counts as done, with an empty body. Null: every body is wanted.
  bool (*wantsBody)(std::string_view contentType) = nullptr;
  /// Asked before a redirect is followed, each time, with the absolute address that it leads to, or with what
  /// the server gives for one and is none. Where it says no, nothing is asked there: the redirect itself is
  /// the answer. Empty: redirects are followed wherever they lead.
  std::function<bool(std::string_view address)> followsTo = {};
};

/// Why no usable answer came.
enum class FetchFailure {
  none,
  stopped,           // the stop token asked for it
  invalidAddress,    // no http or https URL with a host, or one that cannot be sent
  nameNotResolved,   // the host's name, or a proxy's
  connectionFailed,  // refused, unreachable
  tlsFailed,         // handshake or certificate
  noCertificates,    // none to check a server's certificate against
  timedOut,          // while connecting, in silence, or the request's own limit
  tookTooLong,       // not whole within the client's limit for an exchange
  connectionClosed,  // before the answer was complete, or the answer breaks the protocol
  tooLarge,          // body or headers
  tooManyRedirects,
  privateAddress,     // only public ones were to be asked
  forbiddenRedirect,  // to a scheme other than http and https, or to no usable URL
  undecodable,        // the content encoding is broken or unknown
  other,
};

/// The failure in a few words for the user: "The host name could not be resolved". Empty for `none`.
std::string_view failureText(FetchFailure failure);

/// Whether a server was not reached, or said nothing: with the network away all requests end so.
constexpr bool isUnanswered(FetchFailure failure) {
  return failure == FetchFailure::nameNotResolved || failure == FetchFailure::connectionFailed ||
         failure == FetchFailure::timedOut || failure == FetchFailure::connectionClosed;
}

/// An answer, or the reason why there is none. With a failure, status is 0 and the texts are empty.
struct [[nodiscard]] HttpAnswer {
  FetchFailure failure = FetchFailure::none;
  int status = 0;                 // 100 to 999, of the last answer of a redirect chain
  std::string contentType = {};   // that answer's header value as sent, empty when there was none
  std::string lastModified = {};  // likewise
  std::string robotsTag = {};     // likewise, X-Robots-Tag; several are joined by ", "
  std::string redirectedTo =
      {};  // the address that answered, if not the one asked, or was not to be followed
  std::chrono::milliseconds time{0};        // from the request to the first byte of the answer
  std::string body = {};                    // decoded (gzip, br), characters as sent
  std::chrono::seconds certificateEnds{0};  // since 1970-01-01 UTC; 0 unless the client tells certificates
  bool sentPassword = false;                // the server that answered was told the site's name and password
  // What its Retry-After asks for, as seconds or as a date (RFC 9110, section 10.2.3). Never negative; 0 also
  // for none, for a date that has passed and for what is neither.
  std::chrono::seconds retryAfter{0};
};

/// The standard English reason phrase of a status code (RFC 9110 and the IANA registry): "Not Found" for 404.
/// A code without one gets the text of its class ("Client Error"), one outside 100 to 599 "Unknown Status".
std::string_view reasonPhrase(int status);

/// "404 - Not Found", "0 - The server could not be reached": why a page is broken, as documents and files say
/// it, in the user's language. The standard's phrases stay as they are.
std::string reasonInLanguage(std::string_view reason);

/// Fetches from sites. Borrowed by a scan; `fetch` may be called from several threads at once.
class HttpClient {
 public:
  virtual ~HttpClient() = default;

  /// Blocks until an answer, a failure or a stop. A stop ends a running exchange at once. Never throws.
  virtual HttpAnswer fetch(const HttpRequest& request, std::stop_token stop) = 0;

  /// From now on at least so long passes between the starts of two requests, over all threads. Only a client
  /// that paces its requests heeds that.
  virtual void keepInterval(std::chrono::milliseconds) {}
};

}  // namespace platform
