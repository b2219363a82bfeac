// What pages and links are called in the sitemaps.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace crawler {

inline constexpr std::string_view kNoPageTitle = "Could not find page title";

/// What is an anchor's first child node?
enum class FirstChild { none, image, other };

/// An anchor element as its page holds it: entities decoded, nothing trimmed.
struct AnchorElement {
  std::optional<std::string> href = std::nullopt;  // nothing without the attribute
  std::string text = {};                           // of the anchor and all elements in it
  std::string name = {};                           // the attribute, empty without it
  FirstChild firstChild = FirstChild::none;
  std::string imageMarkup = {};  // the first child's start tag as a serialiser writes it, if it is an image
};

/// The anchor's target as written; nothing for an anchor without one.
std::optional<std::string> findHREFInNode(const AnchorElement& anchor);

/// A readable name for the link, or the fixed text that says why there is none. Never empty, not escaped.
std::string findLinkTitle(const AnchorElement& anchor);

/// The page's title from its first title element's text; kNoPageTitle when that is missing or empty.
std::string findPageHTMLTitleElement(const std::optional<std::string>& titleText);

/// Whether a page of this title is a server's listing of a folder, which belongs in no sitemap.
bool isDirectoryListing(std::string_view title);

}  // namespace crawler
