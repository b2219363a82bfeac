#include "crawler/site_identity.h"

namespace crawler {

std::string userAgentOf(const store::SiteSettings& site) {
  return site.userAgent.empty() ? "Veskel/" VESKEL_VERSION : site.userAgent;
}

platform::HttpIdentity identityFor(const ScanSettings& settings) {
  return {
      .userAgent = userAgentOf(settings.site), .site = settings.startUrl, .headers = settings.site.headers};
}

}  // namespace crawler
