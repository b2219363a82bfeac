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

/// One page's entry. Characters that XML cannot hold, and bytes that are no text, are percent-encoded in the
/// address. `lastModified` is "YYYY-MM-DD" or empty, which leaves an empty element. Frequency and
/// priority of a new entry are always "monthly" and "0.5"; the user changes them later.
std::string xmlEntry(std::string_view url, std::string_view lastModified);

}  // namespace sitemaps
