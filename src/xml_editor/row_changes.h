// What an edit does to the text of a row.
#pragma once

#include <string>
#include <string_view>

#include "sitemaps/row_text.h"

namespace xml_editor {

using sitemaps::elementName;
using sitemaps::ElementText;
using sitemaps::Field;
using sitemaps::findElement;

/// Why a value typed into a field is refused, for the user to read; empty for one that is taken. `today` is
/// the current date as "2010-06-15": the message about the form of a date shows it as an example.
///
/// The bounds on a date's month and day are 2, although the messages say 01, and what is compared with them
/// is cut out of the value by position: from its sixth character to the last but three, and from its seventh
/// on. Sitemaps edited with earlier versions were held to exactly these bounds, and still are.
std::string refusal(Field field, std::string_view value, std::string_view today);

/// `row` with a new value, taken as it was typed: nothing in it is escaped or has a meaning. A new address
/// takes the place of the old one wherever that stands in the row. A row that lacks the element stays as it
/// is.
std::string withValue(std::string row, Field field, std::string_view value);

}  // namespace xml_editor
