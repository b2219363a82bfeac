// Rewriting the anchor of an entry.
#pragma once

#include <string>
#include <string_view>

#include "html_editor/link_selection.h"

namespace html_editor {

struct AnchorEdit {
  std::string document;
  bool found = false;  // the entry stands in the document; without it that comes back as it is
};

/// The document with the anchor of `selection` replaced, wherever it stands, by one with the target `link`,
/// the text `title` and the same LINKID. What was not changed keeps its spelling, and so does an address of
/// which the field shows only a part. What was typed goes in as it is, but for "&", which becomes "&amp;",
/// and for tags that the entry showed as text before: those do not come to life by an edit next to them.
AnchorEdit editLinkAndTitle(std::string_view document, const LinkSelection& selection, std::string_view link,
                            std::string_view title);

}  // namespace html_editor
