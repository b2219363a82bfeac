// Rewriting the anchor of an entry.
#pragma once

#include <string>
#include <string_view>

namespace html_editor {

struct AnchorEdit {
  std::string document;
  std::string originalLinkValue;  // the new anchor, by which a second edit finds the entry
};

/// The document with the anchor `originalLinkValue` (of LinkSelection) replaced wherever it stands by one
/// with the target `link`, the text `title` and the same LINKID. An anchor whose text has a bare "&" where
/// `originalLinkValue` has "&amp;" is found too; otherwise the document comes back as it is.
AnchorEdit editLinkAndTitle(std::string_view document, std::string_view originalLinkValue,
                            std::string_view linkNumber, std::string_view link, std::string_view title);

}  // namespace html_editor
