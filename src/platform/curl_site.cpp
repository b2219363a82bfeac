#include "platform/curl_site.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/ascii.h"
#include "platform/header_line.h"
#include "platform/idna.h"
#include "platform/uri.h"

namespace platform {

CurlSite::CurlSite(HttpIdentity identity) : m_identity(std::move(identity)) {
  constexpr std::string_view kHttp = "http://";
  const std::string origin = originOf(requestAddress(withAsciiHost(m_identity.site)));
  m_origins[0] = origin;
  const bool hasPort = !splitUri(origin).port().empty();
  if (origin.starts_with(kHttp) && !hasPort) m_origins[1] = "https://" + origin.substr(kHttp.size());
  for (const std::string& line : m_identity.headers) addHeader(line);
}

bool CurlSite::isAt(std::string_view address) const {
  const std::string origin = originOf(address);
  return !origin.empty() && std::find(m_origins.begin(), m_origins.end(), origin) != m_origins.end();
}

bool CurlSite::authenticate(CURL* easy, unsigned long ways, const std::stop_token& stop) const {
  const std::optional<std::string> password =
      m_identity.user.empty() || !m_identity.password ? std::nullopt : m_identity.password(stop);
  if (!password) return false;
  curl_easy_setopt(easy, CURLOPT_USERNAME, m_identity.user.c_str());
  curl_easy_setopt(easy, CURLOPT_PASSWORD, password->c_str());
  curl_easy_setopt(easy, CURLOPT_HTTPAUTH, ways);
  return true;
}

bool CurlSite::learnWay(CURL* easy, unsigned long ways) {
  long offered = 0;
  curl_easy_getinfo(easy, CURLINFO_HTTPAUTH_AVAIL, &offered);
  const unsigned long known = static_cast<unsigned long>(offered) & (CURLAUTH_BASIC | CURLAUTH_DIGEST);
  if (known == 0) return false;
  const unsigned long wanted = (known & CURLAUTH_DIGEST) != 0 ? CURLAUTH_DIGEST : CURLAUTH_BASIC;
  m_ways = wanted;
  return (wanted & ways) == 0;
}

void CurlSite::addHeader(const std::string& line) {
  const HeaderLine header = splitHeaderLine(line);
  if (lowerAscii(header.name) == "cookie") {
    m_cookies.append(m_cookies.empty() ? "" : "; ").append(header.value);
    return;
  }
  // The library takes a colon without a value for a header to be left out.
  const std::string sent = header.value.empty() ? header.name + ";" : header.text();
  curl_slist* longer = curl_slist_append(m_headers.get(), sent.c_str());
  if (longer == nullptr) throw std::bad_alloc();
  if (!m_headers) m_headers.reset(longer);  // else it is the same list
}

}  // namespace platform
