// What a scan asks about links. A set of rules answers, chosen once at the start of a scan.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/page_queue.h"
#include "crawler/page_source.h"
#include "crawler/scan_settings.h"

namespace crawler {

/// Why a link is not followed, or the page that it leads to is not in the documents. One reason each: the
/// first that applies.
enum class LinkReason {
  none,  // a page of the site: listed and followed
  // Listed only; the first four lie outside of the site:
  otherHost,
  otherPort,
  withoutPort,  // simple rules lose the port of links that begin with a slash
  aboveStart,   // on the site's host, but not in the start's folder
  notFollowed,  // a page of the site; the page that it stands on asks not to follow it
  // Neither listed nor followed:
  empty,               // leads nowhere
  foreignExtension,    // none of those that the rules know as a page's
  folderOfKnownIndex,  // its index page is known already
  filter,              // a filter stands in it
  robots,              // robots.txt forbids it
  tooLong,             // longer than an address may be
  surplusLink,         // its page holds more than one page's entries may take
  surplusPage,         // listed, but there was no room for a further page
  tooDeep,             // listed, but further away from the start page than the site's deepest level
  otherType,           // no page: its ending is well known, or the server says so when it is fetched
  // Of pages that were fetched:
  redirected,          // to another page of the site, which counts in its place
  redirectedOutside,   // of the site
  sameAsIndex,         // the page of a folder under its other name
  noIndex,             // it wishes to be left out
  canonicalElsewhere,  // it names another page of the site as the one that counts
};

inline constexpr std::size_t kLinkReasons = static_cast<std::size_t>(LinkReason::canonicalElsewhere) + 1;

constexpr bool isOutside(LinkReason reason) {
  return LinkReason::otherHost <= reason && reason <= LinkReason::aboveStart;
}

struct JudgedLink {
  std::string address;  // as it is listed, and visited if it is a page of the site
  LinkReason reason = LinkReason::none;
  std::size_t which = 0;  // index of the filter or robots rule, the first in the list that applies

  bool isListed() const { return reason < LinkReason::empty; }
};

/// What becomes of a page that was fetched.
struct JudgedPage {
  enum class Use {
    listed,    // it goes into the documents, and its links are followed
    followed,  // only that
    leftOut,
    broken,
  };

  std::string address;  // as it is listed, and what its links are relative to
  Use use = Use::listed;
  LinkReason reason = LinkReason::none;     // unless it is listed or broken
  std::optional<std::string> inPlace = {};  // a page of the site that counts in its place
};

/// A set of rules for the links of one site. Called on the scan's thread only.
class LinkRules {
 public:
  virtual ~LinkRules() = default;

  /// The address to begin with, for the one that the site's record holds.
  virtual std::string startAddress(std::string_view startUrl) const = 0;

  /// Why the site may not be scanned at all; empty when it may.
  virtual std::string refusal() const { return {}; }

  /// What the site wishes to pass between two requests, as far as the rules heed it.
  virtual std::chrono::milliseconds interval() const { return {}; }

  /// The sitemaps that robots.txt names, as written there.
  virtual std::vector<std::string> sitemaps() const { return {}; }

  /// What becomes of a page, whose address is as queued. `known` are the pages of the site known so far.
  virtual JudgedPage judgePage(std::string_view url, const FetchedPage& page, const PageQueue& known) = 0;

  /// The links that follow are found on this page, whose address is as judged.
  virtual void enterPage(std::string_view url, const PageContents& contents) = 0;

  /// Where an href of the page in hand leads. Nothing for an address that would be longer than the rules
  /// allow; that costs no more than to read the href.
  virtual std::optional<std::string> makeAbsolute(std::string_view href) const = 0;

  /// What becomes of a link that was made absolute.
  virtual JudgedLink judge(std::string link, const PageQueue& known) const = 0;

  /// The robots rule of this index, as the site wrote it.
  virtual std::string_view robotsRule(std::size_t which) const = 0;

  /// The index of the page that a judged link leads to; nothing when it is not known yet, neither in this
  /// spelling nor in another.
  virtual std::optional<std::size_t> findPage(std::string_view link, const PageQueue& known) const = 0;
};

/// Where the rules ask for robots.txt.
std::string robotsAddress(const ScanSettings& settings);

/// The set of rules for a scan. `robots` is what the server gave for the site's robots.txt.
std::unique_ptr<LinkRules> makeLinkRules(const ScanSettings& settings, platform::HttpAnswer&& robots);

/// How the pages of such a site are read.
PageReading readingFor(const ScanSettings& settings);

/// Whether the address hints at links that build upon each other without end: four or more question marks.
bool looksLikeLoop(std::string_view url);

}  // namespace crawler
