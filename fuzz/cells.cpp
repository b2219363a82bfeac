// The cells of a table as they are read in one pass, against those of the parser's tree, asked by XPath.
// Input: a document.
#include <memory>
#include <string>
#include <vector>

#include <libxml/HTMLparser.h>
#include <libxml/SAX2.h>
#include <libxml/xpath.h>

#include "fuzz_target.h"
#include "html_editor/table_cells.h"
#include "platform/regex.h"
#include "platform/text.h"

namespace {

using fuzz::require;

template <auto Free>
struct Deleter {
  template <typename T>
  void operator()(T* object) const {
    Free(object);
  }
};
using Document = std::unique_ptr<xmlDoc, Deleter<xmlFreeDoc>>;

Document parse(const std::string& markup) {
  const std::unique_ptr<htmlParserCtxt, Deleter<htmlFreeParserCtxt>> parser(
      htmlCreateMemoryParserCtxt(markup.data(), static_cast<int>(markup.size())));
  if (!parser) return nullptr;  // nothing to read
  htmlCtxtUseOptions(parser.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                                       HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
  parser->options |= XML_PARSE_HUGE;
  parser->charset = XML_CHAR_ENCODING_UTF8;
  parser->sax->ignorableWhitespace = xmlSAX2Characters;
  htmlParseDocument(parser.get());
  return Document(parser->myDoc);
}

/// What moves or is closed where a document begins anew.
constexpr const char* kNotTheSameAlone = ".//html | .//head | .//body | .//frameset";

std::vector<xmlNodePtr> nodesAt(const Document& document, const char* path, xmlNodePtr below = nullptr) {
  if (!document) return {};
  const std::unique_ptr<xmlXPathContext, Deleter<xmlXPathFreeContext>> context(
      xmlXPathNewContext(document.get()));
  context->node = below == nullptr ? reinterpret_cast<xmlNodePtr>(document.get()) : below;
  const std::unique_ptr<xmlXPathObject, Deleter<xmlXPathFreeObject>> result(
      xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path), context.get()));
  const xmlNodeSetPtr nodes = result ? result->nodesetval : nullptr;
  if (nodes == nullptr || nodes->nodeNr == 0) return {};
  return {nodes->nodeTab, nodes->nodeTab + nodes->nodeNr};
}

/// Names, attributes, texts and comments below a node, each told apart from the others.
std::string described(xmlNodePtr node) {
  const auto text = [](const xmlChar* value) {
    return value == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(value));
  };
  if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) return text(node->content);
  if (node->type == XML_COMMENT_NODE) return "\x01(" + text(node->content) + "\x01)";
  if (node->type != XML_ELEMENT_NODE) return {};
  std::string all = "\x01<" + text(node->name);
  for (xmlAttrPtr each = node->properties; each != nullptr; each = each->next) {
    all +=
        "\x01 " + text(each->name) + "=" + (each->children == nullptr ? "" : text(each->children->content));
  }
  for (xmlNodePtr child = node->children; child != nullptr; child = child->next) all += described(child);
  return all + "\x01>";
}

}  // namespace

void fuzz::tryInput(std::string_view input) {
  std::string markup = platform::decodeUtf8(std::string(input));
  const html_editor::DocumentCells found = html_editor::readCellsByParser(markup);
  markup = platform::replaceText(markup, "\f", " ");
  static const platform::Regex kNoCharacter("[^\\t\\n\\r -\\x{FFFD}\\x{10000}-\\x{10FFFF}]");
  while (const auto odd = kNoCharacter.find(markup))
    markup.replace(odd->offset, odd->whole.size(), "\xEF\xBF\xBD");
  const Document tree = parse(markup);
  require(found.anchors == nodesAt(tree, "//a").size(), "the anchors are those of the tree");
  const std::vector<xmlNodePtr> cells = nodesAt(tree, "//td");
  require(found.cells.size() == cells.size(), "the cells are those of the tree");
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::vector<xmlNodePtr> entries = nodesAt(tree, ".//div", cells[i]);
    require(found.cells[i].entries.size() == entries.size(), "the entries are those of the tree");
    for (std::size_t j = 0; j < entries.size(); ++j) {
      if (!nodesAt(tree, kNotTheSameAlone, entries[j]).empty()) continue;
      const Document again = parse(found.cells[i].entries[j]);
      const std::vector<xmlNodePtr> copies = nodesAt(again, "//div");
      require(!copies.empty() && described(copies[0]) == described(entries[j]),
              "an entry that is written and read again is the same");
    }
  }
}
