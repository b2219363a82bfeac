#include "crawler/link_rules.h"

#include <algorithm>

#include "crawler/browser_link_rules.h"
#include "crawler/simple_link_rules.h"

namespace crawler {

std::unique_ptr<LinkRules> makeLinkRules(const ScanSettings& settings,
                                         const std::vector<std::string>& robotsRules) {
  if (settings.site.links == store::LinkStyle::browser) {
    return std::make_unique<BrowserLinkRules>(settings.startUrl, settings.filters, settings.bounds.link);
  }
  return std::make_unique<SimpleLinkRules>(settings.startUrl, settings.filters, robotsRules,
                                           settings.bounds.link);
}

const PageReading& readingFor(const store::SiteSettings& site) {
  return site.links == store::LinkStyle::browser ? kBrowserReading : kSimpleReading;
}

bool looksLikeLoop(std::string_view url) {
  return std::count(url.begin(), url.end(), '?') > 3;
}

}  // namespace crawler
