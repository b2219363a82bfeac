// What a scan asks about links. A set of rules answers, chosen once at the start of a scan.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "crawler/page_queue.h"
#include "crawler/scan_settings.h"

namespace crawler {

/// Why a link is not followed. One reason a link: the first that applies.
enum class LinkReason {
  none,                // it is a page of the site: listed and followed
  outside,             // of the site: listed only
  empty,               // leads nowhere; this and all below are neither listed nor followed
  foreignExtension,    // no page's
  folderOfKnownIndex,  // its index page is known already
  filter,              // a filter stands in it
  robots,              // a rule of robots.txt stands in it
};

struct JudgedLink {
  std::string address;  // as it is listed, and visited if it is a page of the site
  LinkReason reason = LinkReason::none;
  std::size_t which = 0;  // index of the filter or robots rule, the first in the list that applies

  bool isListed() const { return reason == LinkReason::none || reason == LinkReason::outside; }
};

/// A set of rules for the links of one site. Called on the scan's thread only.
class LinkRules {
 public:
  virtual ~LinkRules() = default;

  /// The links that follow are found on this page, whose address is as queued.
  virtual void enterPage(std::string_view url) = 0;

  /// Where an href of the page in hand leads. Nothing for an address that would be longer than the rules
  /// allow; that costs no more than to read the href.
  virtual std::optional<std::string> makeAbsolute(std::string_view href) const = 0;

  /// What becomes of a link that was made absolute. `known` are the pages of the site known so far.
  virtual JudgedLink judge(std::string link, const PageQueue& known) const = 0;

  /// The address under which the page that a judged link leads to has to be queued; nothing when the page is
  /// known already, in this spelling or another.
  virtual std::optional<std::string_view> keyOfNewPage(std::string_view link,
                                                       const PageQueue& known) const = 0;
};

/// The set of rules for a scan. `robotsRules` are those of the site's robots.txt that count.
std::unique_ptr<LinkRules> makeLinkRules(const ScanSettings& settings,
                                         const std::vector<std::string>& robotsRules);

/// Whether the address hints at links that build upon each other without end: four or more question marks.
bool looksLikeLoop(std::string_view url);

}  // namespace crawler
