// The text of the XML sitemap: the sitemaps.org protocol, version 0.9.
#pragma once

#include <string>
#include <string_view>

namespace sitemaps {

inline constexpr std::string_view kXmlSitemapFile = "sitemap.xml";

/// Everything before the first entry.
extern const std::string_view kXmlHeader;

/// Ends the document.
inline constexpr std::string_view kXmlClosing = "\n</urlset>";

/// `text` with the five predefined entities of XML; entities that stand in it already are escaped again.
std::string escapeXml(std::string_view text);

/// What every new entry says of how often its page changes, and how much it matters in its site.
inline constexpr std::string_view kNewFrequency = "monthly";
inline constexpr std::string_view kNewPriority = "0.5";

/// One page's entry. Characters that XML cannot hold, and bytes that are no text, are percent-encoded in the
/// address. `lastModified` is "YYYY-MM-DD" or empty, which leaves an empty element. The user
/// changes frequency and priority later.
std::string xmlEntry(std::string_view url, std::string_view lastModified);

}  // namespace sitemaps
