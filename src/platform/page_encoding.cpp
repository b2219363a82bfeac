#include "platform/page_encoding.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "platform/ascii.h"

namespace platform {
namespace {

constexpr std::size_t kPrescanBytes = 1024;
constexpr std::size_t kHeadBytes = 64u << 10;

// The labels that browsers know. A few mean something else than they say, because pages do: Latin-1 is
// windows-1252, GB 2312 is GB 18030. Left out are the six labels of pages that browsers refuse to show, such
// as iso-2022-kr: their links are worth having.
constexpr Encoding kEncodings[] = {
    {EncodingForm::utf8, "utf-8",
     " unicode-1-1-utf-8 unicode11utf8 unicode20utf8 utf-8 utf8 x-unicode20utf8 "},
    {EncodingForm::singleByte, "ibm-866", " 866 cp866 csibm866 ibm866 "},
    {EncodingForm::singleByte, "iso-8859-2",
     " csisolatin2 iso-8859-2 iso-ir-101 iso8859-2 iso88592 iso_8859-2 iso_8859-2:1987 l2 latin2 "},
    {EncodingForm::singleByte, "iso-8859-3",
     " csisolatin3 iso-8859-3 iso-ir-109 iso8859-3 iso88593 iso_8859-3 iso_8859-3:1988 l3 latin3 "},
    {EncodingForm::singleByte, "iso-8859-4",
     " csisolatin4 iso-8859-4 iso-ir-110 iso8859-4 iso88594 iso_8859-4 iso_8859-4:1988 l4 latin4 "},
    {EncodingForm::singleByte, "iso-8859-5",
     " csisolatincyrillic cyrillic iso-8859-5 iso-ir-144 iso8859-5 iso88595 iso_8859-5 "
     "iso_8859-5:1988 "},
    {EncodingForm::singleByte, "iso-8859-6",
     " arabic asmo-708 csiso88596e csiso88596i csisolatinarabic ecma-114 iso-8859-6 iso-8859-6-e "
     "iso-8859-6-i iso-ir-127 iso8859-6 iso88596 iso_8859-6 iso_8859-6:1987 "},
    {EncodingForm::singleByte, "iso-8859-7",
     " csisolatingreek ecma-118 elot_928 greek greek8 iso-8859-7 iso-ir-126 iso8859-7 iso88597 "
     "iso_8859-7 iso_8859-7:1987 sun_eu_greek "},
    {EncodingForm::singleByte, "iso-8859-8",
     " csiso88598e csiso88598i csisolatinhebrew hebrew iso-8859-8 iso-8859-8-e iso-8859-8-i "
     "iso-ir-138 iso8859-8 iso88598 iso_8859-8 iso_8859-8:1988 logical visual "},
    {EncodingForm::singleByte, "iso-8859-10",
     " csisolatin6 iso-8859-10 iso-ir-157 iso8859-10 iso885910 l6 latin6 "},
    {EncodingForm::singleByte, "iso-8859-13", " iso-8859-13 iso8859-13 iso885913 "},
    {EncodingForm::singleByte, "iso-8859-14", " iso-8859-14 iso8859-14 iso885914 "},
    {EncodingForm::singleByte, "iso-8859-15",
     " csisolatin9 iso-8859-15 iso8859-15 iso885915 iso_8859-15 l9 "},
    {EncodingForm::latin10, nullptr, " iso-8859-16 "},
    {EncodingForm::singleByte, "koi8-r", " cskoi8r koi koi8 koi8-r koi8_r "},
    {EncodingForm::singleByte, "koi8-u", " koi8-ru koi8-u "},
    {EncodingForm::singleByte, "macintosh", " csmacintosh mac macintosh x-mac-roman "},
    {EncodingForm::singleByte, "windows-874",
     " dos-874 iso-8859-11 iso8859-11 iso885911 tis-620 windows-874 "},
    {EncodingForm::singleByte, "windows-1250", " cp1250 windows-1250 x-cp1250 "},
    {EncodingForm::singleByte, "windows-1251", " cp1251 windows-1251 x-cp1251 "},
    {EncodingForm::singleByte, "windows-1252",
     " ansi_x3.4-1968 ascii cp1252 cp819 csisolatin1 ibm819 iso-8859-1 iso-ir-100 iso8859-1 "
     "iso88591 iso_8859-1 iso_8859-1:1987 l1 latin1 us-ascii windows-1252 x-cp1252 "},
    {EncodingForm::singleByte, "windows-1253", " cp1253 windows-1253 x-cp1253 "},
    {EncodingForm::singleByte, "windows-1254",
     " cp1254 csisolatin5 iso-8859-9 iso-ir-148 iso8859-9 iso88599 iso_8859-9 iso_8859-9:1989 l5 "
     "latin5 windows-1254 x-cp1254 "},
    {EncodingForm::singleByte, "windows-1255", " cp1255 windows-1255 x-cp1255 "},
    {EncodingForm::singleByte, "windows-1256", " cp1256 windows-1256 x-cp1256 "},
    {EncodingForm::singleByte, "windows-1257", " cp1257 windows-1257 x-cp1257 "},
    {EncodingForm::singleByte, "windows-1258", " cp1258 windows-1258 x-cp1258 "},
    {EncodingForm::singleByte, "x-mac-cyrillic", " x-mac-cyrillic x-mac-ukrainian "},
    {EncodingForm::multiByte, "gb18030", " gb18030 "},
    {EncodingForm::gbk, "gb18030",
     " chinese csgb2312 csiso58gb231280 gb2312 gb_2312 gb_2312-80 gbk iso-ir-58 x-gbk "},
    {EncodingForm::multiByte, "Big5-HKSCS", " big5 big5-hkscs cn-big5 csbig5 x-x-big5 "},
    {EncodingForm::multiByte, "euc-jp", " cseucpkdfmtjapanese euc-jp x-euc-jp "},
    {EncodingForm::multiByte, "iso-2022-jp", " csiso2022jp iso-2022-jp "},
    {EncodingForm::multiByte, "windows-31j",
     " csshiftjis ms932 ms_kanji shift-jis shift_jis sjis windows-31j x-sjis "},
    {EncodingForm::multiByte, "windows-949",
     " cseuckr csksc56011987 euc-kr iso-ir-149 korean ks_c_5601-1987 ks_c_5601-1989 ksc5601 "
     "ksc_5601 windows-949 "},
    {EncodingForm::utf16, "utf-16be", " unicodefffe utf-16be "},
    {EncodingForm::utf16, "utf-16le",
     " csunicode iso-10646-ucs-2 ucs-2 unicode unicodefeff utf-16 utf-16le "},
    {EncodingForm::userDefined, nullptr, " x-user-defined "},
};

bool isBlank(char c) {
  return kBlanks.find(c) != std::string_view::npos;
}

}  // namespace

const Encoding* encodingLabelled(std::string_view label) {
  label = trimmed(label);
  if (label.empty() || label.find_first_of(kBlanks) != std::string_view::npos) return nullptr;
  const std::string wanted = ' ' + lowerAscii(label) + ' ';
  for (const Encoding& encoding : kEncodings) {
    if (encoding.labels.find(wanted) != std::string_view::npos) return &encoding;
  }
  return nullptr;
}

namespace {

/// The encoding that a declaration inside the document means.
const Encoding* encodingDeclared(std::string_view label) {
  const Encoding* encoding = encodingLabelled(label);
  if (encoding == nullptr) return nullptr;
  // The declaration was read as ASCII, so it cannot be true.
  if (encoding->form == EncodingForm::utf16) return encodingLabelled("utf-8");
  if (encoding->form == EncodingForm::userDefined) return encodingLabelled("windows-1252");
  return encoding;
}

// --- The Content-Type header ---

/// The value at the start of `text`, which is moved behind it: quoted, or up to the next ";".
std::string takeParameterValue(std::string_view& text) {
  std::string value;
  if (text.starts_with('"')) {
    std::size_t i = 1;
    for (; i < text.size() && text[i] != '"'; ++i) {
      if (text[i] == '\\' && i + 1 < text.size()) ++i;
      value += text[i];
    }
    text.remove_prefix(std::min(i + 1, text.size()));
  } else {
    value = trimmed(text.substr(0, text.find(';')));
  }
  text.remove_prefix(std::min(text.find(';'), text.size()));
  return value;
}

std::string headerCharset(std::string_view contentType) {
  contentType.remove_prefix(std::min(contentType.find(';'), contentType.size()));
  while (!contentType.empty()) {
    contentType.remove_prefix(1);  // the ";"
    const std::size_t nameEnd = std::min(contentType.find_first_of(";="), contentType.size());
    const std::string name = lowerAscii(trimmed(contentType.substr(0, nameEnd)));
    contentType.remove_prefix(nameEnd);
    if (!contentType.starts_with('=')) continue;
    contentType.remove_prefix(1);
    contentType.remove_prefix(std::min(contentType.find_first_not_of(kBlanks), contentType.size()));
    const std::string value = takeParameterValue(contentType);
    if (name == "charset") return value;
  }
  return {};
}

// --- Declarations in the document ---

struct Attribute {
  std::string name;
  std::string value;
};

/// Looks for a meta element that names the page's character set, the way browsers do it before they know how
/// to read the page: anywhere in its first bytes, and if there is none, in the rest of a long head.
class Prescan {
 public:
  enum class Where { start, head };

  Prescan(std::string_view page, Where where)
      : m_page(page.substr(0, where == Where::start ? kPrescanBytes : kHeadBytes)), m_where(where) {}

  const Encoding* encoding() {
    while ((m_at = std::min(m_page.find('<', m_at), m_page.size())) < m_page.size()) {
      if (startsWith("<!--")) {
        skipBehind("-->", 2);  // "<!-->" is a whole comment
      } else if (startsWith("<meta") && (isBlank(at(5)) || at(5) == '/')) {
        m_at += 5;
        if (const Encoding* encoding = metaEncoding()) return encoding;
      } else if (isAsciiLetter(at(1)) || (at(1) == '/' && isAsciiLetter(at(2)))) {
        const std::string tag = takeTag();
        if (m_where == Where::head && !staysInHead(tag)) return nullptr;
      } else if (startsWith("<!") || startsWith("</") || startsWith("<?")) {
        skipBehind(">", 2);
      } else {
        ++m_at;
      }
    }
    return m_where == Where::start ? xmlEncoding() : nullptr;
  }

 private:
  /// The name of the tag that begins here, in lower case, with the "/" of an end tag. The tag is passed.
  std::string takeTag() {
    const std::size_t start = ++m_at;
    while (m_at < m_page.size() && !isBlank(at(0)) && at(0) != '>') ++m_at;
    const std::string_view name = m_page.substr(start, m_at - start);
    while (nextAttribute()) continue;
    return lowerAscii(name.substr(0, name.find('/', 1)));
  }

  /// Whether the head goes on behind the tag that was passed.
  bool staysInHead(std::string_view tag) {
    constexpr std::string_view kTexts[] = {"noscript", "script", "style", "title"};
    constexpr std::string_view kElements[] = {"/object", "base", "head", "html", "link", "meta", "object"};
    const auto isOneOf = [](const auto& names, std::string_view name) {
      return std::find(std::begin(names), std::end(names), name) != std::end(names);
    };
    // What looks like a tag within them is none.
    if (isOneOf(kTexts, tag)) skipText("</" + std::string(tag));
    return isOneOf(kTexts, tag.substr(tag.starts_with('/') ? 1 : 0)) || isOneOf(kElements, tag);
  }

  void skipText(std::string_view endTag) {
    while (m_at < m_page.size() && !startsWith(endTag))
      m_at = std::min(m_page.find('<', m_at + 1), m_page.size());
  }

  /// The byte `ahead` of here; NUL behind the end.
  char at(std::size_t ahead) const { return m_at + ahead < m_page.size() ? m_page[m_at + ahead] : '\0'; }

  bool startsWith(std::string_view lower) const {
    return m_page.size() - m_at >= lower.size() && lowerAscii(m_page.substr(m_at, lower.size())) == lower;
  }

  void skipBehind(std::string_view end, std::size_t from) {
    const std::size_t found = m_page.find(end, m_at + from);
    m_at = found == std::string_view::npos ? m_page.size() : found + end.size();
  }

  void skipBlanks() {
    while (m_at < m_page.size() && isBlank(at(0))) ++m_at;
  }

  /// Nothing at the end of the tag.
  std::optional<Attribute> nextAttribute() {
    while (m_at < m_page.size() && (isBlank(at(0)) || at(0) == '/')) ++m_at;
    m_cutOff = m_at >= m_page.size();
    if (m_cutOff || at(0) == '>') {
      ++m_at;
      return std::nullopt;
    }
    Attribute attribute;
    // A "=" in front is part of the name.
    while (m_at < m_page.size() && !isBlank(at(0)) && at(0) != '/' && at(0) != '>' &&
           (at(0) != '=' || attribute.name.empty())) {
      attribute.name += lowerAscii(m_page[m_at++]);
    }
    skipBlanks();
    if (at(0) != '=') return attribute;
    ++m_at;
    skipBlanks();
    attribute.value = takeValue();
    return attribute;
  }

  std::string takeValue() {
    const char quote = at(0);
    const bool quoted = quote == '"' || quote == '\'';
    if (quoted) ++m_at;
    const std::string_view rest = m_page.substr(m_at);
    const std::size_t end =
        std::min(quoted ? rest.find(quote) : rest.find_first_of("\t\n\f\r >"), rest.size());
    m_at += end + (quoted ? 1 : 0);
    return lowerAscii(rest.substr(0, end));
  }

  /// What the meta element says whose attributes come next; null when it says nothing of use.
  const Encoding* metaEncoding() {
    std::optional<std::string> pragma;
    std::optional<std::string> charset;
    std::optional<std::string> content;
    while (const std::optional<Attribute> attribute = nextAttribute()) {
      if (attribute->name == "http-equiv" && !pragma) pragma = attribute->value;
      if (attribute->name == "charset" && !charset) charset = attribute->value;
      if (attribute->name == "content" && !content) content = attribute->value;
    }
    if (m_cutOff) return nullptr;  // its other attributes may say otherwise
    if (!charset && content && pragma == "content-type") charset = charsetInside(*content);
    return charset ? encodingDeclared(*charset) : nullptr;
  }

  /// The character set in the content attribute of a meta element, as in "text/html; charset=utf-8".
  static std::optional<std::string> charsetInside(std::string_view content) {
    constexpr std::string_view kName = "charset";
    for (std::size_t at = 0; (at = content.find(kName, at)) != std::string_view::npos;) {
      at += kName.size();
      std::string_view rest = content.substr(at);
      rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
      if (!rest.starts_with('=')) continue;
      rest.remove_prefix(1);
      rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
      if (!rest.starts_with('"') && !rest.starts_with('\'')) {
        return std::string(rest.substr(0, rest.find_first_of("\t\n\f\r ;")));
      }
      const std::size_t end = rest.find(rest[0], 1);
      if (end == std::string_view::npos) return std::nullopt;
      return std::string(rest.substr(1, end - 1));
    }
    return std::nullopt;
  }

  /// What the XML declaration of a page says that has no meta element.
  const Encoding* xmlEncoding() const {
    if (!m_page.starts_with("<?xml")) return nullptr;
    std::string_view declaration = m_page.substr(0, m_page.find('>'));
    constexpr std::string_view kName = "encoding";
    const std::size_t name = declaration.find(kName);
    if (name == std::string_view::npos) return nullptr;
    declaration = trimmed(declaration.substr(name + kName.size()));
    if (!declaration.starts_with('=')) return nullptr;
    declaration = trimmed(declaration.substr(1));
    if (!declaration.starts_with('"') && !declaration.starts_with('\'')) return nullptr;
    const std::size_t end = declaration.find(declaration[0], 1);
    if (end == std::string_view::npos) return nullptr;
    return encodingDeclared(declaration.substr(1, end - 1));
  }

  std::string_view m_page;
  Where m_where;
  std::size_t m_at = 0;
  bool m_cutOff = false;  // the page's start ended within a tag
};

}  // namespace

PageEncoding pageEncoding(std::string_view bytes, std::string_view contentType) {
  if (bytes.starts_with("\xEF\xBB\xBF")) return {encodingLabelled("utf-8"), 3};
  if (bytes.starts_with("\xFF\xFE")) return {encodingLabelled("utf-16le"), 2};
  if (bytes.starts_with("\xFE\xFF")) return {encodingLabelled("utf-16be"), 2};
  if (const Encoding* named = encodingLabelled(headerCharset(contentType))) return {named};
  for (const auto where : {Prescan::Where::start, Prescan::Where::head}) {
    if (const Encoding* declared = Prescan(bytes, where).encoding()) return {declared};
  }
  return {encodingLabelled("windows-1252")};
}

}  // namespace platform
