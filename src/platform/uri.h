// Uniform resource identifiers as RFC 3986 defines them: splitting, checking, and making one fit for a
// request.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The parts of a URI reference. Views into the text that was split. An absent part and an empty one differ:
/// "http://h/?" has an empty query, "http://h/" has none. `path` is always there, but may be empty.
struct UriParts {
  std::optional<std::string_view> scheme;     // without ":"
  std::optional<std::string_view> authority;  // without "//"; user, host and port as written
  std::string_view path;
  std::optional<std::string_view> query;     // without "?"
  std::optional<std::string_view> fragment;  // without "#"

  /// The authority's host, without user and port; brackets of an IPv6 address are kept. Empty when there is
  /// none.
  std::string_view host() const;

  /// The authority's port as written, without ":"; empty when there is none.
  std::string_view port() const;
};

/// Splits as RFC 3986 appendix B does: every text has a split, and nothing is decoded or changed in case.
UriParts splitUri(std::string_view text);

/// Scheme, host and port of an http or https address, in lower case and without the scheme's own port:
/// "http://h.test:8080". Empty for anything else.
std::string originOf(std::string_view url);

/// Whether `text` is a URI reference by the grammar of RFC 3986: no blank, control, non-ASCII byte, stray "%"
/// or any of "<>\^{|}` and the double quote. A first path segment with ":", a malformed scheme or port, and
/// brackets around anything but an IP address are rejected too. The empty text is a URI reference.
bool isUriReference(std::string_view text);

/// `url` as it may be sent: the fragment is cut off, and blanks, controls, non-ASCII bytes and the characters
/// that RFC 3986 excludes are percent-encoded. An existing "%" stays as it is when two hex digits follow,
/// else it becomes
/// "%25". Nothing else changes, dot segments included. Brackets stay only in the authority.
std::string requestAddress(std::string_view url);

}  // namespace platform
