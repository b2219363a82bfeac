#include "crawler/link_rules.h"

#include <algorithm>

#include "crawler/browser_link_rules.h"
#include "crawler/robots.h"
#include "crawler/simple_link_rules.h"
#include "crawler/site_bounds.h"
#include "platform/text.h"

namespace crawler {

namespace {

/// The text of an error page is no rules file.
std::vector<std::string> simpleRules(const ScanSettings& settings, platform::HttpAnswer&& robots) {
  if (settings.ignoreRobots || robots.status > 399) return {};
  return robotsRules(platform::decodeUtf8(std::move(robots.body)));
}

}  // namespace

std::string robotsAddress(const ScanSettings& settings) {
  if (settings.site.links == store::LinkStyle::browser) {
    const std::optional<web::Url> start = web::parseUrl(settings.startUrl);
    const std::optional<web::Url> robots = start ? web::parseUrl("/robots.txt", &*start) : std::nullopt;
    if (robots) return robots->href();
  }
  return robotsAddress(siteBaseOf(settings.startUrl));
}

std::unique_ptr<LinkRules> makeLinkRules(const ScanSettings& settings, platform::HttpAnswer&& robots) {
  if (settings.site.links == store::LinkStyle::browser)
    return std::make_unique<BrowserLinkRules>(settings, robots);
  return std::make_unique<SimpleLinkRules>(settings.startUrl, settings.filters,
                                           simpleRules(settings, std::move(robots)), settings.bounds.link);
}

PageReading readingFor(const ScanSettings& settings) {
  if (settings.site.links != store::LinkStyle::browser) return kSimpleReading;
  PageReading reading = kBrowserReading;
  const std::optional<web::Url> start = web::parseUrl(settings.startUrl);
  reading.followsTo = [bounds = SiteBounds(start ? start->href() : settings.startUrl)](std::string_view to) {
    const std::optional<web::Url> address = web::parseUrl(to);
    // What is no address is the client's to report.
    return !address || bounds.judge(platform::splitUri(address->href())) == LinkReason::none;
  };
  return reading;
}

bool looksLikeLoop(std::string_view url) {
  return std::count(url.begin(), url.end(), '?') > 3;
}

}  // namespace crawler
