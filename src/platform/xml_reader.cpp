#include "platform/xml_reader.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <memory>
#include <string>

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/xmlerror.h>

#include "platform/phrases.h"

namespace platform {

namespace {

// The attributes of a tag are compared with each other one by one, so a long tag takes long.
constexpr std::size_t kMaxTagBytes = 16 << 10;

std::string_view view(const xmlChar* text) {
  return text == nullptr ? std::string_view{} : reinterpret_cast<const char*>(text);
}

/// What the parser's callbacks know. They are called from C, so nothing may be thrown through them.
struct Reading {
  XmlHandler& handler;
  std::vector<XmlAttribute> attributes = {};  // kept between elements to spare allocations
};

Reading& reading(void* context) {
  return *static_cast<Reading*>(context);
}

/// The library leaves each "&" that a value means as a reference, and nothing else.
std::string decodedValue(std::string_view value) {
  constexpr std::string_view kReference = "&#38;";
  std::string decoded;
  for (std::size_t at = 0; at < value.size();) {
    decoded += value[at];
    at += value.substr(at).starts_with(kReference) ? kReference.size() : 1;
  }
  return decoded;
}

void onStartElement(void* context, const xmlChar* name, const xmlChar*, const xmlChar* nameSpace, int,
                    const xmlChar**, int attributeCount, int, const xmlChar** attributes) {
  constexpr int kFieldsPerAttribute = 5;  // name, prefix, namespace, start and end of the value
  Reading& state = reading(context);
  state.attributes.clear();
  for (int i = 0; i < attributeCount; ++i) {
    const xmlChar** fields = attributes + i * kFieldsPerAttribute;
    const auto* value = reinterpret_cast<const char*>(fields[3]);
    const auto length = static_cast<std::size_t>(fields[4] - fields[3]);
    state.attributes.push_back({{view(fields[0]), view(fields[2])}, decodedValue({value, length})});
  }
  state.handler.startElement({view(name), view(nameSpace)}, state.attributes);
}

void onEndElement(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
  reading(context).handler.endElement();
}

void onText(void* context, const xmlChar* text, int length) {
  reading(context).handler.text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
}

void onDocumentType(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
  reading(context).handler.documentType();
}

void onError(void* context, xmlErrorPtr error) {
  if (error->level == XML_ERR_WARNING) return;
  std::string message =
      error->message == nullptr ? Phrases::tr("The text is not well-formed") : error->message;
  // What the parser says of the commonest faults needs a reader who knows its inside.
  const bool noName = error->code == XML_ERR_NAME_REQUIRED;
  if (error->code == XML_ERR_ENTITYREF_SEMICOL_MISSING ||
      (noName && message.starts_with("xmlParseEntityRef"))) {
    message = Phrases::tr("A bare \"&\" stands in the text");
  } else if (noName && message.starts_with("StartTag")) {
    message = Phrases::tr("A bare \"<\" stands in the text");
  }
  while (!message.empty() && (message.back() == '\n' || message.back() == ' ')) message.pop_back();
  reading(context).handler.fault(error->line, message);
}

xmlSAXHandler makeCallbacks() {
  xmlSAXHandler callbacks{};
  callbacks.initialized = XML_SAX2_MAGIC;
  callbacks.startElementNs = onStartElement;
  callbacks.endElementNs = onEndElement;
  callbacks.characters = onText;
  callbacks.ignorableWhitespace = onText;
  callbacks.cdataBlock = onText;
  callbacks.internalSubset = onDocumentType;
  callbacks.serror = onError;
  return callbacks;
}

struct FreeContext {
  void operator()(xmlParserCtxtPtr context) const {
    // Declared entities are kept in a document all the same.
    xmlFreeDoc(context->myDoc);
    xmlFreeParserCtxt(context);
  }
};

/// Where the first start tag begins that is too long; the end of the text when none is.
std::size_t findLongTag(std::string_view text) {
  for (std::size_t at = 0; (at = text.find('<', at)) != std::string_view::npos;) {
    const std::size_t end = text.find_first_of("<>", at + 1);
    const bool isTag = at + 1 < text.size() && text[at + 1] != '!' && text[at + 1] != '?';
    if (isTag && std::min(end, text.size()) - at > kMaxTagBytes) return at;
    if (end == std::string_view::npos) break;
    at = end;
  }
  return text.size();
}

}  // namespace

void readXml(std::string_view utf8, XmlHandler& handler) {
  const std::string_view text = utf8.substr(0, findLongTag(utf8));
  if (text.size() > INT_MAX) return handler.fault(1, Phrases::tr("The text is too long to be read"));
  xmlInitParser();
  Reading state{handler};
  xmlSAXHandler callbacks = makeCallbacks();
  const std::unique_ptr<xmlParserCtxt, FreeContext> parser(xmlCreateMemoryParserCtxt(
      text.empty() ? " " : text.data(), text.empty() ? 1 : static_cast<int>(text.size())));
  if (!parser) return handler.fault(1, Phrases::tr("There is not enough memory to read the text"));
  xmlCtxtUseOptions(parser.get(), XML_PARSE_RECOVER | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
  *parser->sax = callbacks;
  parser->userData = &state;
  xmlParseDocument(parser.get());
  if (text.size() < utf8.size())
    handler.fault(parser->input == nullptr ? 1 : parser->input->line, Phrases::tr("A tag is too long"));
}

}  // namespace platform
