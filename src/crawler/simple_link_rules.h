// The simple rules for links, plain operations on text: where a link leads, whether it is a page of the site,
// and which spellings mean the same page. Case, percent-encoding and dot segments stay as written.
#pragma once

#include <concepts>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/exclusions.h"
#include "crawler/link_rules.h"
#include "crawler/site_bounds.h"
#include "platform/uri.h"

namespace crawler {

/// File extensions of pages, with their dots; comparisons are exact. Where several could match, the first
/// counts.
using AllowedMedia = std::span<const std::string_view>;

/// The extensions that every scan uses.
AllowedMedia pageExtensions();

/// What links are made absolute against.
struct LinkBase {
  std::string siteBaseURL;  // start address cut back to its folder
  std::string pageBaseURL;  // address of the page in hand, cut back to its folder when it names a file
  std::string pageBaseURLUnchanged;  // address of the page in hand, as queued
};

/// A link and its parts, so that it is split once for all rules. Views into the link's text.
struct SplitLink {
  template <std::convertible_to<std::string_view> Text>
  SplitLink(const Text& link) : text(link), parts(platform::splitUri(text)) {}

  std::string_view text;
  platform::UriParts parts;
};

/// The folder that a site's links are compared with: `startUrl` up to its last "/".
std::string siteBaseOf(std::string_view startUrl);

/// The folder that links on a page start from. A page whose path has no "." is its own folder, so a link on
/// "http://h/list" leads to "http://h/listother.html".
std::string pageBaseOf(std::string_view pageUrl);

/// The absolute address that an href leads to. Empty for a mailto link without an address. Never fails.
std::string rebuildHREF(std::string_view href, const LinkBase& base);

/// Whether a link without a query ends in an extension that is no page's. The extension starts at the first
/// dot of the path, so a dot in a folder's name counts.
bool hasForeignExtension(const SplitLink& link, AllowedMedia media);

/// Whether a link to a folder leads to an index page that is known already.
bool isFolderOfKnownIndex(const SplitLink& link, const PageQueue& known, AllowedMedia media);

/// `link` with "/" at its end when it has no path.
std::string withPath(std::string link);

/// Whether the link lies inside the site: it begins with the site's base, schemes and a leading "www." aside.
bool isInternal(const SplitLink& link, const SplitLink& siteBaseURL);

/// The index of the link, its folder form ("/index.html" without the file) or its www form (with or without
/// "www."), if one of them is known.
std::optional<std::size_t> findPage(std::string_view link, const PageQueue& known, AllowedMedia media);

/// These rules for one site.
class SimpleLinkRules : public LinkRules {
 public:
  /// `filters` and `robotsRules` keep out links in which they stand. A link longer than `maxBytes` is none.
  SimpleLinkRules(std::string_view startUrl, const std::vector<std::string>& filters,
                  const std::vector<std::string>& robotsRules, std::size_t maxBytes);

  std::string startAddress(std::string_view startUrl) const override { return std::string(startUrl); }
  JudgedPage judgePage(std::string_view url, const FetchedPage& page, const PageQueue& known) override;
  void enterPage(std::string_view url, const PageContents& contents) override;
  std::optional<std::string> makeAbsolute(std::string_view href) const override;
  JudgedLink judge(std::string link, const PageQueue& known) const override;
  std::string_view robotsRule(std::size_t which) const override { return m_robotsRules[which]; }
  std::optional<std::size_t> findPage(std::string_view link, const PageQueue& known) const override;

 private:
  AllowedMedia m_allowedMedia = pageExtensions();
  SiteBounds m_bounds;  // to tell why a link is outside; whether it is, isInternal() says
  LinkBase m_base;
  std::string m_pageRoot;        // of the page in hand: what links from the root start with
  std::string m_comparableBase;  // what a link of the site begins with, as isInternal() compares
  std::size_t m_filterCount;
  std::vector<std::string> m_robotsRules;
  Exclusions m_exclusions;  // filters first, then robots rules
  std::size_t m_maxBytes;
};

}  // namespace crawler
