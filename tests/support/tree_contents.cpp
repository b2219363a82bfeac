#include "support/tree_contents.h"

#include <functional>
#include <memory>
#include <optional>

#include <libxml/HTMLparser.h>
#include <libxml/HTMLtree.h>
#include <libxml/SAX2.h>
#include <libxml/xpath.h>

#include "crawler/titles.h"

namespace support {
namespace {

template <auto Free>
struct Deleter {
  template <typename T>
  void operator()(T* object) const {
    Free(object);
  }
};
using Context = std::unique_ptr<htmlParserCtxt, Deleter<htmlFreeParserCtxt>>;
using Document = std::unique_ptr<xmlDoc, Deleter<xmlFreeDoc>>;
using XPathContext = std::unique_ptr<xmlXPathContext, Deleter<xmlXPathFreeContext>>;
using XPathResult = std::unique_ptr<xmlXPathObject, Deleter<xmlXPathFreeObject>>;

std::string take(xmlChar* text) {
  const std::string copy = text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
  xmlFree(text);
  return copy;
}

Document parseTree(const std::string& markup) {
  const Context context(htmlCreateMemoryParserCtxt(markup.data(), static_cast<int>(markup.size())));
  if (!context) return nullptr;
  htmlCtxtUseOptions(context.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                                        HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
  context->options |= XML_PARSE_HUGE;
  context->charset = XML_CHAR_ENCODING_UTF8;
  context->sax->ignorableWhitespace = xmlSAX2Characters;
  htmlParseDocument(context.get());
  return Document(context->myDoc);
}

std::string attribute(xmlNodePtr node, const char* name) {
  return take(xmlGetProp(node, reinterpret_cast<const xmlChar*>(name)));
}

std::string imageMarkup(xmlDocPtr document, xmlNodePtr image) {
  // An attribute without a value counts as one with an empty value.
  for (xmlAttrPtr each = image->properties; each != nullptr; each = each->next) {
    if (each->children == nullptr) {
      each->children = each->last = xmlNewDocText(document, reinterpret_cast<const xmlChar*>(""));
    }
  }
  xmlFree(const_cast<xmlChar*>(document->encoding));
  document->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>("UTF-8"));
  const std::unique_ptr<xmlBuffer, Deleter<xmlBufferFree>> buffer(xmlBufferCreate());
  htmlNodeDump(buffer.get(), document, image);
  return reinterpret_cast<const char*>(xmlBufferContent(buffer.get()));
}

crawler::Anchor anchorOf(xmlDocPtr document, xmlNodePtr node) {
  crawler::AnchorElement element;
  if (xmlHasProp(node, reinterpret_cast<const xmlChar*>("href")) == nullptr) return {};
  element.href = attribute(node, "href");
  element.name = attribute(node, "name");
  element.text = take(xmlNodeGetContent(node));
  if (const xmlNodePtr child = node->children; child != nullptr) {
    const bool image = child->type == XML_ELEMENT_NODE && take(xmlStrdup(child->name)) == "img";
    element.firstChild = image ? crawler::FirstChild::image : crawler::FirstChild::other;
    if (image) element.imageMarkup = imageMarkup(document, child);
  }
  return {element.href, crawler::findLinkTitle(element)};
}

void forEachNode(xmlDocPtr document, const char* path, const std::function<void(xmlNodePtr)>& visit) {
  const XPathContext context(xmlXPathNewContext(document));
  const XPathResult result(xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path), context.get()));
  for (int i = 0; result && result->nodesetval != nullptr && i < result->nodesetval->nodeNr; ++i) {
    visit(result->nodesetval->nodeTab[i]);
  }
}

}  // namespace

crawler::PageContents contentsOfTree(const std::string& markup) {
  crawler::PageContents contents;
  std::optional<std::string> title;
  if (const Document document = parseTree(markup)) {
    forEachNode(document.get(), "//title", [&](xmlNodePtr node) {
      if (!title) title = take(xmlNodeGetContent(node));
    });
    forEachNode(document.get(), "//a",
                [&](xmlNodePtr node) { contents.anchors.push_back(anchorOf(document.get(), node)); });
  }
  contents.title = crawler::findPageHTMLTitleElement(title);
  return contents;
}

}  // namespace support
