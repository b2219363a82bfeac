// The tokens of an HTML document, exactly as the HTML Standard's tokenizer makes them.
//
// A token is a few ranges of the document's text. Nothing is copied or read twice: what a range means is told
// by web/html_text.h, a tag's attributes by web/attributes.h, and whoever needs neither pays for neither.
// Every document takes time in proportion to its length, and no memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "web/attributes.h"
#include "web/html_text.h"

namespace web {

enum class TokenKind { text, startTag, endTag, comment, documentType, end };

/// What does not belong to its kind may be anything.
struct Token {
  TokenKind kind = TokenKind::end;
  /// As written. text: not empty; neighbouring pieces are one text. comment: read it as TextForm::rawtext.
  /// Tags: what stands between name and ">" (web/attributes.h). documentType: what stands behind the word,
  /// unread: nothing here asks for it.
  std::string_view written = {};
  std::string_view name = {};      // of a tag, as written
  TextForm form = TextForm::data;  // of a text
  bool selfClosing = false;        // of a tag: it ends with "/>"
  bool cutOff = false;             // of a documentType: the document ended within it

  // What the tokenizer has met anyway on its way to a tag's end; ElementName and TagAttributes make use of
  // it.
  static constexpr std::size_t kKept = 6;
  std::uint64_t nameLetters = 0;           // packedLetters() of the name
  std::uint8_t keptAttributes = 0;         // how many of the next
  std::array<Attribute, kKept> kept = {};  // the first attributes
  std::size_t keptSize = 0;                // how far into `written` they reach
};

/// The attributes of a tag one by one, as AttributeReader gives them.
class TagAttributes {
 public:
  explicit TagAttributes(const Token& tag) : m_tag(tag), m_rest(tag.written.substr(tag.keptSize)) {}

  bool next(Attribute& attribute) {
    if (m_next == m_tag.keptAttributes) return m_next == Token::kKept && m_rest.next(attribute);
    attribute = m_tag.kept[m_next++];
    return true;
  }

 private:
  const Token& m_tag;
  AttributeReader m_rest;
  std::size_t m_next = 0;
};

/// What an element holds: the tags that it begins and ends with look the same, what is in between does not.
enum class Content {
  markup,
  rcdata,       // text with references, up to the element's end tag
  rawtext,      // text without
  script,       // text without, in which "<!--" and "<script>" may hide an end tag
  plaintext,    // text up to the end of the document
  cdataSection  // text up to "]]>"
};

class Tokenizer {
 public:
  /// `text` is UTF-8 without a byte-order mark, and has to stay as long as the tokens are used.
  explicit Tokenizer(std::string_view text) : m_text(text) {}

  /// After the end it gives TokenKind::end again and again.
  Token next() {
    Token token;
    next(token);
    return token;
  }

  /// The same without a copy; false at the end.
  bool next(Token& token);

  /// Has the text that follows read as the content of the element `name` (in any case), whose start tag came
  /// last. Markup again behind its end; without a name nothing ends it.
  void readContent(Content content, std::string_view name);

  /// Whether "<![CDATA[" begins a section, as it does within SVG and MathML; a comment otherwise.
  void allowCdata(bool allowed) { m_cdataAllowed = allowed; }

 private:
  bool content(Token& token);
  std::size_t contentEnd() const;
  std::size_t scriptEnd() const;
  bool isEndTag(std::size_t at) const;
  bool beginsMarkup(std::size_t at) const;
  bool textUntilMarkup(Token& token);
  bool markup(Token& token);
  bool tag(Token& token, TokenKind kind, std::size_t nameAt);
  bool declaration(Token& token);
  bool comment(Token& token, std::size_t begin);
  bool bogusComment(Token& token, std::size_t begin);

  std::size_t find(char c, std::size_t from) const;

  std::string_view m_text;
  std::size_t m_at = 0;
  bool m_cdataAllowed = false;
  Content m_content = Content::markup;
  std::string_view m_contentName = {};
};

}  // namespace web
