#include "sitemaps/sitemap_reader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/text.h"
#include "sitemaps/row_text.h"
#include "sitemaps/xml_text.h"

namespace sitemaps {

namespace {

enum class Name { urlset, url, field, other };

/// A tag found in the text.
struct Tag {
  std::string_view written;  // from "<" to ">"
  Name name = Name::other;
  Field field = Field::loc;      // for Name::field
  std::string_view prefix = {};  // for Name::urlset
  bool isEnd = false;
  bool isEmpty = false;  // "<lastmod/>"
};

constexpr std::string_view kBlanks = " \t\r\n";

constexpr bool startsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// Sections that hold no elements. The last one holds text, the others nothing that is kept.
struct Section {
  std::string_view start;
  std::string_view end;
};
constexpr std::array<Section, 4> kSections = {
    {{"<!--", "-->"}, {"<?", "?>"}, {"<!DOCTYPE", ">"}, {"<![CDATA[", "]]>"}}};
constexpr std::size_t kCdata = 3;

class Reader {
 public:
  explicit Reader(std::string_view text) : m_text(text) {}

  SitemapRows read() {
    while (m_at < m_text.size()) {
      const std::size_t mark = std::min(m_text.find('<', m_at), m_text.size());
      addText(m_text.substr(m_at, mark - m_at));
      m_at = mark;
      if (m_at == m_text.size()) break;
      if (skipSection()) continue;
      const std::optional<Tag> tag = tagHere();
      if (tag && (!m_field || tag->name != Name::other)) {
        m_at += tag->written.size();
        handle(*tag);
      } else {
        addText("<");
        ++m_at;
      }
    }
    endRow();
    return std::move(m_result);
  }

 private:
  bool skipSection();
  std::optional<Tag> tagHere() const;
  Tag named(std::string_view written, std::string_view name) const;
  void handle(const Tag& tag);
  void addText(std::string_view piece);
  void startField(Field field);
  void endField();
  void startRow();
  void endRow();

  std::string_view m_text;
  std::size_t m_at = 0;
  std::array<bool, kSections.size()> m_unclosed{};  // nothing behind m_at ends such a section
  std::string m_prefix;                             // of the protocol's elements: "" or "sm:"
  SitemapRows m_result;
  std::optional<std::string> m_row;  // the entry that is open
  std::optional<Field> m_field;      // the element in it that is open
  std::string m_value;               // of that, escaped
};

/// Passes over a comment and its like, or takes the text of a section of characters. False when none starts
/// here, or it never ends: what follows would be lost.
bool Reader::skipSection() {
  const std::string_view rest = m_text.substr(m_at);
  for (std::size_t i = 0; i < kSections.size(); ++i) {
    if (m_unclosed[i] || !rest.starts_with(kSections[i].start)) continue;
    const std::size_t start = kSections[i].start.size();
    const std::size_t end = rest.find(kSections[i].end, start);
    if (end == std::string_view::npos) {
      m_unclosed[i] = true;  // and need not be searched for again
      return false;
    }
    if (i == kCdata && m_field) appendEscaped(m_value, rest.substr(start, end - start));
    m_at += end + kSections[i].end.size();
    return true;
  }
  return false;
}

/// The tag that starts at m_at, if one does. A tag does not reach over another "<".
std::optional<Tag> Reader::tagHere() const {
  const std::size_t end = m_text.find_first_of("<>", m_at + 1);
  if (end == std::string_view::npos || m_text[end] == '<') return std::nullopt;
  const std::string_view written = m_text.substr(m_at, end + 1 - m_at);
  std::string_view name = written.substr(1, written.size() - 2);
  const bool isEnd = name.starts_with('/');
  if (isEnd) name.remove_prefix(1);
  const bool isEmpty = !isEnd && name.ends_with('/');
  if (isEmpty) name.remove_suffix(1);
  name = name.substr(0, name.find_first_of(kBlanks));
  if (name.empty() || !startsName(name[0])) return std::nullopt;
  Tag tag = named(written, name);
  tag.isEnd = isEnd;
  tag.isEmpty = isEmpty;
  return tag;
}

Tag Reader::named(std::string_view written, std::string_view name) const {
  constexpr std::string_view kRoot = "urlset";
  Tag tag{.written = written};
  // The outermost element tells the prefix that the others have.
  if (name == kRoot || (name.ends_with(kRoot) && name[name.size() - kRoot.size() - 1] == ':')) {
    tag.name = Name::urlset;
    tag.prefix = name.substr(0, name.size() - kRoot.size());
    return tag;
  }
  if (name.starts_with(m_prefix)) name.remove_prefix(m_prefix.size());
  if (name == "url") tag.name = Name::url;
  for (const Field field : kFields) {
    if (name != elementName(field)) continue;
    tag.name = Name::field;
    tag.field = field;
  }
  return tag;
}

void Reader::handle(const Tag& tag) {
  if (tag.name == Name::other) {
    if (m_row && !tag.isEnd) m_result.otherElements = true;
    return;
  }
  endField();
  if (tag.name == Name::field) {
    if (m_row && !tag.isEnd) startField(tag.field);
    if (tag.isEmpty) endField();
    return;
  }
  endRow();
  if (tag.isEnd) return;
  if (tag.name == Name::url) {
    startRow();
    if (tag.isEmpty) endRow();
  } else {
    m_prefix = tag.prefix;
  }
}

void Reader::addText(std::string_view piece) {
  if (m_field) appendNormalised(m_value, piece);
}

void Reader::startField(Field field) {
  m_field = field;
  m_value.clear();
}

void Reader::endField() {
  if (!m_field) return;
  const std::string_view name = elementName(*m_field);
  const std::size_t start = std::min(m_value.find_first_not_of(' '), m_value.size());
  const std::size_t end = m_value.find_last_not_of(' ') + 1;  // 0 when there is nothing but blanks
  m_row->append("\n\t\t<").append(name).append(">");
  if (start < end) m_row->append(m_value, start, end - start);
  m_row->append("</").append(name).append(">");
  m_field.reset();
}

void Reader::startRow() {
  m_row = "<url>";
}

void Reader::endRow() {
  endField();
  if (!m_row) return;
  m_row->append("\n\t</url>");
  m_result.rows.push_back(std::move(*m_row));
  m_row.reset();
}

}  // namespace

SitemapRows readSitemap(std::string_view text) {
  const std::string decoded = platform::decodeUtf8(std::string(text));
  return Reader(decoded).read();
}

}  // namespace sitemaps
