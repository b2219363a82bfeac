#include "sitemaps/xml_format.h"

namespace sitemaps {

const std::string_view kXmlHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<urlset \n"
    "\txmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\" \n"
    "\txmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" \n"
    "\txsi:schemaLocation=\"http://www.sitemaps.org/schemas/sitemap/0.9 \n"
    "\thttp://www.sitemaps.org/schemas/sitemap/0.9/sitemap.xsd\">\n"
    "<!-- Created with Veskel -->";

std::string escapeXml(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size() + 16);
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '\'':
        escaped += "&apos;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string xmlEntry(std::string_view url, std::string_view lastModified) {
  std::string entry = "\n\t<url>\n\t\t<loc>";
  entry += escapeXml(url);
  entry += "</loc>\n\t\t<lastmod>";
  entry += lastModified;
  entry += "</lastmod>\n\t\t<changefreq>monthly</changefreq>\n\t\t<priority>0.5</priority>\n\t</url>";
  return entry;
}

}  // namespace sitemaps
