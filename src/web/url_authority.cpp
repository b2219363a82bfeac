// What stands behind an address's "//": user, host and port.
#include <algorithm>
#include <charconv>
#include <string>

#include "platform/ascii.h"
#include "web/percent_encoding.h"
#include "web/url_host.h"
#include "web/url_parser.h"

namespace web {
namespace {

constexpr ByteSet kAuthorityEnds("/?#");
constexpr ByteSet kSpecialAuthorityEnds("/\\?#");

/// Where the port's ":" stands in an authority, else its end. An IPv6 address has more of them, in brackets.
std::size_t hostLength(std::string_view authority) {
  bool isInBrackets = false;
  for (std::size_t i = 0; i < authority.size(); ++i) {
    if (authority[i] == ':' && !isInBrackets) return i;
    if (authority[i] == '[') isInBrackets = true;
    if (authority[i] == ']') isInBrackets = false;
  }
  return authority.size();
}

}  // namespace

bool UrlParser::readAuthority() {
  while (isSpecial() && startsWithSlash()) m_rest.remove_prefix(1);
  startHost();
  std::string_view authority = takeUpTo(isSpecial() ? kSpecialAuthorityEnds : kAuthorityEnds);
  if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
    appendUserInfo(authority.substr(0, at));
    authority.remove_prefix(at + 1);
    if (authority.empty()) return false;
  }
  const std::string_view host = authority.substr(0, hostLength(authority));
  const std::string_view port = authority.substr(host.size());
  if (host.empty() && (isSpecial() || !port.empty())) return false;
  if (!appendHost(m_url.m_href, host, isSpecial() ? HostForm::domain : HostForm::opaque)) return false;
  m_url.m_hostEnd = m_url.m_href.size();
  if (!port.empty() && !appendPort(port.substr(1))) return false;
  m_url.m_pathStart = m_url.m_href.size();
  return readPathBehindHost();
}

void UrlParser::appendUserInfo(std::string_view userInfo) {
  const std::size_t colon = std::min(userInfo.find(':'), userInfo.size());
  const std::string_view password = userInfo.substr(std::min(colon + 1, userInfo.size()));
  appendPercentEncoded(m_url.m_href, userInfo.substr(0, colon), EncodeSet::userInfo);
  m_url.m_usernameEnd = m_url.m_href.size();
  if (!password.empty()) {
    m_url.m_href += ':';
    appendPercentEncoded(m_url.m_href, password, EncodeSet::userInfo);
  }
  if (m_url.m_href.size() > m_url.m_hostStart) m_url.m_href += '@';
  m_url.m_hostStart = m_url.m_href.size();
}

bool UrlParser::appendPort(std::string_view port) {
  if (!std::all_of(port.begin(), port.end(), platform::isAsciiDigit)) return false;
  if (port.empty()) return true;
  std::uint16_t number = 0;
  if (std::from_chars(port.data(), port.data() + port.size(), number).ec != std::errc()) return false;
  if (number == defaultPort(m_url.m_scheme) && isSpecial()) return true;
  m_url.m_port = number;
  m_url.m_href.append(":").append(std::to_string(number));
  return true;
}

void UrlParser::startHost() {
  m_url.m_href += "//";
  m_url.m_hasHost = true;
  m_url.m_usernameEnd = m_url.m_hostStart = m_url.m_href.size();
}

/// There is no port, or no host at all.
void UrlParser::endHost() {
  m_url.m_hostEnd = m_url.m_pathStart = m_url.m_href.size();
}

}  // namespace web
