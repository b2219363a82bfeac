#include "crawler/site_identity.h"

namespace crawler {

std::string userAgentOf(const store::SiteSettings& site) {
  return site.userAgent.empty() ? "Veskel/" VESKEL_VERSION : site.userAgent;
}

platform::HttpIdentity identityFor(const ScanSettings& settings) {
  platform::HttpIdentity identity = {
      .userAgent = userAgentOf(settings.site), .site = settings.startUrl, .headers = settings.site.headers};
  if (!settings.password) return identity;
  identity.user = settings.site.httpUser;
  identity.password = [password = settings.password](const std::stop_token& stop) {
    return password->get(stop);
  };
  return identity;
}

}  // namespace crawler
