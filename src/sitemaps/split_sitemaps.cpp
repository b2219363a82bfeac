#include "sitemaps/split_sitemaps.h"

#include "platform/ascii.h"
#include "sitemaps/xml_format.h"
#include "sitemaps/xml_references.h"

namespace sitemaps {

namespace {

constexpr std::string_view kIndexOpening =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<sitemapindex xmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\">";
constexpr std::string_view kIndexClosing = "\n</sitemapindex>\n";
constexpr std::string_view kEntryIndent = "\n\t";

/// Whether `text` begins with this tag ("<url", "</url"), up to its end or its attributes.
bool beginsWithTag(std::string_view text, std::string_view tag) {
  if (!text.starts_with(tag) || text.size() == tag.size()) return false;
  const char next = text[tag.size()];
  return next == '>' || platform::kBlanks.find(next) != std::string_view::npos;
}

/// The place behind `ending`, searched from `from`; the end of the text when it is not there.
std::size_t behind(std::string_view text, std::string_view ending, std::size_t from) {
  const std::size_t found = text.find(ending, from);
  return found == std::string_view::npos ? text.size() : found + ending.size();
}

/// The length of an entry in its file.
std::size_t writtenLength(std::string_view entry) {
  return kEntryIndent.size() + entry.size();
}

/// What stands before the first entry, without the blanks at its end; our own header where that opens no
/// sitemap.
std::string_view openingOf(std::string_view sitemap, const std::vector<std::string_view>& entries,
                           std::size_t maxBytes) {
  if (entries.empty()) return kXmlHeader;
  const auto length = static_cast<std::size_t>(entries.front().data() - sitemap.data());
  std::string_view opening = sitemap.substr(0, length);
  opening = opening.substr(0, opening.find_last_not_of(platform::kBlanks) + 1);
  const bool opens = opening.find("<urlset") != std::string_view::npos && opening.ends_with('>');
  return opens && length < maxBytes / 2 ? opening : kXmlHeader;
}

/// Where the files of a site lie on the web, with a slash at the end.
std::string folderOf(std::string_view startUrl) {
  startUrl = startUrl.substr(0, startUrl.find_first_of("?#"));
  const std::size_t scheme = startUrl.find("://");
  const std::size_t host = scheme == std::string_view::npos ? 0 : scheme + 3;
  const std::size_t slash = startUrl.rfind('/');
  if (slash == std::string_view::npos || slash < host) return std::string(startUrl) + '/';
  return std::string(startUrl.substr(0, slash + 1));
}

}  // namespace

std::vector<std::string_view> sitemapEntries(std::string_view sitemap) {
  std::vector<std::string_view> entries;
  std::size_t start = std::string_view::npos;  // of the entry that is open
  std::size_t at = sitemap.find('<');
  while (at < sitemap.size()) {
    const std::string_view rest = sitemap.substr(at);
    if (const std::size_t next = behindSection(sitemap, at); next != at) {
      at = next;
    } else if (beginsWithTag(rest, "</url")) {
      at = behind(sitemap, ">", at);
      if (start != std::string_view::npos && sitemap[at - 1] == '>')
        entries.push_back(sitemap.substr(start, at - start));
      start = std::string_view::npos;
    } else {
      if (beginsWithTag(rest, "<url")) start = at;
      ++at;
    }
    at = sitemap.find('<', at);
  }
  return entries;
}

SplitSitemap::SplitSitemap(std::string_view sitemap, const SplitLimits& limits)
    : m_entries(sitemapEntries(sitemap)) {
  m_opening = openingOf(sitemap, m_entries, limits.bytes);
  const std::size_t frame = m_opening.size() + kXmlClosing.size();
  std::size_t first = 0;
  std::size_t bytes = frame;
  for (std::size_t i = 0; i < m_entries.size(); ++i) {
    const std::size_t length = writtenLength(m_entries[i]);
    if (i > first && (i - first == limits.entries || bytes + length > limits.bytes)) {
      m_parts.emplace_back(m_entries.data() + first, i - first);
      first = i;
      bytes = frame;
    }
    bytes += length;
  }
  if (first < m_entries.size()) m_parts.emplace_back(m_entries.data() + first, m_entries.size() - first);
}

std::string SplitSitemap::part(std::size_t index) const {
  std::size_t length = m_opening.size() + kXmlClosing.size();
  for (const std::string_view entry : m_parts[index]) length += writtenLength(entry);
  std::string text;
  text.reserve(length);
  text += m_opening;
  for (const std::string_view entry : m_parts[index]) text.append(kEntryIndent).append(entry);
  text += kXmlClosing;
  return text;
}

std::string partFileName(std::size_t index, Compression compression) {
  return "sitemap-" + std::to_string(index + 1) + (compression == Compression::gzip ? ".xml.gz" : ".xml");
}

std::string sitemapIndex(std::string_view startUrl, std::size_t partCount, Compression compression) {
  const std::string folder = folderOf(startUrl);
  std::string index(kIndexOpening);
  for (std::size_t i = 0; i < partCount; ++i) {
    index += "\n\t<sitemap>\n\t\t<loc>" + escapeXml(folder + partFileName(i, compression)) +
             "</loc>\n\t</sitemap>";
  }
  index += kIndexClosing;
  return index;
}

}  // namespace sitemaps
