#include "web/page_reader.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "web/anchor_bounds.h"
#include "web/attributes.h"
#include "web/elements.h"
#include "web/html_text.h"
#include "web/html_tokens.h"
#include "web/open_scopes.h"

namespace web {

namespace {

/// An image's name is looked for in its markup, which takes several copies.
constexpr std::size_t kMaxImageMarkup = 4u << 20;

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

/// What an HTML element holds that is begun by a tag of this kind.
Content contentOf(Element element) {
  switch (element) {
    case Element::script:
      return Content::script;
    case Element::iframe:
    case Element::rawtext:
      return Content::rawtext;
    case Element::textarea:
    case Element::title:
      return Content::rcdata;
    case Element::plaintext:
      return Content::plaintext;
    default:
      return Content::markup;
  }
}

/// In SVG and MathML, a font is HTML's by its attributes.
bool endsForeign(const Token& tag, const ElementName& name) {
  if (name.isOnlyHtml()) return true;
  if (!isNamed(tag.name, "font")) return false;
  TagAttributes attributes(tag);
  for (Attribute each; attributes.next(each);) {
    for (const std::string_view own : {"color", "face", "size"}) {
      if (isNamed(each.name, own)) return true;
    }
  }
  return false;
}

bool saysHtml(const Token& annotation) {
  TagAttributes attributes(annotation);
  for (Attribute each; attributes.next(each);) {
    if (!isNamed(each.name, "encoding")) continue;
    std::string value;
    appendAttributeValue(value, each.value);
    return isNamed(value, "text/html") || isNamed(value, "application/xhtml+xml");
  }
  return false;
}

void appendQuoted(std::string& to, std::string_view value) {
  const bool hasDouble = value.find('"') != std::string_view::npos;
  const char quote = hasDouble && value.find('\'') == std::string_view::npos ? '\'' : '"';
  to += quote;
  for (const char c : value) {
    if (c == '&') {
      to += "&amp;";
    } else if (c == quote) {
      to += "&quot;";
    } else {
      to += c;
    }
  }
  to += quote;
}

std::string imageMarkup(std::string_view attributes) {
  std::string markup = "<img";
  if (attributes.size() > kMaxImageMarkup) return {};
  std::string value;
  for (const Attribute& each : attributesOf(attributes)) {
    markup += ' ';
    appendName(markup, each.name);
    markup += '=';
    value.clear();
    appendAttributeValue(value, each.value);
    appendQuoted(markup, value);
  }
  return markup += '>';
}

class PageReader {
 public:
  PageReader(std::string_view markup, PageHandler& handler) : m_tokenizer(markup), m_handler(handler) {}

  std::optional<std::string> read() {
    for (Token token; m_tokenizer.next(token);) {
      switch (token.kind) {
        case TokenKind::text:
          text(token);
          break;
        case TokenKind::startTag:
          startTag(token);
          break;
        case TokenKind::endTag:
          endTag(token);
          break;
        case TokenKind::comment:
          comment();
          break;
        default:
          break;
      }
    }
    closeAnchor();
    return m_title ? std::move(m_title) : std::move(m_drawnTitle);
  }

 private:
  void startTag(const Token& tag) {
    const ElementName name(tag);
    const Element element = name.element();
    m_skipsLineFeed = false;
    if (m_scopes.inForeign() && endsForeign(tag, name)) m_scopes.leaveForeign();
    const bool hidden = m_scopes.inTemplate();
    const bool inSvg = m_scopes.inSvg();
    const bool foreign = m_scopes.inForeign();
    if (foreign) {
      m_scopes.startForeign(element, tag.selfClosing, element == Element::annotationXml && saysHtml(tag));
    } else {
      m_scopes.startHtml(element, tag.selfClosing);
      if (const Content content = contentOf(element); content != Content::markup) {
        m_tokenizer.readContent(content, tag.name);
      }
      m_skipsLineFeed = element == Element::preformatted || element == Element::textarea;
    }
    settleScopes();
    if (hidden) return;
    if (atAnchorsLevel() && !(foreign && tag.selfClosing)) m_bounds.start(name);
    startChild(element, tag, foreign);
    if (!foreign) tellMark(element, tag);
    if (element == Element::anchor) openAnchor(tag, foreign);
    if (element == Element::title) openTitle(foreign, inSvg && !tag.selfClosing);
  }

  void endTag(const Token& tag) {
    const ElementName name(tag);
    const Element element = name.element();
    m_skipsLineFeed = false;
    if (atAnchorsLevel() && m_bounds.end(name)) closeAnchor();
    if (element == Element::title && m_openTitle == &m_title) m_openTitle = nullptr;
    if (element == Element::anchor && m_isOpen && atAnchorsLevel()) {
      if (!m_anchorForeign) m_scopes.leaveForeign();
      closeAnchor();
    }
    m_scopes.end(element);
    settleScopes();
  }

  /// Whether an end tag here could end the anchor in hand, or what it began in.
  bool atAnchorsLevel() const { return !m_isOpen || m_scopes.reaches(m_anchorMark); }

  void comment() {
    m_skipsLineFeed = false;
    if (!m_scopes.inTemplate()) settleFirstChild(FirstChild::other);
  }

  /// After the scopes have changed.
  void settleScopes() {
    m_tokenizer.allowCdata(m_scopes.allowsCdata());
    if (m_isOpen && !m_scopes.holds(m_anchorMark)) closeAnchor();
    if (m_openTitle == &m_drawnTitle && !m_scopes.holds(m_titleMark)) m_openTitle = nullptr;
  }

  void text(const Token& token) {
    std::string_view written = token.written;
    if (std::exchange(m_skipsLineFeed, false)) {
      const bool both = written.starts_with("\r\n");
      if (both || written.front() == '\r' || written.front() == '\n') written.remove_prefix(both ? 2 : 1);
    }
    if ((!m_isOpen && m_openTitle == nullptr) || written.empty() || m_scopes.inTemplate()) return;
    if (written.find('\0') != std::string_view::npos && token.form == TextForm::data) {
      textWithNuls(written);
    } else {
      textPiece(written, token.form);
    }
  }

  /// HTML drops U+0000; SVG and MathML show a sign for it.
  void textWithNuls(std::string_view written) {
    while (!written.empty()) {
      const std::size_t end = std::min(written.find('\0'), written.size());
      if (end > 0) textPiece(written.substr(0, end), TextForm::data);
      if (end < written.size() && m_scopes.inForeign()) textPiece(kReplacement, TextForm::data);
      written.remove_prefix(std::min(end + 1, written.size()));
    }
  }

  void textPiece(std::string_view written, TextForm form) {
    settleFirstChild(FirstChild::other);
    if (m_isOpen) appendText(m_anchor.text, written, form);
    if (m_openTitle != nullptr) appendText(**m_openTitle, written, form);
  }

  void startChild(Element element, const Token& tag, bool foreign) {
    const bool isImage = !foreign && (element == Element::image || element == Element::imageOldName);
    if (isImage && m_isOpen && m_anchor.firstImage.data() == nullptr) m_anchor.firstImage = tag.written;
    settleFirstChild(isImage ? FirstChild::image : FirstChild::other);
  }

  void tellMark(Element element, const Token& tag) {
    switch (element) {
      case Element::area:
        return m_handler.mark(PageMark::area, tag.written);
      case Element::base:
        return m_handler.mark(PageMark::base, tag.written);
      case Element::frame:
      case Element::iframe:
        return m_handler.mark(PageMark::frame, tag.written);
      case Element::image:
      case Element::imageOldName:
        return m_handler.mark(PageMark::image, tag.written);
      case Element::script:
        return m_handler.mark(PageMark::script, tag.written);
      case Element::link:
        return m_handler.mark(PageMark::link, tag.written);
      case Element::meta:
        return m_handler.mark(PageMark::meta, tag.written);
      default:
        return;
    }
  }

  void settleFirstChild(FirstChild kind) {
    if (!m_awaitsFirstChild) return;
    m_anchor.firstChild = kind;
    m_awaitsFirstChild = false;
  }

  void openTitle(bool foreign, bool drawn) {
    if (!foreign && !m_title) {
      m_title.emplace();
      m_openTitle = &m_title;
    } else if (drawn && !m_title && !m_drawnTitle) {
      m_drawnTitle.emplace();
      m_openTitle = &m_drawnTitle;
      m_titleMark = m_scopes.mark();
    }
  }

  void openAnchor(const Token& tag, bool foreign) {
    closeAnchor();
    m_isOpen = true;
    m_anchorForeign = foreign;
    m_anchorMark = m_scopes.mark();
    m_bounds.beginAnchor();
    m_awaitsFirstChild = true;
    // Nobody may have moved out of it; its texts keep their room.
    m_anchor.text.clear();
    m_anchor.attributes = tag.written;
    m_anchor.firstImage = {};
    m_anchor.name.clear();
    m_anchor.firstChild = FirstChild::none;
    bool hasHref = false;
    bool hasName = false;
    TagAttributes attributes(tag);
    for (Attribute each; attributes.next(each);) {
      if (!hasHref && isNamed(each.name, "href")) {
        hasHref = true;
        if (!m_anchor.href) m_anchor.href.emplace();
        m_anchor.href->clear();
        appendAttributeValue(*m_anchor.href, each.value);
      } else if (!hasName && isNamed(each.name, "name")) {
        hasName = true;
        appendAttributeValue(m_anchor.name, each.value);
      }
    }
    if (!hasHref) m_anchor.href.reset();
    if (foreign && tag.selfClosing) closeAnchor();
  }

  void closeAnchor() {
    if (!m_isOpen) return;
    m_isOpen = false;
    m_bounds.endAnchor();
    m_awaitsFirstChild = false;
    const bool hasImageOnly =
        m_anchor.firstChild == FirstChild::image && m_anchor.text.empty() && m_anchor.name.empty();
    m_anchor.imageMarkup = hasImageOnly ? imageMarkup(m_anchor.firstImage) : std::string();
    m_handler.anchor(std::move(m_anchor));
  }

  Tokenizer m_tokenizer;
  PageHandler& m_handler;
  OpenScopes m_scopes;
  AnchorBounds m_bounds;
  bool m_skipsLineFeed = false;

  AnchorElement m_anchor;
  OpenScopes::Mark m_anchorMark = {};
  bool m_isOpen = false;            // m_anchor
  bool m_anchorForeign = false;     // it is SVG's or MathML's
  bool m_awaitsFirstChild = false;  // nothing has come since it began

  std::optional<std::string> m_title;
  std::optional<std::string> m_drawnTitle;
  std::optional<std::string>* m_openTitle = nullptr;  // which of the two is being read
  OpenScopes::Mark m_titleMark = {};                  // of the drawn one
};

}  // namespace

std::optional<std::string> attributeValue(std::string_view attributes, std::string_view name) {
  AttributeReader reader(attributes);
  for (Attribute each; reader.next(each);) {
    if (!isNamed(each.name, name)) continue;
    std::string value;
    appendAttributeValue(value, each.value);
    return value;
  }
  return {};
}

std::optional<std::string> readPage(std::string_view markup, PageHandler& handler) {
  return PageReader(markup, handler).read();
}

}  // namespace web
