#include "web/elements.h"

#include <cstddef>

#include "web/html_text.h"
#include "web/tag_letters.h"

namespace web {

namespace {

constexpr std::uint64_t packed(std::string_view name) {
  return packedLetters(name);
}

Element elementOfLongName(std::string_view written) {
  if (isNamed(written, "plaintext")) return Element::plaintext;
  if (isNamed(written, "foreignobject")) return Element::foreignObject;
  if (isNamed(written, "annotation-xml")) return Element::annotationXml;
  return Element::other;
}

Element elementOf(std::string_view written, std::uint64_t letters) {
  if (written.size() > kPackedLetters) return elementOfLongName(written);
  switch (letters) {
    case packed("a"):
      return Element::anchor;
    case packed("applet"):
      return Element::applet;
    case packed("area"):
      return Element::area;
    case packed("base"):
      return Element::base;
    case packed("button"):
      return Element::button;
    case packed("caption"):
      return Element::caption;
    case packed("td"):
      return Element::cell;
    case packed("col"):
    case packed("colgroup"):
      return Element::column;
    case packed("desc"):
      return Element::desc;
    case packed("frame"):
      return Element::frame;
    case packed("th"):
      return Element::headerCell;
    case packed("iframe"):
      return Element::iframe;
    case packed("img"):
      return Element::image;
    case packed("image"):
      return Element::imageOldName;
    case packed("link"):
      return Element::link;
    case packed("marquee"):
      return Element::marquee;
    case packed("math"):
      return Element::math;
    case packed("mi"):
    case packed("mo"):
    case packed("mn"):
    case packed("ms"):
    case packed("mtext"):
      return Element::mathText;
    case packed("meta"):
      return Element::meta;
    case packed("object"):
      return Element::object;
    case packed("br"):
      return Element::br;
    case packed("p"):
      return Element::paragraph;
    case packed("listing"):
    case packed("pre"):
      return Element::preformatted;
    case packed("noembed"):
    case packed("style"):
    case packed("xmp"):
      return Element::rawtext;
    case packed("script"):
      return Element::script;
    case packed("svg"):
      return Element::svg;
    case packed("table"):
      return Element::table;
    case packed("tbody"):
    case packed("tfoot"):
    case packed("thead"):
    case packed("tr"):
      return Element::tablePart;
    case packed("template"):
      return Element::templateElement;
    case packed("textarea"):
      return Element::textarea;
    case packed("title"):
      return Element::title;
    default:
      return Element::other;
  }
}

}  // namespace

ElementName::ElementName(const Token& tag)
    : m_written(tag.name), m_letters(tag.nameLetters), m_element(elementOf(m_written, m_letters)) {}

bool ElementName::isOnlyHtml() const {
  if (m_written.size() > kPackedLetters) return isNamed(m_written, "blockquote");
  switch (m_letters) {
    case packed("b"):
    case packed("big"):
    case packed("body"):
    case packed("br"):
    case packed("center"):
    case packed("code"):
    case packed("dd"):
    case packed("div"):
    case packed("dl"):
    case packed("dt"):
    case packed("em"):
    case packed("embed"):
    case packed("h1"):
    case packed("h2"):
    case packed("h3"):
    case packed("h4"):
    case packed("h5"):
    case packed("h6"):
    case packed("head"):
    case packed("hr"):
    case packed("i"):
    case packed("img"):
    case packed("li"):
    case packed("listing"):
    case packed("menu"):
    case packed("meta"):
    case packed("nobr"):
    case packed("ol"):
    case packed("p"):
    case packed("pre"):
    case packed("ruby"):
    case packed("s"):
    case packed("small"):
    case packed("span"):
    case packed("strike"):
    case packed("strong"):
    case packed("sub"):
    case packed("sup"):
    case packed("table"):
    case packed("tt"):
    case packed("u"):
    case packed("ul"):
    case packed("var"):
      return true;
    default:
      return false;
  }
}

bool ElementName::isPlain() const {
  if (m_element == Element::paragraph || m_element == Element::preformatted) return true;
  if (m_element != Element::other) return false;
  if (m_written.size() > kPackedLetters) return true;
  switch (m_letters) {
    case packed("body"):  // what comes behind is put in front of it
    case packed("form"):  // what is in it goes on
    case packed("head"):
    case packed("html"):
    case packed("embed"):  // these have no end
    case packed("hr"):
    case packed("input"):
    case packed("keygen"):
    case packed("param"):
    case packed("source"):
    case packed("track"):
    case packed("wbr"):
      return false;
    default:
      return true;
  }
}

std::uint16_t ElementName::key() const {
  constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;  // the golden ratio's digits leave no pattern
  return static_cast<std::uint16_t>(((m_letters ^ m_written.size()) * kSpread) >> 54);
}

}  // namespace web
