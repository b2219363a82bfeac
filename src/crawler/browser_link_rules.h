// Rules for links as browsers follow them: addresses by the URL Standard, pages by what the server says they
// are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "crawler/exclusions.h"
#include "crawler/link_rules.h"
#include "crawler/robots_groups.h"
#include "crawler/site_bounds.h"
#include "web/url.h"

namespace crawler {

/// These rules for one site:
///  - An address is what a browser makes of it, in its one form and without its fragment.
///  - The site is what SiteBounds says. A page is what the server says is one; an address that ends as files
///    of another type do is not asked for.
///  - A redirect counts as the address that it ends at, and a canonical link likewise; a folder and its index
///    page count once where both give the same document.
class BrowserLinkRules : public LinkRules {
 public:
  /// `robots` is what the server gave for robots.txt, which is read by RFC 9309.
  BrowserLinkRules(const ScanSettings& settings, const platform::HttpAnswer& robots);

  std::string startAddress(std::string_view startUrl) const override;
  std::string refusal() const override;
  std::chrono::milliseconds interval() const override;
  std::vector<std::string> sitemaps() const override { return m_robots.sitemaps; }
  JudgedPage judgePage(std::string_view url, const FetchedPage& page, const PageQueue& known) override;
  void enterPage(std::string_view url, const PageContents& contents) override;
  std::optional<std::string> makeAbsolute(std::string_view href) const override;
  JudgedLink judge(std::string link, const PageQueue& known) const override;
  std::string_view robotsRule(std::size_t which) const override { return m_robots.group.rules[which].text; }
  std::optional<std::size_t> findPage(std::string_view link, const PageQueue& known) const override;

 private:
  std::optional<std::string> elsewhere(const web::Url& page,
                                       const std::optional<std::string>& canonical) const;
  bool isSeenIndex(std::string_view url, std::uint64_t fingerprint);

  bool isAllowed(const platform::UriParts& address, std::size_t& rule) const;

  std::string m_start;
  SiteBounds m_bounds;
  Exclusions m_filters;
  RobotsTxt m_robots;
  bool m_robotsUnreachable = false;  // nobody knows what may be fetched
  std::size_t m_maxBytes;
  std::optional<web::Url> m_base;  // of the page in hand
  const platform::Encoding* m_encoding = nullptr;
  std::unordered_map<std::size_t, std::uint64_t> m_indexes;  // documents of folders, by the folders' hashes
};

}  // namespace crawler
