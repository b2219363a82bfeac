#include "crawler/link_rules.h"

#include <algorithm>

#include "crawler/simple_link_rules.h"

namespace crawler {

std::unique_ptr<LinkRules> makeLinkRules(const ScanSettings& settings,
                                         const std::vector<std::string>& robotsRules) {
  return std::make_unique<SimpleLinkRules>(settings.startUrl, settings.filters, robotsRules,
                                           settings.bounds.link);
}

bool looksLikeLoop(std::string_view url) {
  return std::count(url.begin(), url.end(), '?') > 3;
}

}  // namespace crawler
