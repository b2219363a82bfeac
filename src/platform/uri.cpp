#include "platform/uri.h"

#include <algorithm>

#include <arpa/inet.h>

#include "platform/ascii.h"

namespace platform {
namespace {

// The character classes of <cctype> depend on the locale and are undefined for bytes above 127.
constexpr bool isAlpha(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool isHexDigit(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
constexpr bool isOneOf(char c, std::string_view set) {
  return set.find(c) != std::string_view::npos;
}

constexpr bool isUnreserved(char c) {
  return isAlpha(c) || isDigit(c) || isOneOf(c, "-._~");
}
constexpr bool isSubDelimiter(char c) {
  return isOneOf(c, "!$&'()*+,;=");
}

constexpr bool startsWithTriplet(std::string_view text) {
  return text.size() >= 3 && text[0] == '%' && isHexDigit(text[1]) && isHexDigit(text[2]);
}

/// Whether `text` holds nothing but unreserved characters, sub-delimiters, percent-encoded bytes and those of
/// `others`.
bool consistsOf(std::string_view text, std::string_view others) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isUnreserved(text[i]) || isSubDelimiter(text[i]) || isOneOf(text[i], others)) continue;
    if (!startsWithTriplet(text.substr(i))) return false;
    i += 2;
  }
  return true;
}

bool isScheme(std::string_view text) {
  return !text.empty() && isAlpha(text[0]) && std::all_of(text.begin(), text.end(), [](char c) {
    return isAlpha(c) || isDigit(c) || isOneOf(c, "+-.");
  });
}

struct AuthorityParts {
  std::optional<std::string_view> user;
  std::string_view host;
  std::optional<std::string_view> port;
};

AuthorityParts splitAuthority(std::string_view authority) {
  AuthorityParts parts;
  // The last "@", as browsers have it: what follows is where a request would go.
  if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
    parts.user = authority.substr(0, at);
    authority.remove_prefix(at + 1);
  }
  const std::size_t literalEnd = authority.starts_with('[') ? authority.find(']') : std::string_view::npos;
  const std::size_t colon = authority.find(':', literalEnd == std::string_view::npos ? 0 : literalEnd);
  if (colon != std::string_view::npos) parts.port = authority.substr(colon + 1);
  parts.host = authority.substr(0, colon);
  return parts;
}

bool isIpLiteral(std::string_view text) {
  if (text.size() < 2 || text.front() != '[' || text.back() != ']') return false;
  text = text.substr(1, text.size() - 2);
  if (text.starts_with('v') || text.starts_with('V')) {  // an address of a coming version
    const std::size_t dot = text.find('.');
    if (dot == std::string_view::npos || dot == 1 || dot + 1 == text.size()) return false;
    const std::string_view version = text.substr(1, dot - 1);
    return std::all_of(version.begin(), version.end(), isHexDigit) &&
           text.find('%') == std::string_view::npos && consistsOf(text.substr(dot + 1), ":");
  }
  in6_addr address{};
  return text.find('\0') == std::string_view::npos &&
         inet_pton(AF_INET6, std::string(text).c_str(), &address) == 1;
}

bool isAuthority(std::string_view text) {
  const AuthorityParts parts = splitAuthority(text);
  if (parts.user && !consistsOf(*parts.user, ":")) return false;
  if (parts.port && !std::all_of(parts.port->begin(), parts.port->end(), isDigit)) return false;
  return isIpLiteral(parts.host) || consistsOf(parts.host, "");
}

void appendTriplet(std::string& out, char c) {
  constexpr std::string_view kHexDigits = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  out += {'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
}

}  // namespace

std::string_view UriParts::host() const {
  return authority ? splitAuthority(*authority).host : std::string_view();
}

std::string_view UriParts::port() const {
  return authority ? splitAuthority(*authority).port.value_or(std::string_view()) : std::string_view();
}

UriParts splitUri(std::string_view text) {
  UriParts parts;
  // A scheme ends before anything else that may hold a ":".
  const auto endsScheme = [](char c) { return c == ':' || c == '/' || c == '?' || c == '#'; };
  const auto schemeEnd =
      static_cast<std::size_t>(std::find_if(text.begin(), text.end(), endsScheme) - text.begin());
  if (schemeEnd < text.size() && schemeEnd > 0 && text[schemeEnd] == ':') {
    parts.scheme = text.substr(0, schemeEnd);
    text.remove_prefix(schemeEnd + 1);
  }
  if (const std::size_t hash = text.find('#'); hash != std::string_view::npos) {
    parts.fragment = text.substr(hash + 1);
    text = text.substr(0, hash);
  }
  if (const std::size_t mark = text.find('?'); mark != std::string_view::npos) {
    parts.query = text.substr(mark + 1);
    text = text.substr(0, mark);
  }
  if (text.starts_with("//")) {
    parts.authority = text.substr(2, text.find('/', 2) - 2);
    text.remove_prefix(2 + parts.authority->size());
  }
  parts.path = text;
  return parts;
}

std::string originOf(std::string_view url) {
  const UriParts parts = splitUri(url);
  const std::string scheme = lowerAscii(parts.scheme.value_or(""));
  if ((scheme != "http" && scheme != "https") || parts.host().empty()) return {};
  const std::string_view port = parts.port();
  const bool isOwnPort = port.empty() || port == (scheme == "http" ? "80" : "443");
  return scheme + "://" + lowerAscii(parts.host()) + (isOwnPort ? "" : ":" + std::string(port));
}

bool isUriReference(std::string_view text) {
  const UriParts parts = splitUri(text);
  if (parts.scheme && !isScheme(*parts.scheme)) return false;
  if (parts.authority && !isAuthority(*parts.authority)) return false;
  // Only a leading ":" gets here: with anything before it that would be a scheme.
  if (!parts.scheme && !parts.authority && parts.path.starts_with(':')) return false;
  return consistsOf(parts.path, ":@/") && consistsOf(parts.query.value_or(""), ":@/?") &&
         consistsOf(parts.fragment.value_or(""), ":@/?");
}

std::string requestAddress(std::string_view url) {
  url = url.substr(0, url.find('#'));
  const std::optional<std::string_view> authority = splitUri(url).authority;
  const char* const authorityStart = authority ? authority->data() : url.data();
  const char* const authorityEnd = authority ? authorityStart + authority->size() : authorityStart;
  std::string address;
  address.reserve(url.size());
  for (std::size_t i = 0; i < url.size(); ++i) {
    const char c = url[i];
    const bool inAuthority = url.data() + i >= authorityStart && url.data() + i < authorityEnd;
    const bool fits = isUnreserved(c) || isSubDelimiter(c) || isOneOf(c, ":/?@") ||
                      (isOneOf(c, "[]") && inAuthority) || startsWithTriplet(url.substr(i));
    if (fits) {
      address += c;
    } else {
      appendTriplet(address, c);
    }
  }
  return address;
}

}  // namespace platform
