// An XML sitemap made fit for the web.
#pragma once

#include <string>
#include <string_view>

namespace sitemaps {

/// `sitemap` without its empty lastmod, changefreq and priority elements, each with the line it stands on.
/// Elements that are not laid out as our sitemaps are, one a line behind two tabs, stay.
std::string withoutEmptyElements(std::string sitemap);

/// `sitemap` (UTF-8) as the export writes it: without empty elements, and well-formed, whatever was typed
/// into it. A bare "&" is escaped; an address that is not fit for the web is percent-encoded where it is not.
/// All else keeps its bytes, but for a text that is no XML even then: that is written anew from its entries.
std::string publishableXml(std::string_view sitemap);

}  // namespace sitemaps
