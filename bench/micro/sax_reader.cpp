#include "sax_reader.h"

#include <cstring>
#include <utility>
#include <vector>

#include <libxml/HTMLparser.h>

namespace bench {

namespace {

/// The least that a reader of links has to do.
struct Links {
  std::vector<std::pair<std::string, std::string>> anchors;  // target and text
  std::string title;
  bool inAnchor = false;
  bool inTitle = false;
};

const char* text(const xmlChar* letters) {
  return reinterpret_cast<const char*>(letters);
}

void onStart(void* context, const xmlChar* name, const xmlChar** attributes) {
  Links& links = *static_cast<Links*>(context);
  if (std::strcmp(text(name), "title") == 0) links.inTitle = true;
  if (std::strcmp(text(name), "a") != 0) return;
  links.inAnchor = true;
  links.anchors.emplace_back();
  for (; attributes != nullptr && attributes[0] != nullptr; attributes += 2) {
    if (std::strcmp(text(attributes[0]), "href") == 0 && attributes[1] != nullptr) {
      links.anchors.back().first = text(attributes[1]);
    }
  }
}

void onEnd(void* context, const xmlChar* name) {
  Links& links = *static_cast<Links*>(context);
  if (std::strcmp(text(name), "title") == 0) links.inTitle = false;
  if (std::strcmp(text(name), "a") == 0) links.inAnchor = false;
}

void onText(void* context, const xmlChar* letters, int length) {
  Links& links = *static_cast<Links*>(context);
  if (links.inTitle) links.title.append(text(letters), static_cast<std::size_t>(length));
  if (links.inAnchor) links.anchors.back().second.append(text(letters), static_cast<std::size_t>(length));
}

}  // namespace

std::size_t readBySax(const std::string& page) {
  Links links;
  xmlSAXHandler handler{};
  handler.startElement = onStart;
  handler.endElement = onEnd;
  handler.characters = onText;
  handler.ignorableWhitespace = onText;
  handler.cdataBlock = onText;
  const htmlParserCtxtPtr parser =
      htmlCreatePushParserCtxt(&handler, &links, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8);
  if (parser == nullptr) return 0;
  htmlCtxtUseOptions(parser, HTML_PARSE_RECOVER | HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
  htmlParseChunk(parser, page.data(), static_cast<int>(page.size()), 1);
  htmlFreeParserCtxt(parser);
  return links.anchors.size();
}

}  // namespace bench
