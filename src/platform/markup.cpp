#include "platform/markup.h"

#include <limits>
#include <memory>

#include <libxml/HTMLparser.h>
#include <libxml/HTMLtree.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

namespace platform {

namespace {

std::string_view view(const xmlChar* text) {
  return text == nullptr ? std::string_view{} : reinterpret_cast<const char*>(text);
}

const xmlChar* xmlText(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

/// What the parser's callbacks know. They are called from C, so nothing may be thrown through them.
struct Reading {
  MarkupHandler& handler;
  std::vector<MarkupAttribute> attributes = {};  // kept between elements to spare allocations
};

Reading& reading(void* context) {
  return *static_cast<Reading*>(context);
}

void onStartElement(void* context, const xmlChar* name, const xmlChar** attributes) {
  Reading& state = reading(context);
  state.attributes.clear();
  for (; attributes != nullptr && attributes[0] != nullptr; attributes += 2) {
    state.attributes.push_back({view(attributes[0]), view(attributes[1])});
  }
  state.handler.startElement(view(name), state.attributes);
}

void onEndElement(void* context, const xmlChar* name) {
  reading(context).handler.endElement(view(name));
}

void onText(void* context, const xmlChar* text, int length) {
  reading(context).handler.text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
}

void onComment(void* context, const xmlChar*) {
  reading(context).handler.otherNode();
}

void onInstruction(void* context, const xmlChar*, const xmlChar*) {
  reading(context).handler.otherNode();
}

void onError(void*, xmlErrorPtr) {}  // faults in a site's markup are nobody's business here

xmlSAXHandler makeCallbacks() {
  xmlSAXHandler callbacks{};
  callbacks.initialized = XML_SAX2_MAGIC;
  callbacks.startElement = onStartElement;
  callbacks.endElement = onEndElement;
  callbacks.characters = onText;
  // Blanks between elements are text like any other, as in a browser's document.
  callbacks.ignorableWhitespace = onText;
  callbacks.cdataBlock = onText;
  callbacks.comment = onComment;
  callbacks.processingInstruction = onInstruction;
  callbacks.serror = onError;
  return callbacks;
}

struct FreeContext {
  void operator()(htmlParserCtxtPtr context) const { htmlFreeParserCtxt(context); }
};

struct FreeDocument {
  void operator()(xmlDocPtr document) const { xmlFreeDoc(document); }
};

struct FreeBuffer {
  void operator()(xmlBufferPtr buffer) const { xmlBufferFree(buffer); }
};

void initialiseOnce() {
  static const bool done = [] {
    xmlInitParser();
    return true;
  }();
  static_cast<void>(done);
}

}  // namespace

void readHtml(std::string_view utf8, MarkupHandler& handler) {
  if (utf8.empty() || utf8.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return;
  initialiseOnce();
  const std::unique_ptr<htmlParserCtxt, FreeContext> context(
      htmlCreateMemoryParserCtxt(utf8.data(), static_cast<int>(utf8.size())));
  if (!context) return;
  // The text is decoded already: no declaration in it may change that.
  htmlCtxtUseOptions(context.get(), HTML_PARSE_RECOVER | HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
  context->options |=
      XML_PARSE_HUGE;  // without it everything nested deeper than 256 elements is dropped silently
  context->charset = XML_CHAR_ENCODING_UTF8;

  static const xmlSAXHandler kCallbacks = makeCallbacks();
  *context->sax = kCallbacks;
  Reading state{handler};
  context->userData = &state;
  htmlParseDocument(context.get());
}

std::string serialiseStartTag(std::string_view name, const std::vector<MarkupAttribute>& attributes) {
  const std::unique_ptr<xmlDoc, FreeDocument> document(htmlNewDocNoDtD(nullptr, nullptr));
  const std::unique_ptr<xmlBuffer, FreeBuffer> buffer(xmlBufferCreate());
  if (!document || !buffer) return {};
  document->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>("UTF-8"));
  const xmlNodePtr node = xmlNewDocNode(document.get(), nullptr, xmlText(std::string(name)), nullptr);
  if (node == nullptr) return {};
  xmlDocSetRootElement(document.get(), node);
  for (const MarkupAttribute& attribute : attributes) {
    xmlNewProp(node, xmlText(std::string(attribute.name)), xmlText(std::string(attribute.value)));
  }
  htmlNodeDump(buffer.get(), document.get(), node);
  std::string markup(view(xmlBufferContent(buffer.get())));
  while (markup.ends_with('\n')) markup.pop_back();
  return markup;
}

}  // namespace platform
