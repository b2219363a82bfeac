// What the viewer shows when there is no document.
#pragma once

#include <cstddef>
#include <string>

#include "html_editor/document_check.h"

namespace html_editor {

/// No site is selected.
std::string noSitePage();

/// There is nothing to show of the site: `state` is neither whole nor unfinished. `bytes` is the size of the
/// document.
std::string nothingToShowPage(DocumentState state, std::size_t bytes);

}  // namespace html_editor
