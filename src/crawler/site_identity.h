// How the program introduces itself to a site.
#pragma once

#include <string>

#include "crawler/scan_settings.h"
#include "platform/curl_http_client.h"
#include "store/site_settings.h"

namespace crawler {

/// The user agent: the one that the site's user has set, else "Veskel/" and the version. Its first word is
/// also the name that groups in robots.txt are for.
std::string userAgentOf(const store::SiteSettings& site);

/// What the client of a scan needs to know.
platform::HttpIdentity identityFor(const ScanSettings& settings);

}  // namespace crawler
