// The elements that change how a page's markup is read, or what its title and links are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "web/html_tokens.h"

namespace web {

enum class Element : std::uint8_t {
  other,
  anchor,
  annotationXml,
  applet,
  area,
  base,
  br,
  button,
  caption,
  cell,    // td
  column,  // col, colgroup
  desc,
  foreignObject,
  frame,
  headerCell,    // th
  image,         // img
  imageOldName,  // image, which browsers read as img
  iframe,        // its content is rawtext
  link,
  marquee,
  math,
  mathText,  // mi, mo, mn, ms, mtext
  meta,
  object,
  paragraph,  // p
  plaintext,
  preformatted,  // pre, listing
  rawtext,       // style, xmp, noembed
  script,
  svg,
  table,
  tablePart,  // tr, tbody, thead, tfoot
  templateElement,
  textarea,
  title
};

/// A tag's name, and what follows from it.
class ElementName {
 public:
  explicit ElementName(const Token& tag);

  Element element() const { return m_element; }

  /// Whether an element of this name cannot stand in SVG or MathML, so that its start tag ends them.
  bool isOnlyHtml() const;

  /// Whether an element of this name is one of many that hold markup and end at their end tags.
  bool isPlain() const;

  /// A number below kKeys. Other names may have the same.
  std::uint16_t key() const;
  static constexpr std::size_t kKeys = 1024;

 private:
  std::string_view m_written;
  std::uint64_t m_letters;  // all, when there are eight at most
  Element m_element;
};

}  // namespace web
