// One sitemap made into several, with an index of them: search engines take no more than 50,000 pages and 50
// MB of one file.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sitemaps/xml_validation.h"

namespace sitemaps {

/// The name of the index among the files of a split sitemap.
inline constexpr std::string_view kSitemapIndexFile = "sitemap-index.xml";

/// The url elements of a sitemap as they are written, from "<url" to "</url>"; views into `sitemap`. Those in
/// comments are none, and one that is not closed, as the last one of a file that was cut off, is passed over.
std::vector<std::string_view> sitemapEntries(std::string_view sitemap);

struct SplitLimits {
  std::size_t entries = kMaxSitemapEntries;
  std::size_t bytes = kMaxSitemapBytes;  // of a file before it is compressed
};

/// A sitemap and how its entries are shared out.
class SplitSitemap {
 public:
  /// `sitemap` is borrowed and outlives this object.
  explicit SplitSitemap(std::string_view sitemap, const SplitLimits& limits = {});

  /// How many files it makes; 0 for a sitemap without entries. Each file keeps to the limits, but for an
  /// entry that alone is larger than a file may be: that one has a file of its own.
  std::size_t partCount() const { return m_parts.size(); }

  /// The text of one file, counted from 0. It opens as the whole sitemap does, so that what is declared there
  /// holds for its entries. Those are as they were written.
  std::string part(std::size_t index) const;

 private:
  std::string_view m_opening;
  std::vector<std::string_view> m_entries;
  std::vector<std::span<const std::string_view>> m_parts;
};

enum class Compression { none, gzip };

/// The name of a file, counted from 0: "sitemap-1.xml", or "sitemap-1.xml.gz".
std::string partFileName(std::size_t index, Compression compression);

/// The index that names all files, which are to be published in the folder of `startUrl`: the site's start
/// address, or what of it stands before its last slash.
std::string sitemapIndex(std::string_view startUrl, std::size_t partCount, Compression compression);

}  // namespace sitemaps
