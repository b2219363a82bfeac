// The look of page titles and page links: what a document's style sheet says about them, and changes of it.
//
// A document is text and stays text: a value is found by a pattern and replaced literally, so that whatever
// else the sheet holds, edits by hand included, stays byte for byte. Where a pattern finds nothing a change
// leaves the document as it is.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace html_editor {

/// Which entries a style is for; the two have rules of their own in the sheet.
enum class EntryClass { pageTitle, pageLink };

/// What the user can choose from, in the order shown; written into documents as they stand.
extern const std::array<std::string_view, 7> fontSizeArray;
extern const std::array<std::string_view, 6> fontFaceArray;

/// What a class's rule says. Texts as written, also such as no list holds; nothing where the rule or the
/// declaration is missing.
struct EntryStyle {
  std::optional<std::string> colour;  // "#0000FF"
  std::optional<std::string> family;
  std::optional<std::string> size;  // "1.1em"
  bool bold = false;
  bool italic = false;
};

EntryStyle readStyle(std::string_view document, EntryClass entries);

/// The document with one declaration of the class's rule replaced; `value` goes in as it stands.
std::string withFontFamily(std::string_view document, EntryClass entries, std::string_view value);
std::string withFontSize(std::string_view document, EntryClass entries, std::string_view value);
std::string withBold(std::string_view document, EntryClass entries, bool bold);
std::string withItalic(std::string_view document, EntryClass entries, bool italic);
std::string withColour(std::string_view document, EntryClass entries, std::string_view value);

}  // namespace html_editor
