#include "sitemaps/row_text.h"

#include <algorithm>

#include "platform/regex.h"

namespace sitemaps {

namespace {

struct Tags {
  std::string_view name;
  std::string_view start;
  std::string_view end;
};

constexpr std::array<Tags, 4> kTags = {{{"loc", "<loc>", "</loc>"},
                                        {"lastmod", "<lastmod>", "</lastmod>"},
                                        {"changefreq", "<changefreq>", "</changefreq>"},
                                        {"priority", "<priority>", "</priority>"}}};

const Tags& tagsOf(Field field) {
  return kTags[static_cast<std::size_t>(field)];
}

}  // namespace

std::string_view elementName(Field field) {
  return tagsOf(field).name;
}

std::optional<ElementText> findElement(std::string_view row, Field field) {
  const Tags& tags = tagsOf(field);
  std::size_t start = 0;
  while ((start = row.find(tags.start, start)) != std::string_view::npos) {
    const std::size_t valueStart = start + tags.start.size();
    const std::size_t lineEnd = std::min(row.find('\n', valueStart), row.size());
    const std::string_view line = row.substr(valueStart, lineEnd - valueStart);
    const std::size_t valueEnd = line.rfind(tags.end);
    if (valueEnd != std::string_view::npos) {
      return ElementText{row.substr(start, tags.start.size() + valueEnd + tags.end.size()),
                         line.substr(0, valueEnd)};
    }
    start = lineEnd;  // no start tag on this line has an end tag
  }
  return std::nullopt;
}

std::string shownValue(std::string_view row, Field field) {
  const std::optional<ElementText> element = findElement(row, field);
  if (!element) return {};
  if (field == Field::loc) return platform::replaceText(element->value, "&amp;", "&");
  return std::string(element->value);
}

}  // namespace sitemaps
