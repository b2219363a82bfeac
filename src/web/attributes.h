// The attributes of a tag, found one by one where they are written.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

#include "web/tag_letters.h"

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

  /// How far it has read; once next() gave false, how far the tag reaches without its ">".
  std::size_t size() const { return static_cast<std::size_t>(m_at - m_begin); }

  /// Once next() gave false: whether "/" stands right in front of the tag's ">".
  bool selfClosing() const { return m_selfClosing; }

 private:
  const char* m_begin;
  const char* m_at;
  const char* m_end;
  bool m_selfClosing = false;
};

// Here, so that a tag whose attributes nobody reads is passed over at little cost.
inline bool AttributeReader::next(Attribute& attribute) {
  const char* const skipped = m_at;
  while (m_at != m_end && (isBlank(*m_at) || *m_at == '/')) ++m_at;
  if (m_at == m_end || *m_at == '>') {
    m_selfClosing = m_at != skipped && m_at[-1] == '/';
    return false;
  }
  const char* begin = m_at++;  // even a "=" begins a name
  while (m_at != m_end && !endsAttributeName(*m_at)) ++m_at;
  attribute.name = {begin, static_cast<std::size_t>(m_at - begin)};
  attribute.value = {};
  while (m_at != m_end && isBlank(*m_at)) ++m_at;
  if (m_at == m_end || *m_at != '=') return true;
  ++m_at;
  while (m_at != m_end && isBlank(*m_at)) ++m_at;
  if (m_at == m_end || *m_at == '>') return true;
  if (*m_at == '"' || *m_at == '\'') {
    const char quote = *m_at;
    begin = ++m_at;
    const void* close = std::memchr(begin, quote, static_cast<std::size_t>(m_end - begin));
    m_at = close == nullptr ? m_end : static_cast<const char*>(close);
    attribute.value = {begin, static_cast<std::size_t>(m_at - begin)};
    if (m_at != m_end) ++m_at;
    return true;
  }
  begin = m_at;
  while (m_at != m_end && !endsBareValue(*m_at)) ++m_at;
  attribute.value = {begin, static_cast<std::size_t>(m_at - begin)};
  return true;
}

/// The attributes that count of a tag: of each name the first one, in their order. `written` is what stands
/// between the tag's name and its ">".
std::vector<Attribute> attributesOf(std::string_view written);

}  // namespace web
