#include "html_editor/document_check.h"

#include <string>

#include <gtest/gtest.h>

#include "sitemaps/html_format.h"

namespace html_editor {
namespace {

TEST(DocumentCheck, TellsWhatAScanLeft) {
  const std::string opening = std::string(sitemaps::kHtmlHeader) + "<body>\n";
  const std::string entry = "<div class=\"vskPageLink\"><a href=\"http://a.test/\">A</a></div>";
  const std::string closing = "\n</table>\n</body>\n</html>";
  struct Case {
    const char* name;
    std::string document;
    DocumentState expected;
  };
  const Case cases[] = {
      {"an empty file", "", DocumentState::missing},
      {"a scan that ended", opening + entry + closing, DocumentState::whole},
      {"line ends of another program", opening + entry + closing + "\r\n\n", DocumentState::whole},
      {"a scan that was killed", opening + entry, DocumentState::unfinished},
      {"a site that did not answer", opening, DocumentState::neverBegun},
      {"a first page that was broken", opening + closing, DocumentState::noEntries},
      {"of somebody else's making", "<p>Nothing</p>", DocumentState::whole},
      {"as large as can be", std::string(kMostShown, ' '), DocumentState::whole},
      {"too large", std::string(kMostShown + 1, ' '), DocumentState::tooLarge},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(documentState(c.document), c.expected);
  }
}

}  // namespace
}  // namespace html_editor
