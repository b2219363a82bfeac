// Addresses as browsers read and write them (WHATWG URL).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "web/url_scheme.h"

namespace platform {
struct Encoding;
}

namespace web {

/// An address in its one form: two texts that mean the same to a browser have the same href(). Made by
/// parseUrl(). Views are into the address.
class Url {
 public:
  /// The whole address, in ASCII. Parsed again it gives itself.
  const std::string& href() const { return m_href; }
  std::string_view withoutFragment() const { return part(0, m_queryEnd); }

  Scheme scheme() const { return m_scheme; }
  bool isWeb() const { return m_scheme == Scheme::http || m_scheme == Scheme::https; }

  std::string_view schemeName() const { return part(0, m_schemeEnd); }  // without ":"; in lower case
  std::string_view username() const;  // percent-encoded, as the next one; empty when there is none
  std::string_view password() const;
  std::optional<std::string_view> host() const;  // never empty for a web address; IPv6 ones in brackets
  std::optional<std::uint16_t> port() const { return m_port; }  // nothing for the scheme's own
  std::string_view path() const { return part(m_pathStart, m_pathEnd); }
  std::optional<std::string_view> query() const;     // without "?"; "h?" has an empty one, "h" none
  std::optional<std::string_view> fragment() const;  // without "#"; likewise

  /// Whether the path is a text without folders, as in "mailto:a@b.test". Nothing is relative to it.
  bool hasOpaquePath() const { return m_hasOpaquePath; }

 private:
  friend class UrlParser;

  std::string_view part(std::size_t start, std::size_t end) const {
    return std::string_view(m_href).substr(start, end - start);
  }

  std::string m_href;
  std::size_t m_schemeEnd = 0;    // where ":" stands
  std::size_t m_usernameEnd = 0;  // where ":" or "@" stands, else the host's start
  std::size_t m_hostStart = 0;
  std::size_t m_hostEnd = 0;  // where ":" stands when there is a port
  std::size_t m_pathStart = 0;
  std::size_t m_pathEnd = 0;   // where "?" stands when there is a query
  std::size_t m_queryEnd = 0;  // where "#" stands when there is a fragment
  std::optional<std::uint16_t> m_port;
  Scheme m_scheme = Scheme::other;
  bool m_hasHost = false;
  bool m_hasOpaquePath = false;
};

/// The address that `input` means in a document at `base`, or alone. Nothing when it means none: there is no
/// base for a relative one, the host or port is none. `input` is UTF-8, as an attribute holds it; blanks and
/// line ends are dealt with here, bad bytes are read as U+FFFD.
/// The query of a link is written in the encoding of its page, null for UTF-8; where that lacks a character,
/// its number is written ("%26%238224%3B").
std::optional<Url> parseUrl(std::string_view input, const Url* base = nullptr,
                            const platform::Encoding* queryEncoding = nullptr);

}  // namespace web
