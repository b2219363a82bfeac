#include "sitemaps/xml_cleaning.h"

#include <string_view>

#include "platform/regex.h"

namespace sitemaps {

std::string withoutEmptyElements(std::string sitemap) {
  for (const std::string_view line :
       {"<lastmod></lastmod>\n\t\t", "<changefreq></changefreq>\n\t\t", "<priority></priority>\n\t\t",
        // The usual place of a priority is the end of its entry, where no other
        // element follows: there the line goes with the indentation before it.
        "\n\t\t<priority></priority>"}) {
    sitemap = platform::replaceText(sitemap, line, {});
  }
  return sitemap;
}

}  // namespace sitemaps
