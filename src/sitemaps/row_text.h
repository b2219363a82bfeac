// The rows of the XML sitemap editor: each is the text of one entry, and its values are read from that text.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace sitemaps {

/// What an entry consists of, in its order. Each is a column of the table as well.
enum class Field { loc, lastmod, changefreq, priority };

inline constexpr std::array<Field, 4> kFields = {Field::loc, Field::lastmod, Field::changefreq,
                                                 Field::priority};

/// The name of the field's element: "loc".
std::string_view elementName(Field field);

/// An element in a row; views into that.
struct ElementText {
  std::string_view whole;  // with its tags
  std::string_view value;  // between them, as written
};

/// What the expression "<loc>(.*)</loc>" matches in `row`, for a name in place of "loc": the start tag
/// without attributes, and the last end tag on the same line. Nothing when the row has none. Cost is linear
/// in the row.
std::optional<ElementText> findElement(std::string_view row, Field field);

/// What the table shows of a row: the value as written, in an address with "&" for "&amp;". Empty when the
/// row lacks the element.
std::string shownValue(std::string_view row, Field field);

}  // namespace sitemaps
