// Where the crawl gets its pages from.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>

#include "crawler/page_contents.h"
#include "platform/http_client.h"

namespace crawler {

/// One answer to one visit of an address.
struct FetchedPage {
  platform::FetchFailure failure = platform::FetchFailure::none;
  int status = 0;                     // HTTP status, 0 when no answer came
  std::string redirectedTo = {};      // as HttpAnswer::redirectedTo
  std::string mime = {};              // lower case, without parameters; empty when not told
  bool isPage = false;                // by its type, and no redirect that was not followed
  std::string lastModified = {};      // header value as sent, empty when there was none
  bool hasContent = false;            // a body came, if need be when asked for once more
  std::uint64_t fingerprint = 0;      // the same for the same body
  std::size_t bytes = 0;              // of the body, decoded
  std::chrono::milliseconds time{0};  // to the answer's first byte
  PageContents contents = {};

  /// Whether the page can be used in a sitemap.
  bool isGood() const { return status <= 399 && isPage; }

  /// Status code, " - " and reason phrase; without an answer "0 - " and the cause.
  std::string reason() const;
};

/// How answers are read, which depends on the rules for the site. Any thread.
struct PageReading {
  bool (*isPage)(std::string_view mime);
  PageContents (*read)(platform::HttpAnswer&& answer, const std::stop_token& stop);
  bool takesOtherBodies;                                         // whether what is no page is fetched as well
  std::function<bool(std::string_view address)> followsTo = {};  // as HttpRequest::followsTo
};

/// Pages are text/html, and read by the simple rules.
extern const PageReading kSimpleReading;
/// Pages are XHTML, too, and read as browsers do (crawler/browser_page.h).
extern const PageReading kBrowserReading;

/// Gives the crawl its pages, in whatever order and number of connections it fetches them. What comes back
/// depends on the address alone. Borrowed by one scan and called on that scan's thread only.
class PageSource {
 public:
  virtual ~PageSource() = default;

  /// Announces an address that page() will be asked for, after all that were announced before. The text has
  /// to stay where it is as long as the scan runs.
  virtual void expect(std::string_view url) = 0;

  /// Visits an address: blocks until an answer, a failure or a stop. Never null.
  virtual std::shared_ptr<const FetchedPage> page(std::string_view url, std::stop_token stop) = 0;

  /// The Last-Modified header of the page visited last. The server is asked for it only where the page came
  /// without one, since a HEAD is answered with the header fields of a GET (RFC 9110, section 9.3.2); empty
  /// when it does not tell. An answer may take 10 seconds.
  virtual std::string lastModified(std::stop_token stop) = 0;
};

/// The most that a page's body may hold, decoded.
inline constexpr std::size_t kMaxPageBytes = 64u << 20;

/// Fetches a page and reads it: the visit as such, for the implementations. Safe on any thread.
FetchedPage visitPage(platform::HttpClient& client, const PageReading& reading, std::string_view url,
                      std::stop_token stop, std::size_t maxBytes = kMaxPageBytes);

/// Asks a server when a page was last modified.
std::string askLastModified(platform::HttpClient& client, std::string_view url, std::stop_token stop);

}  // namespace crawler
