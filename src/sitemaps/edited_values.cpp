#include "sitemaps/edited_values.h"

#include <cstddef>
#include <optional>

#include "sitemaps/row_text.h"
#include "sitemaps/sitemap_reader.h"
#include "sitemaps/xml_format.h"
#include "sitemaps/xml_text.h"

namespace sitemaps {

namespace {

constexpr std::string_view kEntryStart = "<url>";
constexpr std::string_view kEntryEnd = "</url>";

/// The address of an entry in the form that rows have, in whatever form it is written.
std::string addressOf(std::string_view entry) {
  constexpr std::string_view kStart = "<loc>";
  const std::size_t start = entry.find(kStart);
  const std::size_t end = entry.find("</loc>", start);
  if (start == std::string_view::npos || end == std::string_view::npos) return {};
  std::string address;
  appendNormalised(address, entry.substr(start + kStart.size(), end - start - kStart.size()));
  address.erase(address.find_last_not_of(' ') + 1);
  address.erase(0, address.find_first_not_of(' '));
  return address;
}

/// An element's value, or what a scan writes where the row lacks the element.
std::string valueOf(std::string_view row, Field field, std::string_view usual) {
  const std::optional<ElementText> element = findElement(row, field);
  return std::string(element ? element->value : usual);
}

int putValue(std::string& entry, Field field, std::string_view value, std::string_view usual) {
  if (value == usual) return 0;
  const std::optional<ElementText> element = findElement(entry, field);
  if (!element || element->value != usual) return 0;
  entry.replace(static_cast<std::size_t>(element->value.data() - entry.data()), usual.size(), value);
  return 1;
}

}  // namespace

void EditedValues::add(std::string_view sitemap) {
  for (const std::string& row : readSitemap(sitemap).rows) {
    Values values{valueOf(row, Field::changefreq, kNewFrequency),
                  valueOf(row, Field::priority, kNewPriority)};
    if (values.frequency == kNewFrequency && values.priority == kNewPriority) continue;
    std::string address = addressOf(row);
    if (!address.empty()) m_values.insert_or_assign(std::move(address), std::move(values));
  }
}

int EditedValues::putInto(std::string& entry) const {
  const auto found = m_values.find(addressOf(entry));
  return found == m_values.end() ? 0 : put(found->second, entry);
}

int EditedValues::put(const Values& values, std::string& entry) {
  return putValue(entry, Field::changefreq, values.frequency, kNewFrequency) +
         putValue(entry, Field::priority, values.priority, kNewPriority);
}

int EditedValues::moveInto(std::string& sitemap) {
  if (isEmpty()) return 0;
  int count = 0;
  std::string result;
  result.reserve(sitemap.size());
  std::size_t done = 0;
  for (;;) {
    const std::size_t start = sitemap.find(kEntryStart, done);
    const std::size_t end = sitemap.find(kEntryEnd, start);
    if (start == std::string::npos || end == std::string::npos) break;
    result.append(sitemap, done, start - done);
    done = end + kEntryEnd.size();
    std::string entry = sitemap.substr(start, done - start);
    if (const auto found = m_values.find(addressOf(entry)); found != m_values.end()) {
      count += put(found->second, entry);
      m_values.erase(found);
    }
    result += entry;
  }
  result.append(sitemap, done);
  sitemap = std::move(result);
  return count;
}

std::string EditedValues::text() const {
  std::string text;
  for (const auto& [address, values] : m_values) {
    text.append("<url>\n\t\t<loc>").append(address).append("</loc>\n\t\t<changefreq>");
    text.append(values.frequency).append("</changefreq>\n\t\t<priority>");
    text.append(values.priority).append("</priority>\n\t</url>\n");
  }
  return text;
}

}  // namespace sitemaps
