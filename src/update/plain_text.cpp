#include "update/plain_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/ascii.h"
#include "web/html_text.h"
#include "web/html_tokens.h"

namespace update {

namespace {

using web::Content;
using web::Token;
using web::TokenKind;

constexpr std::string_view kCutOff = "\n...";

// All sorted.
constexpr std::array<std::string_view, 33> kBlocks = {
    "address", "article", "aside", "blockquote", "body",   "br",     "caption", "dd",   "details",
    "div",     "dl",      "dt",    "figcaption", "figure", "footer", "form",    "head", "header",
    "hr",      "html",    "li",    "main",       "nav",    "ol",     "p",       "pre",  "section",
    "summary", "table",   "tbody", "thead",      "tr",     "ul"};
constexpr std::array<std::string_view, 8> kParagraphs = {"h1", "h2", "h3", "h4", "h5", "h6", "p", "table"};
constexpr std::array<std::string_view, 6> kRawtext = {"iframe", "noembed", "noframes",
                                                      "script", "style",   "xmp"};
static_assert(std::is_sorted(kBlocks.begin(), kBlocks.end()));
static_assert(std::is_sorted(kParagraphs.begin(), kParagraphs.end()));
static_assert(std::is_sorted(kRawtext.begin(), kRawtext.end()));

template <typename Names>
bool contains(const Names& names, std::string_view name) {
  return std::binary_search(names.begin(), names.end(), name);
}

bool isTag(const Token& token) {
  return token.kind == TokenKind::startTag || token.kind == TokenKind::endTag;
}

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

bool isBlank(char c) {
  return platform::kBlanks.find(c) != std::string_view::npos;
}

/// Puts lines together.
class Lines {
 public:
  void text(std::string_view text, bool keepsBlanks) {
    for (const char c : text) {
      if (keepsBlanks && c == '\n') {
        ++m_breaks;
      } else if (isBlank(c) && !keepsBlanks) {
        m_blank = true;
      } else if (!isControl(c) || c == '\t') {
        put(c == '\t' ? ' ' : c);
      }
    }
  }

  /// What comes next stands on a line of its own, behind so many line ends at least.
  void lineEnds(int count) {
    if (!m_mark.empty()) return;  // a paragraph in an entry of a list
    m_breaks = std::max(m_breaks, count);
    m_blank = false;
  }

  /// Begins a line with this; without it only a line.
  void mark(std::string_view mark) {
    m_mark = {};
    lineEnds(1);
    m_mark = mark;
  }

  std::size_t size() const { return m_lines.size(); }
  std::string take() { return std::move(m_lines); }

 private:
  void put(char c) {
    const bool isFirst = m_lines.empty();
    if (m_breaks > 0) {
      if (!isFirst) m_lines.append(static_cast<std::size_t>(std::min(m_breaks, 2)), '\n');
    } else if (m_blank && !isFirst && m_mark.empty()) {
      m_lines += ' ';
    }
    m_lines += m_mark;
    m_lines += c;
    m_breaks = 0;
    m_blank = false;
    m_mark = {};
  }

  std::string m_lines;
  int m_breaks = 0;  // wanted in front of what comes
  bool m_blank = false;
  std::string_view m_mark = {};
};

/// Behind the last character that fits.
std::string bounded(std::string text, std::size_t maxBytes) {
  if (text.size() <= maxBytes) return text;
  std::size_t end = maxBytes;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0u) == 0x80u) --end;
  text.resize(end);
  return text.append(kCutOff);
}

/// Reads the tags of one document.
class Notes {
 public:
  explicit Notes(std::string_view html) : m_tokens(html) {}

  std::string read(std::size_t maxBytes) {
    for (Token token; m_tokens.next(token) && m_lines.size() <= maxBytes;) {
      if (token.kind == TokenKind::text && !m_isUnread) {
        std::string piece;
        web::appendText(piece, token.written, token.form);
        m_lines.text(piece, m_preformatted > 0);
      } else if (isTag(token)) {
        tag(token);
      }
    }
    return bounded(m_lines.take(), maxBytes);
  }

 private:
  void tag(const Token& token) {
    std::string name;
    web::appendName(name, token.name);
    const bool begins = token.kind == TokenKind::startTag;
    m_isUnread = begins && readContent(name);
    if (name == "pre") m_preformatted = std::max(0, m_preformatted + (begins ? 1 : -1));
    if (name == "li") return m_lines.mark(begins ? "- " : "");
    if (name == "td" || name == "th") return m_lines.text(" ", false);
    if (contains(kParagraphs, name)) return m_lines.lineEnds(2);
    if (contains(kBlocks, name)) m_lines.lineEnds(1);
  }

  /// Whether the element holds what is no text.
  bool readContent(const std::string& name) {
    if (name == "title" || name == "textarea") {
      m_tokens.readContent(Content::rcdata, name);
    } else if (contains(kRawtext, name)) {
      m_tokens.readContent(name == "script" ? Content::script : Content::rawtext, name);
    } else {
      return false;
    }
    return name != "textarea" && name != "xmp";
  }

  web::Tokenizer m_tokens;
  Lines m_lines;
  int m_preformatted = 0;
  bool m_isUnread = false;  // up to the next tag
};

bool hasTags(std::string_view html) {
  web::Tokenizer tokens(html);
  for (Token token; tokens.next(token);) {
    if (isTag(token)) return true;
  }
  return false;
}

}  // namespace

std::string textOfHtml(std::string_view html, std::size_t maxBytes) {
  if (hasTags(html)) return Notes(html).read(maxBytes);
  std::string text;
  web::appendText(text, html, web::TextForm::data);
  return textOfPlain(text, maxBytes);
}

std::string textOfPlain(std::string_view text, std::size_t maxBytes) {
  std::string read;
  web::appendText(read, text, web::TextForm::rawtext);  // its line ends
  std::string lines;
  for (const char c : platform::trimmed(read)) {
    if (!isControl(c) || c == '\n' || c == '\t') lines += c == '\t' ? ' ' : c;
  }
  return bounded(std::move(lines), maxBytes);
}

}  // namespace update
