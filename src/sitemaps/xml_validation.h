// Whether a text is a sitemap that search engines take: the sitemap protocol 0.9, without a network.
//
// The rules are those of https://www.sitemaps.org/protocol.html ("XML tag definitions", "Entity escaping",
// "Sitemap file requirements") and of its schema, https://www.sitemaps.org/schemas/sitemap/0.9/sitemap.xsd.
// Where the two differ the narrower one holds, so that what passes here passes the schema as well.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sitemaps {

inline constexpr std::size_t kMaxSitemapEntries = 50'000;
inline constexpr std::size_t kMaxSitemapBytes = 52'428'800;

/// One broken rule.
struct XmlFinding {
  std::size_t entry =
      0;  // the number of its url element in the document, from 1; 0 for the document as a whole
  std::string element;  // "urlset", "url", "loc", "lastmod", "changefreq" or "priority"; empty where none is
                        // meant; of an index "sitemapindex" and "sitemap" in place of the first two
  std::string message;  // one sentence in English; quotes of the text are cut to a fit length

  bool operator==(const XmlFinding&) const = default;
};

/// What the rules look at besides the text.
struct XmlValidationBase {
  std::chrono::sys_seconds now = {};  // dates behind it lie in the future
  std::chrono::minutes zone{0};       // east of Greenwich; dates without a time are those of this zone
  std::string siteUrl = {};  // all entries must be on its host; empty: on the host of the first entry
};

/// The time and zone of this machine, and nothing else set.
XmlValidationBase validationBaseNow();

/// Every broken rule of the document `text` (bytes as in the file), in the order of the document; those of
/// the document as a whole come first. Empty: the sitemap is valid. A text that is no well-formed XML is read
/// on behind each fault as far as that goes, so that more than the first is found. Its faults of syntax end
/// at a thousand.
std::vector<XmlFinding> validateXmlSitemap(std::string_view text, const XmlValidationBase& base);

/// Whether `text` is an index, which names sitemaps instead of pages: by its outermost element, in whatever
/// namespace.
bool isSitemapIndex(std::string_view text);

/// The same for an index. Its entries ("sitemap") hold the address of a sitemap and, if its author likes, the
/// day of its last change. The sitemaps themselves are not looked at.
std::vector<XmlFinding> validateSitemapIndex(std::string_view text, const XmlValidationBase& base);

}  // namespace sitemaps
