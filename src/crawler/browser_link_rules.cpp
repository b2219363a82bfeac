#include "crawler/browser_link_rules.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "crawler/known_endings.h"
#include "crawler/site_identity.h"
#include "platform/phrases.h"

namespace crawler {

namespace {

using platform::Phrases;

constexpr std::array<std::string_view, 3> kIndexNames = {"index.html", "index.htm", "index.php"};

bool isScript(const web::Url& url) {
  static constexpr std::array<std::string_view, 4> kNowhere = {"javascript", "data", "about", "blob"};
  return std::find(kNowhere.begin(), kNowhere.end(), url.schemeName()) != kNowhere.end();
}

/// What is left of a web address when it is not told by http or https, with or without "www.".
std::string_view withoutSchemeAndWww(std::string_view url) {
  constexpr std::string_view kWww = "www.";
  url.remove_prefix(std::min(url.find("://") + 3, url.size()));
  if (url.starts_with(kWww)) url.remove_prefix(kWww.size());
  return url;
}

/// The folder whose index page this may be; empty for any other page.
std::string_view folderOf(std::string_view url) {
  if (url.ends_with('/')) return url;
  for (const std::string_view name : kIndexNames) {
    if (!url.ends_with(name)) continue;
    const std::string_view folder = url.substr(0, url.size() - name.size());
    if (folder.ends_with('/')) return folder;
  }
  return {};
}

}  // namespace

BrowserLinkRules::BrowserLinkRules(const ScanSettings& settings, const platform::HttpAnswer& robots)
    : m_start(startAddress(settings.startUrl)),
      m_bounds(m_start),
      m_filters(settings.filters),
      m_maxBytes(settings.bounds.link) {
  const RobotsAnswer answer = robotsAnswer(robots.failure, robots.status);
  if (answer == RobotsAnswer::rules) m_robots = parseRobotsTxt(robots.body, userAgentOf(settings.site));
  if (settings.ignoreRobots) {
    m_robots.group = {};
  } else {
    m_robotsUnreachable = answer == RobotsAnswer::unreachable;
  }
}

std::string BrowserLinkRules::refusal() const {
  std::size_t rule = 0;
  if (m_robotsUnreachable) {
    return Phrases::tr(
        "The server could not tell its robots.txt. With robots.txt ignored it is scanned nevertheless");
  }
  if (isAllowed(platform::splitUri(m_start), rule)) return {};
  return Phrases::tr(
      "robots.txt forbids the start page (%1). With robots.txt ignored it is scanned nevertheless",
      {m_robots.group.rules[rule].text});
}

/// A Crawl-delay is a wish from outside the protocol, and must not make a scan last for weeks.
std::chrono::milliseconds BrowserLinkRules::interval() const {
  constexpr std::chrono::milliseconds kLongest = std::chrono::seconds(10);
  return std::min(m_robots.group.crawlDelay.value_or(std::chrono::milliseconds(0)), kLongest);
}

bool BrowserLinkRules::isAllowed(const platform::UriParts& address, std::size_t& rule) const {
  if (m_robots.group.rules.empty()) return true;
  std::string path(address.path);
  if (address.query) path.append("?").append(*address.query);
  const RobotsVerdict verdict = robotsVerdict(m_robots.group, path);
  rule = verdict.rule.value_or(0);
  return verdict.isAllowed;
}

std::string BrowserLinkRules::startAddress(std::string_view startUrl) const {
  const std::optional<web::Url> start = web::parseUrl(startUrl);
  return std::string(start ? start->withoutFragment() : startUrl);
}

JudgedPage BrowserLinkRules::judgePage(std::string_view url, const FetchedPage& page,
                                       const PageQueue& known) {
  using Use = JudgedPage::Use;
  JudgedPage judged{.address = std::string(url)};
  const auto leftOut = [&](Use use, LinkReason reason) {
    judged.use = use;
    judged.reason = reason;
    return judged;
  };
  const std::optional<web::Url> end = web::parseUrl(page.redirectedTo.empty() ? url : page.redirectedTo);
  if (end && !page.redirectedTo.empty()) {
    judged.address = end->withoutFragment();
    if (m_bounds.judge(platform::splitUri(judged.address)) != LinkReason::none)
      return leftOut(Use::leftOut, LinkReason::redirectedOutside);
    if (withoutSchemeAndWww(judged.address) != withoutSchemeAndWww(url)) {
      if (!findPage(judged.address, known)) judged.inPlace = judged.address;
      return leftOut(Use::leftOut, LinkReason::redirected);
    }
  }
  if (page.status >= 1 && page.status <= 399 && !page.isPage)
    return leftOut(Use::leftOut, LinkReason::otherType);
  if (!page.isGood()) {
    judged.use = Use::broken;
    return judged;
  }
  if (end) {
    judged.inPlace = elsewhere(*end, page.contents.canonical);
    if (judged.inPlace) return leftOut(Use::followed, LinkReason::canonicalElsewhere);
  }
  if (!page.contents.isIndexed) return leftOut(Use::followed, LinkReason::noIndex);
  if (isSeenIndex(judged.address, page.fingerprint)) return leftOut(Use::leftOut, LinkReason::sameAsIndex);
  return judged;
}

/// Another page of the site that a page names as the one that counts.
std::optional<std::string> BrowserLinkRules::elsewhere(const web::Url& page,
                                                       const std::optional<std::string>& canonical) const {
  if (!canonical) return {};
  const std::optional<web::Url> named = web::parseUrl(*canonical, &page);
  if (!named || !named->isWeb()) return {};
  const std::string_view address = named->withoutFragment();
  if (address.size() > m_maxBytes || m_bounds.judge(platform::splitUri(address)) != LinkReason::none)
    return {};
  if (withoutSchemeAndWww(address) == withoutSchemeAndWww(page.withoutFragment())) return {};
  return std::string(address);
}

/// Whether the folder's page was there before under its other name.
bool BrowserLinkRules::isSeenIndex(std::string_view url, std::uint64_t fingerprint) {
  const std::string_view folder = folderOf(url);
  if (folder.empty()) return false;
  const auto [place, isNew] =
      m_indexes.try_emplace(std::hash<std::string_view>{}(withoutSchemeAndWww(folder)), fingerprint);
  return !isNew && place->second == fingerprint;
}

void BrowserLinkRules::enterPage(std::string_view url, const PageContents& contents) {
  m_base = web::parseUrl(url);
  m_encoding = contents.encoding;
  if (!contents.base || !m_base) return;
  std::optional<web::Url> base = web::parseUrl(*contents.base, &*m_base, m_encoding);
  if (base && base->isWeb()) m_base = std::move(base);
}

std::optional<std::string> BrowserLinkRules::makeAbsolute(std::string_view href) const {
  if (href.size() > m_maxBytes) return {};
  const std::optional<web::Url> link = web::parseUrl(href, m_base ? &*m_base : nullptr, m_encoding);
  if (!link || isScript(*link)) return std::string();
  const std::string_view address = link->isWeb() ? link->withoutFragment() : std::string_view(link->href());
  if (address.size() > m_maxBytes) return {};
  return std::string(address);
}

JudgedLink BrowserLinkRules::judge(std::string link, const PageQueue&) const {
  const auto judged = [&](LinkReason reason, std::size_t which = 0) {
    return JudgedLink{std::move(link), reason, which};
  };
  if (link.empty()) return judged(LinkReason::empty);
  if (const auto which = m_filters.find(link)) return judged(LinkReason::filter, *which);
  const platform::UriParts parts = platform::splitUri(link);
  const LinkReason outside = m_bounds.judge(parts);
  if (outside != LinkReason::none) return judged(outside);
  if (!parts.query && hasKnownOtherEnding(parts.path)) return judged(LinkReason::otherType);
  if (std::size_t rule = 0; !isAllowed(parts, rule)) return judged(LinkReason::robots, rule);
  return judged(LinkReason::none);
}

/// One with and without "www.", by http and https.
std::optional<std::size_t> BrowserLinkRules::findPage(std::string_view link, const PageQueue& known) const {
  const std::string_view rest = withoutSchemeAndWww(link);
  for (const std::string_view scheme : {"http://", "https://"}) {
    if (const auto page = known.find(scheme, rest)) return page;
    if (const auto page = known.find(scheme, "www.", rest)) return page;
  }
  return {};
}

}  // namespace crawler
