// The addresses that stand in a sitemap of somebody else.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace crawler {

enum class SitemapKind {
  none,   // the text is something else
  pages,  // an XML sitemap, or a text with an address on each line
  index,  // the addresses are those of other sitemaps
};

struct SitemapText {
  SitemapKind kind = SitemapKind::none;
  std::vector<std::string> addresses;  // as written, without blanks around them, none of them empty
  std::string problem;                 // what is wrong, in words without a full stop; empty when nothing is
};

/// Reads `content`, the bytes of a file, compressed by gzip or not, as large as the protocol allows one to be
/// (sitemaps/xml_validation.h). Addresses are taken from what can be read of a broken file, and a bare "&" or
/// "<" in one is meant as such. Those longer than 8 KiB are left out. A text
/// counts as a list when it begins with an http or https address, and other lines of it are passed over.
SitemapText readSitemapText(std::string content);

}  // namespace crawler
