#include "html_editor/entry_markup.h"

#include <algorithm>
#include <array>

#include "platform/ascii.h"
#include "sitemaps/html_format.h"

namespace html_editor {

namespace {

bool isLetterOrDigit(char c) {
  return platform::isAsciiLetter(c) || platform::isAsciiDigit(c);
}

bool isVoid(std::string_view name) {
  constexpr std::array<std::string_view, 17> kVoid = {
      "area",  "base",    "basefont", "br",   "col",   "embed",  "frame", "hr", "img",
      "input", "isindex", "link",     "meta", "param", "source", "track", "wbr"};
  return std::find(kVoid.begin(), kVoid.end(), name) != kVoid.end();
}

bool isRaw(std::string_view name) {
  return name == "script" || name == "style";
}

void appendAttributeValue(std::string& to, std::string_view value) {
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] == '"') {
      to += "&quot;";
    } else if (value[i] == '&' && beginsReference(value.substr(i))) {
      to += "&amp;";
    } else {
      to += value[i];
    }
  }
}

}  // namespace

bool beginsReference(std::string_view text) {
  if (text.size() < 2) return false;
  if (text[1] == '#') return true;
  const auto* end = std::find_if_not(text.begin() + 1, text.end(), isLetterOrDigit);
  return end != text.end() && *end == ';';
}

void EntryMarkup::startElement(std::string_view name,
                               const std::vector<platform::MarkupAttribute>& attributes) {
  m_text.append("<").append(name);
  for (const platform::MarkupAttribute& attribute : attributes) {
    m_text.append(" ").append(attribute.name).append("=\"");
    appendAttributeValue(m_text, attribute.value);
    m_text += '"';
  }
  m_text += '>';
  if (isRaw(name)) ++m_rawDepth;
}

void EntryMarkup::endElement(std::string_view name) {
  if (isRaw(name)) --m_rawDepth;
  if (isVoid(name)) return;
  m_text.append("</").append(name).append(">");
}

void EntryMarkup::text(std::string_view piece) {
  if (m_rawDepth > 0) {
    m_text.append(piece);
  } else {
    m_text.append(sitemaps::asMarkupText(piece));
  }
}

void EntryMarkup::comment(std::string_view text) {
  m_text.append("<!--").append(text).append("-->");
}

void EntryMarkup::clear() {
  m_text.clear();
  m_rawDepth = 0;
}

}  // namespace html_editor
