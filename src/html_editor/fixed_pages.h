// What the viewer shows when there is no document.
#pragma once

#include <string>

namespace html_editor {

/// The site in hand was not scanned.
std::string noSitemapPage();

/// No site is selected.
std::string noSitePage();

}  // namespace html_editor
