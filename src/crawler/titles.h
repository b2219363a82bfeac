// What pages and links are called in the sitemaps.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "web/page_reader.h"

namespace crawler {

inline constexpr std::string_view kNoPageTitle = "Could not find page title";

/// The target of an anchor that has one, as written.
std::string_view findHREFInNode(const web::AnchorElement& anchor);

/// A readable name for the link, or the fixed text that says why there is none. Never empty, not escaped; a
/// view into the anchor, if not of a fixed text.
std::string_view findLinkTitle(const web::AnchorElement& anchor);

/// The page's title from its title element's text; kNoPageTitle when that is missing or empty.
std::string findPageHTMLTitleElement(const std::optional<std::string>& titleText);

/// Whether a page of this title is a server's listing of a folder, which belongs in no sitemap.
bool isDirectoryListing(std::string_view title);

}  // namespace crawler
