#include "html_editor/document_check.h"

#include <algorithm>

#include "sitemaps/html_format.h"

namespace html_editor {

DocumentState documentState(std::string_view document) {
  if (document.empty()) return DocumentState::missing;
  if (document.size() > kMostShown) return DocumentState::tooLarge;
  // Of a document that is not of our making nobody can tell.
  if (!document.starts_with(sitemaps::kHtmlHeader.substr(0, sitemaps::kHtmlHeader.find("<style"))))
    return DocumentState::whole;
  // A scan closes its documents, however it ends, unless it is killed. Other programs may add line ends.
  constexpr std::size_t kEnd = 100;
  const std::string_view end = document.substr(document.size() - std::min(document.size(), kEnd));
  const bool closed = end.find("</html>") != std::string_view::npos;
  const bool hasEntries = document.find("<a ") != std::string_view::npos;
  if (closed) return hasEntries ? DocumentState::whole : DocumentState::noEntries;
  return hasEntries ? DocumentState::unfinished : DocumentState::neverBegun;
}

}  // namespace html_editor
