// The cells by the one-pass reader against those of the parser's tree, asked by XPath.
#include <functional>
#include <memory>

#include <gtest/gtest.h>
#include <libxml/HTMLparser.h>
#include <libxml/SAX2.h>
#include <libxml/xpath.h>

#include "html_editor/sample_document.h"
#include "html_editor/table_cells.h"

namespace html_editor {
namespace {

template <auto Free>
struct Deleter {
  template <typename T>
  void operator()(T* object) const {
    Free(object);
  }
};
using Document = std::unique_ptr<xmlDoc, Deleter<xmlFreeDoc>>;
using XPathContext = std::unique_ptr<xmlXPathContext, Deleter<xmlXPathFreeContext>>;
using XPathResult = std::unique_ptr<xmlXPathObject, Deleter<xmlXPathFreeObject>>;

Document parse(const std::string& markup) {
  const std::unique_ptr<htmlParserCtxt, Deleter<htmlFreeParserCtxt>> parser(
      htmlCreateMemoryParserCtxt(markup.data(), static_cast<int>(markup.size())));
  htmlCtxtUseOptions(parser.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                                       HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
  parser->charset = XML_CHAR_ENCODING_UTF8;
  parser->sax->ignorableWhitespace = xmlSAX2Characters;
  htmlParseDocument(parser.get());
  return Document(parser->myDoc);
}

void forEach(xmlDocPtr document, xmlNodePtr node, const char* path,
             const std::function<void(xmlNodePtr)>& visit) {
  const XPathContext context(xmlXPathNewContext(document));
  context->node = node;
  const XPathResult result(xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path), context.get()));
  const xmlNodeSetPtr nodes = result ? result->nodesetval : nullptr;
  for (int i = 0; nodes != nullptr && i < nodes->nodeNr; ++i) visit(nodes->nodeTab[i]);
}

/// Names, attributes, texts and comments below a node, each told apart from the others.
void describe(xmlNodePtr node, std::string& text) {
  const auto quoted = [](const xmlChar* value) {
    return value == nullptr ? std::string() : std::string(reinterpret_cast<const char*>(value));
  };
  if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) text += quoted(node->content);
  if (node->type == XML_COMMENT_NODE) text += "\x01(" + quoted(node->content) + "\x01)";
  if (node->type != XML_ELEMENT_NODE) return;
  text += "\x01<" + quoted(node->name);
  for (xmlAttrPtr each = node->properties; each != nullptr; each = each->next) {
    text += "\x01 " + quoted(each->name) + "=" +
            (each->children == nullptr ? "" : quoted(each->children->content));
  }
  text += "\x01>";
  for (xmlNodePtr child = node->children; child != nullptr; child = child->next) describe(child, text);
  text += "\x01/";
}

std::string describe(xmlNodePtr node) {
  std::string text;
  describe(node, text);
  return text;
}

void expectCellsOfTree(const std::string& markup) {
  const DocumentCells found = readCells(markup);
  const Document tree = parse(markup);
  std::size_t anchors = 0;
  forEach(tree.get(), reinterpret_cast<xmlNodePtr>(tree.get()), "//a", [&](xmlNodePtr) { ++anchors; });
  EXPECT_EQ(found.anchors, anchors);
  std::size_t cell = 0;
  forEach(tree.get(), reinterpret_cast<xmlNodePtr>(tree.get()), "//td", [&](xmlNodePtr td) {
    ASSERT_LT(cell, found.cells.size());
    const std::vector<std::string>& entries = found.cells[cell++].entries;
    std::size_t entry = 0;
    forEach(tree.get(), td, ".//div", [&](xmlNodePtr div) {
      ASSERT_LT(entry, entries.size());
      // Written and read again an entry is the same.
      const Document again = parse(entries[entry++]);
      int seen = 0;
      forEach(again.get(), reinterpret_cast<xmlNodePtr>(again.get()), "//div", [&](xmlNodePtr copy) {
        if (seen++ > 0) return;  // one inside it
        EXPECT_EQ(describe(copy), describe(div));
      });
      EXPECT_GT(seen, 0);
    });
    EXPECT_EQ(entry, entries.size());
  });
  EXPECT_EQ(cell, found.cells.size());
}

TEST(CellsAndTree, AgreeOnDocumentsOfAllKinds) {
  using samples::document;
  using samples::link;
  for (int columns = 1; columns <= 3; ++columns) {
    for (int count = 0; count <= 7; ++count) expectCellsOfTree(document(columns, samples::blocks(count)));
    for (const char* title : {"R&D",
                              "a < b <",
                              "<b>x",
                              "</td>",
                              "</div>",
                              "</a>",
                              "<td>x",
                              "<div class=y>z",
                              "<table><td>q</table>",
                              "<!-- x",
                              "<a href=w>",
                              "<br>",
                              "<img alt=\"'&quot;\">",
                              "<script>if (a < b && c) </script>",
                              "&copy;&nope;&#0;&#x41;",
                              "<p>a<p>b",
                              "<x:y a:b=c>",
                              "<li>",
                              "<TITLE>a</TITLE>",
                              "a\r\nb",
                              "\xE6\x97\xA5",
                              "<style>a>b</style>"}) {
      SCOPED_TRACE(title);
      expectCellsOfTree(document(columns, {{samples::page(1, "u?a&b&lt;&copy", title), link(3, "v\"w", "T")},
                                           {link(5, "x", title), link(6, "y", title)}}));
    }
  }
}

TEST(CellsAndTree, AgreeOnDocumentsCutOffAnywhere) {
  const std::string whole = samples::document(3, samples::blocks(2));
  for (std::size_t size = whole.find("<table"); size < whole.size(); ++size) {
    SCOPED_TRACE(whole.substr(size - 10, 10));
    expectCellsOfTree(whole.substr(0, size));
  }
}

}  // namespace
}  // namespace html_editor
