#include "crawler/site_bounds.h"

#include "platform/ascii.h"

namespace crawler {

namespace {

std::string comparableHost(const platform::UriParts& parts) {
  constexpr std::string_view kWww = "www.";
  std::string host = platform::lowerAscii(parts.host());
  if (host.starts_with(kWww)) host.erase(0, kWww.size());
  return host;
}

std::string_view comparablePort(const platform::UriParts& parts) {
  const std::string_view port = parts.port();
  const bool isSchemesOwn =
      (port == "80" && parts.scheme == "http") || (port == "443" && parts.scheme == "https");
  return isSchemesOwn ? std::string_view() : port;
}

}  // namespace

SiteBounds::SiteBounds(std::string_view startUrl) {
  const platform::UriParts start = platform::splitUri(startUrl);
  m_host = comparableHost(start);
  m_port = comparablePort(start);
  m_folder = start.path.substr(0, start.path.rfind('/') + 1);
}

LinkReason SiteBounds::judge(const platform::UriParts& link) const {
  if (!link.authority || comparableHost(link) != m_host) return LinkReason::otherHost;
  if (comparablePort(link) != m_port) return LinkReason::otherPort;
  return link.path.starts_with(m_folder) ? LinkReason::none : LinkReason::aboveStart;
}

}  // namespace crawler
