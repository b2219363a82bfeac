// What the crawl needs of a page that is read as browsers and search engines read it.
#pragma once

#include <string>
#include <string_view>

#include "crawler/page_contents.h"

namespace crawler {

/// Reads a page's markup (UTF-8), however broken:
///  - Links are a, area, frame and iframe; the last two are followed, not listed. A link is not followed
///  where
///    its rel, or the page's meta "robots", says "nofollow".
///  - "noindex" in that meta keeps the page out of the documents; "none" says both.
///  - Names have their white space folded. A link without one is called by the first image in it, its title,
///  its
///    aria-label, or else the last part of its address.
PageContents readBrowserPage(std::string_view markup);

/// What an X-Robots-Tag header, or a meta element of that kind, asks for. Words for one crawler alone
/// ("otherbot: noindex") ask nothing of us.
struct RobotsWishes {
  bool noIndex = false;
  bool noFollow = false;
};
RobotsWishes robotsWishes(std::string_view text);

/// The page's own wishes are added to.
void applyWishes(const RobotsWishes& wishes, PageContents& contents);

/// `text` without blanks at its ends, and each row of blanks and line ends in it as one blank.
std::string foldedName(std::string_view text);

}  // namespace crawler
