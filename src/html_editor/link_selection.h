// The entry that was clicked, and what committing one of its two fields leads to.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace html_editor {

/// What is known of a clicked entry. Numbers and markers are empty for a link that carries none.
struct LinkSelection {
  std::string linkNumber;         // its LINKID, "12"
  std::string linkIdentifier;     // the marker, "---LINKID:12---"
  std::string originalLinkValue;  // the anchor as it stands in the document
  std::string delLink;            // the target without its marker, for a deletion
  std::string delTitle;           // the text with "&" as "&amp;", for a deletion
  std::string linkEditInput;      // for the two fields: target without its marker,
  std::string titleEditInput;     // and text
};

/// Reads a click. `href` is the attribute's value as the document has it, not resolved; `label` is the link's
/// visible text. Nothing when either is empty: then nothing can be selected.
std::optional<LinkSelection> selectLink(std::string_view href, std::string_view label);

enum class FieldCommit {
  edit,        // rewrite the anchor
  nothing,     // both fields are empty
  titleBlank,  // show kTitleBlankMessage
  linkBlank,   // show kLinkBlankMessage
};

extern const std::string_view kTitleBlankMessage;
extern const std::string_view kLinkBlankMessage;

/// What committing the title field, or the link field, asks for. A field that is filled may be committed
/// while the other one is empty.
FieldCommit commitTitleField(std::string_view title, std::string_view link);
FieldCommit commitLinkField(std::string_view title, std::string_view link);

}  // namespace html_editor
