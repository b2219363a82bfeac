// How an entry is spelled when its markup is written anew. Within this folder only.
//
// Entries are found by their exact text: the target and the visible text that a click reports, put together
// again. So they are spelled as generated entries are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/markup.h"

namespace html_editor {

/// Whether `text`, which begins with "&", would be read as a character reference in an attribute.
bool beginsReference(std::string_view text);

/// Writes elements, texts and comments, in the order of the document, to the end of one text.
class EntryMarkup {
 public:
  void startElement(std::string_view name, const std::vector<platform::MarkupAttribute>& attributes);
  void endElement(std::string_view name);
  void text(std::string_view piece);
  void comment(std::string_view text);

  /// All that was written.
  std::string_view written() const { return m_text; }
  void clear();

 private:
  std::string m_text;
  int m_rawDepth = 0;  // of open elements whose text is no markup
};

}  // namespace html_editor
