// Removing an entry, and making the next one the heading of its block when it was the heading.
#pragma once

#include <string>
#include <string_view>

#include "html_editor/link_selection.h"

namespace html_editor {

enum class Removed { nothing, linkEntry, pageEntry };

struct LinkDeletion {
  std::string document;
  std::string linkNumber;  // the selection's, or of the entry last looked at for a new heading
  Removed removed = Removed::nothing;
};

/// The document without the entry of `selection`. When that does not stand there as it was clicked, delLink
/// and delTitle are taken as parts of a pattern in which only "?" is escaped, and what that finds goes: an
/// entry of a sitemap that was edited by hand. `totalLinks` is the site record's count of LINKIDs, up to
/// which a new heading is looked for; 0 when it is not known. Cells that are empty now stay: see
/// checkForEmptyColumn().
LinkDeletion linkDeletion(std::string_view document, const LinkSelection& selection, int totalLinks);

}  // namespace html_editor
