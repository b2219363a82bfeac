#include "web/url.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/text.h"
#include "platform/utf8.h"
#include "web/url_parser.h"

namespace web {
namespace {

std::string_view withoutOuterBlanks(std::string_view text) {
  const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= 0x20; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

constexpr bool isTabOrLineEnd(char c) {
  return (c == '\t') | (c == '\n') | (c == '\r');
}

/// Valid UTF-8 without blanks around it, line ends and tabs. A view of `text`, or of `storage` where
/// something within had to change.
std::string_view cleaned(std::string_view text, std::string& storage) {
  text = withoutOuterBlanks(text);
  // Bytes alone, so that the compiler takes many at a time.
  std::uint8_t bits = 0;
  std::uint8_t isBroken = 0;  // over several lines
  for (const char c : text) {
    bits |= static_cast<std::uint8_t>(c);
    isBroken |= static_cast<std::uint8_t>(isTabOrLineEnd(c));
  }
  if (bits > 0x7F && !platform::isUtf8(text)) {
    // A byte-order mark is a character like any other here, but the first one would be dropped.
    storage = platform::decodeUtf8(std::string("\xEF\xBB\xBF").append(text));
    text = storage;
  }
  if (isBroken != 0) {
    std::string joined;
    std::remove_copy_if(text.begin(), text.end(), std::back_inserter(joined), isTabOrLineEnd);
    storage = std::move(joined);
    text = storage;
  }
  return text;
}

}  // namespace

std::string_view Url::username() const {
  return m_hasHost ? part(m_schemeEnd + 3, m_usernameEnd) : std::string_view();
}

std::string_view Url::password() const {
  const bool isThere = m_usernameEnd < m_hostStart && m_href[m_usernameEnd] == ':';
  return isThere ? part(m_usernameEnd + 1, m_hostStart - 1) : std::string_view();
}

std::optional<std::string_view> Url::host() const {
  return m_hasHost ? std::optional(part(m_hostStart, m_hostEnd)) : std::nullopt;
}

std::optional<std::string_view> Url::query() const {
  return m_pathEnd < m_queryEnd ? std::optional(part(m_pathEnd + 1, m_queryEnd)) : std::nullopt;
}

std::optional<std::string_view> Url::fragment() const {
  return m_queryEnd < m_href.size() ? std::optional(part(m_queryEnd + 1, m_href.size())) : std::nullopt;
}

std::optional<Url> parseUrl(std::string_view input, const Url* base,
                            const platform::Encoding* queryEncoding) {
  std::string storage;
  return UrlParser(cleaned(input, storage), base, queryEncoding).parse();
}

}  // namespace web
