#include "sitemaps/xml_format.h"

#include "platform/utf8.h"

namespace sitemaps {

const std::string_view kXmlHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<urlset \n"
    "\txmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\" \n"
    "\txmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" \n"
    "\txsi:schemaLocation=\"http://www.sitemaps.org/schemas/sitemap/0.9 \n"
    "\thttp://www.sitemaps.org/schemas/sitemap/0.9/sitemap.xsd\">\n"
    "<!-- Created with Veskel -->";

namespace {

void appendPercentEncoded(std::string& to, std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    to += '%';
    to += kDigits[byte >> 4U];
    to += kDigits[byte & 0xFU];
  }
}

/// How many bytes XML cannot hold stand at the front of `text`; 0 for none.
std::size_t foreignBytes(std::string_view text, bool isUtf8) {
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte < 0x20) return byte == '\t' || byte == '\n' || byte == '\r' ? 0 : 1;
  if (!isUtf8) return byte < 0x80 ? 0 : 1;
  return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF") ? 3 : 0;
}

std::string asXmlAddress(std::string_view url) {
  const bool isUtf8 = platform::isUtf8(url);
  std::string address;
  address.reserve(url.size());
  while (!url.empty()) {
    const std::size_t foreign = foreignBytes(url, isUtf8);
    if (foreign > 0) {
      appendPercentEncoded(address, url.substr(0, foreign));
    } else {
      address += url.front();
    }
    url.remove_prefix(foreign > 0 ? foreign : 1);
  }
  return address;
}

}  // namespace

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
  entry += escapeXml(asXmlAddress(url));
  entry += "</loc>\n\t\t<lastmod>";
  entry += lastModified;
  entry += "</lastmod>\n\t\t<changefreq>";
  entry += kNewFrequency;
  entry += "</changefreq>\n\t\t<priority>";
  entry += kNewPriority;
  entry += "</priority>\n\t</url>";
  return entry;
}

}  // namespace sitemaps
