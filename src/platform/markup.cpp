#include "platform/markup.h"

#include <algorithm>
#include <cstdint>
#include <memory>

#include <libxml/HTMLparser.h>
#include <libxml/SAX2.h>
#include <libxml/dict.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

namespace platform {

namespace {

constexpr std::uint64_t kStepsPerElement = 4;    // to compare an end tag with an open element
constexpr std::uint64_t kStepsPerAttribute = 4;  // to compare two attributes, beside those for their letters

std::string_view view(const xmlChar* text) {
  return text == nullptr ? std::string_view{} : reinterpret_cast<const char*>(text);
}

/// What the parser's callbacks know. They are called from C, so nothing may be thrown through them.
struct Reading {
  MarkupHandler& handler;
  const MarkupLimits& limits;
  std::string_view rest;                         // of the text, not handed to the parser yet
  htmlParserCtxtPtr parser = nullptr;            // owned by readHtml()
  std::vector<MarkupAttribute> attributes = {};  // kept between elements to spare allocations
  std::uint64_t steps = 0;
  std::uint64_t bytesInToken = 0;  // handed to the parser since it last told of something
  long lastFault = -1;             // the position of the last fault in the nesting

  /// Whether the text is to end here. Asked once for some thousand bytes.
  bool exhausted() const {
    // All attributes of a tag are compared with each other before any is told of.
    const auto attributesInTag = static_cast<std::uint64_t>(parser->maxatts / 2);
    return steps > limits.steps || parser->nameNr > limits.depth ||
           attributesInTag * bytesInToken > limits.stepsInTag ||
           xmlDictGetUsage(parser->dict) > limits.nameBytes;
  }
};

Reading& reading(void* context) {
  return *static_cast<Reading*>(context);
}

void onStartElement(void* context, const xmlChar* name, const xmlChar** attributes) {
  Reading& state = reading(context);
  state.bytesInToken = 0;
  state.attributes.clear();
  for (; attributes != nullptr && attributes[0] != nullptr; attributes += 2) {
    const std::string_view attribute = view(attributes[0]);
    state.steps += state.attributes.size() * (attribute.size() + kStepsPerAttribute);
    state.attributes.push_back({attribute, view(attributes[1])});
  }
  state.handler.startElement(view(name), state.attributes);
}

void onEndElement(void* context, const xmlChar* name) {
  Reading& state = reading(context);
  state.bytesInToken = 0;
  state.handler.endElement(view(name));
}

void onText(void* context, const xmlChar* text, int length) {
  Reading& state = reading(context);
  state.bytesInToken = 0;
  state.handler.text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
}

void onComment(void* context, const xmlChar* text) {
  Reading& state = reading(context);
  state.bytesInToken = 0;
  state.handler.comment(view(text));
}

void onInstruction(void* context, const xmlChar*, const xmlChar*) {
  Reading& state = reading(context);
  state.bytesInToken = 0;
  state.handler.otherNode();
}

/// Faults in a site's markup are nobody's business here but for what it cost to find them: a tag that does
/// not fit has been compared with all open elements. One that closes many at once is a fault for each, and
/// costs no more.
void onError(void* context, xmlErrorPtr error) {
  if (error->code != XML_ERR_TAG_NAME_MISMATCH && error->code != XML_HTML_STRUCURE_ERROR) return;
  Reading& state = reading(context);
  const long position = xmlByteConsumed(state.parser);
  if (position == state.lastFault) return;
  state.lastFault = position;
  state.steps += static_cast<std::uint64_t>(std::max(0, state.parser->nameNr)) * kStepsPerElement;
}

/// Hands the parser its next piece of text, at most `size` bytes. Ending the text is the one way to stop the
/// parser that is safe wherever it stands.
int onRead(void* context, char* buffer, int size) {
  Reading& state = reading(context);
  if (size <= 0 || state.exhausted()) return 0;
  std::string_view piece = state.rest.substr(0, static_cast<std::size_t>(size));
  if (piece.size() < state.rest.size()) {
    // The parser may lose the start of a name that goes on in the next piece.
    const std::size_t end = piece.find_last_of("> \t\n");
    if (end != std::string_view::npos) piece = piece.substr(0, end + 1);
  }
  std::copy(piece.begin(), piece.end(), buffer);
  state.rest.remove_prefix(piece.size());
  state.bytesInToken += piece.size();
  return static_cast<int>(piece.size());
}

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

/// Lets the parser read through onRead(). False without memory.
bool connectInput(htmlParserCtxtPtr parser, Reading& state) {
  const xmlParserInputBufferPtr buffer =
      xmlParserInputBufferCreateIO(onRead, nullptr, &state, XML_CHAR_ENCODING_NONE);
  if (buffer == nullptr) return false;
  const xmlParserInputPtr input = xmlNewIOInputStream(parser, buffer, XML_CHAR_ENCODING_NONE);
  if (input == nullptr) {
    xmlFreeParserInputBuffer(buffer);
    return false;
  }
  if (inputPush(parser, input) >= 0) return true;
  xmlFreeInputStream(input);
  return false;
}

void initialiseOnce() {
  static const bool done = [] {
    xmlInitParser();
    return true;
  }();
  static_cast<void>(done);
}

}  // namespace

void readHtml(std::string_view utf8, MarkupHandler& handler, const MarkupLimits& limits) {
  if (utf8.empty()) return;
  initialiseOnce();
  const std::unique_ptr<htmlParserCtxt, FreeContext> parser(htmlNewParserCtxt());
  Reading state{handler, limits, utf8, parser.get()};
  if (!parser || !connectInput(parser.get(), state)) return;
  // The text is decoded already: no declaration in it may change that.
  htmlCtxtUseOptions(parser.get(), HTML_PARSE_RECOVER | HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
  parser->options |=
      XML_PARSE_HUGE;  // without it everything nested deeper than 256 elements is dropped silently
  parser->charset = XML_CHAR_ENCODING_UTF8;

  static const xmlSAXHandler kCallbacks = makeCallbacks();
  *parser->sax = kCallbacks;
  parser->userData = &state;
  htmlParseDocument(parser.get());
}

}  // namespace platform
