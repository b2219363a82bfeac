// Reading the entries of an XML sitemap, however broken its text is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sitemaps {

struct SitemapRows {
  std::vector<std::string> rows;  // one text for each url element, in the order of the document
  bool otherElements = false;  // some entry holds elements that the protocol does not know; no row has them
};

/// Reads every url element of `text` (bytes as in the file) in one pass and without failing. The namespace
/// does not matter, nor does what stands around the entries; elements left open end where the next one of the
/// protocol starts. Within a value, everything that is not a tag of the protocol counts as text: bare
/// ampersands, "<" and other tags.
///
/// A row is "<url>", each of the entry's elements on a line of its own behind two tabs, and "\n\t</url>": the
/// form in which sitemaps are written. Empty elements keep both tags. Values have "&", "<" and ">" escaped,
/// and are on one line, without blanks around them. Comments and attributes are left out.
SitemapRows readSitemap(std::string_view text);

}  // namespace sitemaps
