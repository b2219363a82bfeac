// An XML sitemap made fit for the web: without the elements that a scan or the user left empty.
#pragma once

#include <string>

namespace sitemaps {

/// `sitemap` without its empty lastmod, changefreq and priority elements, each with the line it stands on.
/// Elements that are not laid out as our sitemaps are, one a line behind two tabs, stay.
std::string withoutEmptyElements(std::string sitemap);

}  // namespace sitemaps
