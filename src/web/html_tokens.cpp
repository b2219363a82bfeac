#include "web/html_tokens.h"

#include <algorithm>

#include "platform/ascii.h"
#include "web/attributes.h"
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

bool startsWithAnyCase(std::string_view text, std::string_view lower) {
  return isNamed(text.substr(0, lower.size()), lower);
}

constexpr std::string_view kCommentStart = "<!--";
constexpr std::string_view kCdataStart = "<![CDATA[";
constexpr std::string_view kCdataEnd = "]]>";
constexpr std::string_view kDocumentTypeStart = "<!doctype";

}  // namespace

Token Tokenizer::next() {
  if (m_content != Content::markup) {
    if (const auto token = content()) return *token;
  }
  while (m_at < m_text.size()) {
    if (!beginsMarkup(m_at)) return textUntilMarkup();
    if (const auto token = markup()) return *token;
  }
  return {};
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

/// Nothing when the text is empty.
std::optional<Token> Tokenizer::content() {
  const std::size_t begin = m_at;
  const std::size_t end = contentEnd();
  const Token token = {
      .kind = TokenKind::text, .written = m_text.substr(begin, end - begin), .form = formOf(m_content)};
  m_at = end;
  if (m_content == Content::cdataSection) m_at = std::min(end + kCdataEnd.size(), m_text.size());
  if (m_content != Content::plaintext) m_content = Content::markup;
  if (begin == end) return std::nullopt;
  return token;
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
    return end < m_text.size() && startsWithAnyCase(m_text.substr(at), start) && endsTagName(m_text[end]);
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

Token Tokenizer::textUntilMarkup() {
  const std::size_t begin = m_at;
  do {
    m_at = find('<', m_at + 1);
  } while (m_at < m_text.size() && !beginsMarkup(m_at));
  return {.kind = TokenKind::text, .written = m_text.substr(begin, m_at - begin)};
}

/// Nothing for "</>" and for a tag that the document ends within.
std::optional<Token> Tokenizer::markup() {
  const char first = m_text[m_at + 1];
  if (first == '!') return declaration();
  if (first == '?') return bogusComment(m_at + 1);
  if (first != '/') return tag(TokenKind::startTag, m_at + 1);
  const char second = m_text[m_at + 2];
  if (platform::isAsciiLetter(second)) return tag(TokenKind::endTag, m_at + 2);
  if (second != '>') return bogusComment(m_at + 2);
  m_at += 3;
  return std::nullopt;
}

std::optional<Token> Tokenizer::tag(TokenKind kind, std::size_t nameAt) {
  std::size_t nameEnd = nameAt;
  while (nameEnd < m_text.size() && !endsTagName(m_text[nameEnd])) ++nameEnd;
  AttributeReader attributes(m_text.substr(nameEnd));
  for (Attribute attribute; attributes.next(attribute);) continue;
  m_at = nameEnd + attributes.size();
  if (m_at == m_text.size()) return std::nullopt;
  ++m_at;
  return Token{.kind = kind,
               .written = m_text.substr(nameEnd, attributes.size()),
               .name = m_text.substr(nameAt, nameEnd - nameAt),
               .selfClosing = attributes.selfClosing()};
}

std::optional<Token> Tokenizer::declaration() {
  const std::string_view rest = m_text.substr(m_at);
  if (rest.starts_with(kCommentStart)) return comment(m_at + kCommentStart.size());
  if (startsWithAnyCase(rest, kDocumentTypeStart)) {
    const std::size_t begin = m_at + kDocumentTypeStart.size();
    const std::size_t end = find('>', begin);
    m_at = std::min(end + 1, m_text.size());
    return Token{.kind = TokenKind::documentType,
                 .written = m_text.substr(begin, end - begin),
                 .cutOff = end == m_text.size()};
  }
  if (m_cdataAllowed && rest.starts_with(kCdataStart)) {
    m_at += kCdataStart.size();
    m_content = Content::cdataSection;
    return content();
  }
  return bogusComment(m_at + 2);
}

Token Tokenizer::bogusComment(std::size_t begin) {
  const std::size_t end = find('>', begin);
  m_at = std::min(end + 1, m_text.size());
  return {.kind = TokenKind::comment, .written = m_text.substr(begin, end - begin)};
}

Token Tokenizer::comment(std::size_t begin) {
  const auto commentOf = [&](std::string_view written, std::string_view end) {
    return Token{.kind = TokenKind::comment, .written = written.substr(0, written.size() - end.size())};
  };
  for (std::size_t at = begin; (at = find('>', at)) < m_text.size();) {
    const std::string_view written = m_text.substr(begin, at - begin);
    m_at = ++at;
    if (written.empty() || written == "-") return commentOf(written, written);
    for (const std::string_view end : {"--", "--!"}) {
      if (written.ends_with(end)) return commentOf(written, end);
    }
  }
  m_at = m_text.size();
  const std::string_view written = m_text.substr(begin);
  for (const std::string_view end : {"--!", "--", "-"}) {
    if (written.ends_with(end)) return commentOf(written, end);
  }
  return commentOf(written, {});
}

}  // namespace web
