#include "web/html_tokens.h"

#include <algorithm>

#include "platform/ascii.h"
#include "web/tag_letters.h"

namespace web {

namespace {

TextForm formOf(Content content) {
  switch (content) {
    case Content::markup:
      return TextForm::data;
    case Content::rcdata:
      return TextForm::rcdata;
    case Content::cdataSection:
      return TextForm::cdata;
    default:
      return TextForm::rawtext;
  }
}

constexpr std::string_view kCommentStart = "<!--";
constexpr std::string_view kCdataStart = "<![CDATA[";
constexpr std::string_view kCdataEnd = "]]>";
constexpr std::string_view kDocumentTypeStart = "<!doctype";

}  // namespace

bool Tokenizer::next(Token& token) {
  if (m_content != Content::markup && content(token)) return true;
  while (m_at < m_text.size()) {
    if (!beginsMarkup(m_at)) return textUntilMarkup(token);
    if (markup(token)) return true;
  }
  token = {};
  return false;
}

void Tokenizer::readContent(Content content, std::string_view name) {
  m_content = content;
  m_contentName = name;
}

/// The end of the text when there is none.
std::size_t Tokenizer::find(char c, std::size_t from) const {
  return std::min(m_text.find(c, from), m_text.size());
}

// --- Elements that hold text ---

/// False when the text is empty.
bool Tokenizer::content(Token& token) {
  const std::size_t begin = m_at;
  const std::size_t end = contentEnd();
  token.kind = TokenKind::text;
  token.written = m_text.substr(begin, end - begin);
  token.form = formOf(m_content);
  m_at = end;
  if (m_content == Content::cdataSection) m_at = std::min(end + kCdataEnd.size(), m_text.size());
  if (m_content != Content::plaintext) m_content = Content::markup;
  return begin != end;
}

std::size_t Tokenizer::contentEnd() const {
  std::size_t at = m_at;
  switch (m_content) {
    case Content::plaintext:
      return m_text.size();
    case Content::script:
      return scriptEnd();
    case Content::cdataSection:
      return std::min(m_text.find(kCdataEnd, at), m_text.size());
    default:
      while (at < m_text.size() && !isEndTag(at)) at = find('<', at + 1);
      return at;
  }
}

/// Whether the end tag of the element in hand stands at `at`.
bool Tokenizer::isEndTag(std::size_t at) const {
  const std::size_t end = at + 2 + m_contentName.size();
  if (m_contentName.empty() || end >= m_text.size() || m_text[at] != '<' || m_text[at + 1] != '/' ||
      !endsTagName(m_text[end])) {
    return false;
  }
  return std::equal(m_contentName.begin(), m_contentName.end(),
                    m_text.begin() + static_cast<std::ptrdiff_t>(at + 2),
                    [](char a, char b) { return platform::lowerAscii(a) == platform::lowerAscii(b); });
}

/// A script written for browsers that knew no scripts hides in a comment, and one that writes scripts has
/// "<script>" in there: the end tag next to come is that one's.
std::size_t Tokenizer::scriptEnd() const {
  enum class Hidden { no, inComment, inScript };
  const auto isTag = [&](std::size_t at, std::string_view start) {
    const std::size_t end = at + start.size();
    return end < m_text.size() && platform::startsWithAnyCase(m_text.substr(at), start) &&
           endsTagName(m_text[end]);
  };
  Hidden hidden = Hidden::no;
  std::size_t comment = 0;  // where its hyphens begin
  for (std::size_t at = m_at; at < m_text.size(); ++at) {
    at = hidden == Hidden::no ? find('<', at) : std::min(m_text.find_first_of("<>", at), m_text.size());
    if (at == m_text.size()) break;
    if (m_text[at] == '>') {
      if (at >= comment + 2 && m_text.substr(at - 2, 2) == "--") hidden = Hidden::no;
    } else if (hidden != Hidden::inScript && isEndTag(at)) {
      return at;
    } else if (hidden == Hidden::no && m_text.substr(at).starts_with(kCommentStart)) {
      hidden = Hidden::inComment;
      comment = at + 2;
      at += kCommentStart.size() - 1;
    } else if (hidden == Hidden::inComment && isTag(at, "<script")) {
      hidden = Hidden::inScript;
    } else if (hidden == Hidden::inScript && isTag(at, "</script")) {
      hidden = Hidden::inComment;
    }
  }
  return m_text.size();
}

// --- Markup ---

/// A "<" in front of anything else is text.
bool Tokenizer::beginsMarkup(std::size_t at) const {
  if (m_text[at] != '<' || at + 1 == m_text.size()) return false;
  const char next = m_text[at + 1];
  if (next == '/') return at + 2 < m_text.size();
  return platform::isAsciiLetter(next) || next == '!' || next == '?';
}

bool Tokenizer::textUntilMarkup(Token& token) {
  const std::size_t begin = m_at;
  do {
    m_at = find('<', m_at + 1);
  } while (m_at < m_text.size() && !beginsMarkup(m_at));
  token.kind = TokenKind::text;
  token.written = m_text.substr(begin, m_at - begin);
  token.form = TextForm::data;
  return true;
}

/// False for "</>" and for a tag that the document ends within.
bool Tokenizer::markup(Token& token) {
  const char first = m_text[m_at + 1];
  if (first == '!') return declaration(token);
  if (first == '?') return bogusComment(token, m_at + 1);
  if (first != '/') return tag(token, TokenKind::startTag, m_at + 1);
  const char second = m_text[m_at + 2];
  if (platform::isAsciiLetter(second)) return tag(token, TokenKind::endTag, m_at + 2);
  if (second != '>') return bogusComment(token, m_at + 2);
  m_at += 3;
  return false;
}

bool Tokenizer::tag(Token& token, TokenKind kind, std::size_t nameAt) {
  token.nameLetters = 0;
  std::size_t nameEnd = nameAt;
  for (; nameEnd < m_text.size() && !endsTagName(m_text[nameEnd]); ++nameEnd) {
    if (nameEnd - nameAt < kPackedLetters) token.nameLetters = packedWith(token.nameLetters, m_text[nameEnd]);
  }
  AttributeReader attributes(m_text.substr(nameEnd));
  bool more = true;
  for (token.keptAttributes = 0; more && token.keptAttributes < Token::kKept;) {
    more = attributes.next(token.kept[token.keptAttributes]);
    if (more) ++token.keptAttributes;
  }
  token.keptSize = attributes.size();
  for (Attribute attribute; more;) more = attributes.next(attribute);
  m_at = nameEnd + attributes.size();
  if (m_at == m_text.size()) return false;
  ++m_at;
  token.kind = kind;
  token.name = m_text.substr(nameAt, nameEnd - nameAt);
  token.written = m_text.substr(nameEnd, attributes.size());
  token.selfClosing = attributes.selfClosing();
  return true;
}

bool Tokenizer::declaration(Token& token) {
  const std::string_view rest = m_text.substr(m_at);
  if (rest.starts_with(kCommentStart)) return comment(token, m_at + kCommentStart.size());
  if (platform::startsWithAnyCase(rest, kDocumentTypeStart)) {
    const std::size_t begin = m_at + kDocumentTypeStart.size();
    const std::size_t end = find('>', begin);
    m_at = std::min(end + 1, m_text.size());
    token.kind = TokenKind::documentType;
    token.written = m_text.substr(begin, end - begin);
    token.cutOff = end == m_text.size();
    return true;
  }
  if (m_cdataAllowed && rest.starts_with(kCdataStart)) {
    m_at += kCdataStart.size();
    m_content = Content::cdataSection;
    return content(token);
  }
  return bogusComment(token, m_at + 2);
}

bool Tokenizer::bogusComment(Token& token, std::size_t begin) {
  const std::size_t end = find('>', begin);
  m_at = std::min(end + 1, m_text.size());
  token.kind = TokenKind::comment;
  token.written = m_text.substr(begin, end - begin);
  return true;
}

bool Tokenizer::comment(Token& token, std::size_t begin) {
  const auto take = [&](std::string_view written, std::size_t endSize) {
    token.kind = TokenKind::comment;
    token.written = written.substr(0, written.size() - endSize);
    return true;
  };
  for (std::size_t at = begin; (at = find('>', at)) < m_text.size();) {
    const std::string_view written = m_text.substr(begin, at - begin);
    m_at = ++at;
    if (written.empty() || written == "-") return take(written, written.size());
    for (const std::string_view end : {"--", "--!"}) {
      if (written.ends_with(end)) return take(written, end.size());
    }
  }
  m_at = m_text.size();
  const std::string_view written = m_text.substr(begin);
  for (const std::string_view end : {"--!", "--", "-"}) {
    if (written.ends_with(end)) return take(written, end.size());
  }
  return take(written, 0);
}

}  // namespace web
