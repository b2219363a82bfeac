// The entry that was clicked, how it may stand in the document, and what committing its two fields leads to.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace html_editor {

/// What is known of a clicked entry. Numbers and markers are empty for a link that carries none.
struct LinkSelection {
  std::string linkNumber;      // its LINKID, "12"
  std::string linkIdentifier;  // what is taken for the marker: from the first "---" of the target to the last
  std::string originalLinkValue;  // the anchor as a scan writes it
  std::string delLink;            // the target without linkIdentifier, for a deletion
  std::string delTitle;           // the text as a scan writes it, for a deletion
  std::string linkEditInput;      // for the two fields: target without linkIdentifier,
  std::string titleEditInput;     // and text
  std::string target;             // as it was reported
};

/// Reads a click. `href` is the attribute's value as the document has it, not resolved; `label` is the link's
/// visible text. Nothing when either is empty: then nothing can be selected. A target that ends in a marker
/// has that number, whatever a site has put in front of it.
std::optional<LinkSelection> selectLink(std::string_view href, std::string_view label);

/// The texts that show as `label` in documents of this program, as a scan writes it first: then with the "<"
/// of a title that was typed, and with the bare "&" of earlier versions. A line's end shows as a line feed.
std::vector<std::string> spellingsOf(std::string_view label);

/// `<a href="TARGET">TEXT<!-- LINKID: N --></a>`.
std::string anchorMarkup(std::string_view target, std::string_view text, std::string_view number);

enum class FieldCommit {
  edit,        // rewrite the anchor
  nothing,     // nothing was changed, or both fields are empty
  titleBlank,  // show kTitleBlankMessage
  linkBlank,   // show kLinkBlankMessage
};

extern const std::string_view kTitleBlankMessage;
extern const std::string_view kLinkBlankMessage;

/// What committing the two fields asks for. A field that came empty may stay so.
FieldCommit commitFields(const LinkSelection& selection, std::string_view link, std::string_view title);

}  // namespace html_editor
