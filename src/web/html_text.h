// What a range of an HTML document's text means, once references, line ends and NULs are read.
#pragma once

#include <string>
#include <string_view>

namespace web {

/// How text is written, by the element or section that it stands in.
enum class TextForm {
  data,     // with references; U+0000 stays, for whoever builds on it to drop or replace
  rcdata,   // with references, as in a title
  rawtext,  // without, as in a style, a script or a comment
  cdata,    // without; U+0000 stays
};

// Each appends to a text that may hold something already. "\r\n" and "\r" are read as "\n", and U+0000 as
// U+FFFD but where the form says otherwise.

void appendText(std::string& to, std::string_view written, TextForm form);

void appendAttributeValue(std::string& to, std::string_view written);

/// Of an element, attribute or document type: ASCII letters become small.
void appendName(std::string& to, std::string_view written);

/// Whether a name as written is `lower`, which is in lower case.
bool isNamed(std::string_view written, std::string_view lower);

}  // namespace web
