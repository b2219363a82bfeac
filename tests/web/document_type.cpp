#include "document_type.h"

#include <algorithm>
#include <string_view>

#include "web/tag_letters.h"

namespace web {

namespace {

/// Reads what stands between "<!DOCTYPE" and ">" from left to right.
class DocumentTypeReader {
 public:
  DocumentTypeReader(std::string_view written, bool cutOff) : m_rest(written), m_cutOff(cutOff) {}

  DocumentType read() {
    skipBlanks();
    if (m_rest.empty()) return broken();
    std::size_t end = 0;
    while (end < m_rest.size() && !isBlank(m_rest[end])) ++end;
    appendName(m_type.name.emplace(), m_rest.substr(0, end));
    m_rest.remove_prefix(end);
    skipBlanks();
    if (m_rest.empty()) return whole();
    if (takeWord("public")) {
      if (!takeQuoted(m_type.publicId)) return broken();
      skipBlanks();
      if (m_rest.empty()) return whole();
    } else if (!takeWord("system")) {
      return broken();
    }
    if (!takeQuoted(m_type.systemId)) return broken();
    skipBlanks();
    if (m_rest.empty()) return whole();
    return m_type;  // what stands behind is of no interest to anybody, not even where it ends
  }

 private:
  void skipBlanks() {
    while (!m_rest.empty() && isBlank(m_rest.front())) m_rest.remove_prefix(1);
  }

  bool takeWord(std::string_view lower) {
    if (!isNamed(m_rest.substr(0, lower.size()), lower)) return false;
    m_rest.remove_prefix(lower.size());
    return true;
  }

  /// False unless there is one with both its quotes; one that is cut off is kept nevertheless.
  bool takeQuoted(std::optional<std::string>& id) {
    skipBlanks();
    if (m_rest.empty() || (m_rest.front() != '"' && m_rest.front() != '\'')) return false;
    const std::size_t close = m_rest.find(m_rest.front(), 1);
    const std::size_t end = std::min(close, m_rest.size());
    appendText(id.emplace(), m_rest.substr(1, end - 1), TextForm::rawtext);
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    return close != std::string_view::npos;
  }

  DocumentType whole() {
    m_type.quirks = m_cutOff;
    return m_type;
  }

  DocumentType broken() {
    m_type.quirks = true;
    return m_type;
  }

  std::string_view m_rest;
  bool m_cutOff;
  DocumentType m_type;
};

}  // namespace

DocumentType documentTypeOf(const Token& token) {
  return DocumentTypeReader(token.written, token.cutOff).read();
}

}  // namespace web
