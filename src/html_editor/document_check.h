// Whether a document is one that the viewer can show, and what its user should know of it.
#pragma once

#include <cstddef>
#include <string_view>

namespace html_editor {

enum class DocumentState {
  missing,  // or as good as that: empty
  whole,
  unfinished,  // some pages are in it, but the scan that wrote it was cut off
  neverBegun,  // the scan was cut off, or turned away, before its first page
  noEntries,   // it is closed, and lists nothing
  tooLarge,    // to be shown
};

/// The most that the viewer shows, in bytes: some 150,000 links. For so many the web engine needs two
/// gigabytes of memory and 40 s of a processor, with each edit of a link anew, and a program that reads them
/// out as much again and more. Twice as many take three and a half gigabytes; where no memory is left the
/// engine goes down and shows nothing.
inline constexpr std::size_t kMostShown = 24u << 20;

/// `document` as a scan or an editor left it.
DocumentState documentState(std::string_view document);

}  // namespace html_editor
