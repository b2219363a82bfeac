// The attributes of a tag, found one by one where they are written.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace web {

/// As written. A name holds no reference; appendName() and appendAttributeValue() (web/html_text.h) read
/// both.
struct Attribute {
  std::string_view name;
  std::string_view value;  // without its quotes; empty when there is none
};

/// Reads a tag from behind its name.
class AttributeReader {
 public:
  /// `text` may go on behind the tag's ">", or end in front of it.
  explicit AttributeReader(std::string_view text)
      : m_begin(text.data()), m_at(text.data()), m_end(text.data() + text.size()) {}

  /// False at the tag's ">" and at the end of the text. Of attributes that share a name the first one counts;
  /// the later ones come up as well.
  bool next(Attribute& attribute);

  /// Once next() gave false: how far the tag reaches, without its ">".
  std::size_t size() const { return static_cast<std::size_t>(m_at - m_begin); }

  /// Once next() gave false: whether "/" stands right in front of the tag's ">".
  bool selfClosing() const { return m_selfClosing; }

 private:
  const char* m_begin;
  const char* m_at;
  const char* m_end;
  bool m_selfClosing = false;
};

/// The attributes that count of a tag: of each name the first one, in their order. `written` is what stands
/// between the tag's name and its ">".
std::vector<Attribute> attributesOf(std::string_view written);

}  // namespace web
