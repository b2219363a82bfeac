#include "html_editor/style.h"

#include <gtest/gtest.h>

#include "html_editor/sample_document.h"
#include "html_editor/underline.h"
#include "sitemaps/html_format.h"

namespace html_editor {
namespace {

using samples::with;

constexpr EntryClass kTitle = EntryClass::pageTitle;
constexpr EntryClass kLink = EntryClass::pageLink;

const std::string kNewDocument = samples::document(2, samples::blocks(3));

TEST(ReadStyle, OfANewDocument) {
  const EntryStyle title = readStyle(kNewDocument, kTitle);
  EXPECT_EQ(title.colour, "#000000");
  EXPECT_EQ(title.size, "1.1em");
  EXPECT_EQ(title.family, "Times New Roman, Times, serif");
  EXPECT_TRUE(title.bold);
  EXPECT_FALSE(title.italic);
  EXPECT_EQ(readStyle(kNewDocument, kLink).colour, "#0000FF");
}

TEST(ReadStyle, TakesTheFirstBlockAndEachValueToItsFirstSemicolon) {
  struct Case {
    const char* name;
    const char* rules;
    std::optional<std::string> colour;
  };
  const Case cases[] = {
      {"two values on a line", ".vskPageTitle a { color: red; font-size: 1em; }", "red"},
      {"without blank behind the colon", ".vskPageTitle a { color:red; }", {}},
      {"a later block without >", ".vskPageTitle a { > }\n.vskPageTitle a { color: blue; }", "blue"},
      {"background counts as the first colour", ".vskPageTitle a { background-color: tan; color: red; }",
       "tan"},
      {"a line feed in front", "vskPageTitle a { color: red; }", {}},
      {"empty value", ".vskPageTitle a { color: ; }", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(readStyle("<style>\n" + std::string(c.rules), kTitle).colour, c.colour);
  }
  EXPECT_EQ(readStyle("vskPageTitle a { color: red; }", kTitle).colour, std::nullopt);
}

TEST(StyleEdit, ReplacesOneDeclarationOfOneClass) {
  EXPECT_EQ(withFontFamily(kNewDocument, kLink, "Arial, Helvetica, sans-serif"),
            with(kNewDocument, "normal;\n\t\tfont-family: Times New Roman, Times, serif;\n\t\tfont-size: 1em",
                 "normal;\n\t\tfont-family: Arial, Helvetica, sans-serif;\n\t\tfont-size: 1em"));
  EXPECT_EQ(withFontSize(kNewDocument, kTitle, "0.8em"),
            with(kNewDocument, "\tcolor: #000000;\n\t\tfont-size: 1.1em;",
                 "\tcolor: #000000;\n\t\tfont-size: 0.8em;"));
  EXPECT_EQ(withFontSize(".vskPageTitle a { font-size: 1em; color: red; }", kTitle, "2em"),
            ".vskPageTitle a { font-size: 2em; }");
  EXPECT_EQ(withColour(kNewDocument, kLink, "#123456"), with(kNewDocument, "#0000FF", "#123456"));
  EXPECT_EQ(withBold(kNewDocument, kTitle, false),
            with(kNewDocument, "font-weight: bold;\n\t\t", "font-weight: normal;\n\t\t"));
  EXPECT_EQ(withBold(withBold(kNewDocument, kTitle, false), kTitle, true), kNewDocument);
  EXPECT_TRUE(readStyle(withItalic(kNewDocument, kLink, true), kLink).italic);
}

TEST(Underline, ReadsBackWhatWasSet) {
  for (const EntryClass entries : {kTitle, kLink}) {
    const EntryClass other = entries == kTitle ? kLink : kTitle;
    EXPECT_EQ(readUnderline(kNewDocument, entries), Underline::onHover);
    EXPECT_EQ(withUnderline(kNewDocument, entries, Underline::onHover), kNewDocument);
    for (const Underline mode : {Underline::none, Underline::all}) {
      const std::string changed = withUnderline(kNewDocument, entries, mode);
      EXPECT_EQ(readUnderline(changed, entries), mode);
      EXPECT_EQ(readUnderline(changed, other), Underline::onHover);
      EXPECT_EQ(withUnderline(changed, entries, Underline::onHover), kNewDocument);
    }
  }
  const std::string all = withUnderline(kNewDocument, kLink, Underline::all);
  for (const char* state : {"active", "link", "visited", "hover"}) {
    EXPECT_NE(all.find(std::string("\t.vskPageLink a:") + state + " { text-decoration:underline }\n"),
              all.npos);
  }
}

TEST(Underline, ReachesOverALineOnlyForAll) {
  const std::string line =
      ".vskPageLink a:active { text-decoration:none } .vskPageLink a:link { text-decoration:none }"
      " .vskPageLink a:visited { text-decoration:none } .vskPageLink a:hover { text-decoration:underline }";
  EXPECT_EQ(withUnderline(line, kLink, Underline::none), with(line, ":underline", ":none"));
  EXPECT_EQ(withUnderline(line, kLink, Underline::all),
            ".vskPageLink a:active { text-decoration:underline }");
  EXPECT_EQ(withUnderline(line, kTitle, Underline::all), line);
}

TEST(Underline, IsNothingForAnyOtherPairOfRules) {
  const std::string never = withUnderline(kNewDocument, kTitle, Underline::none);
  const std::string butVisited =
      with(never, "Title a:visited { text-decoration:none", "Title a:visited { text-decoration:underline");
  EXPECT_EQ(readUnderline(butVisited, kTitle), std::nullopt);
  EXPECT_EQ(readUnderline(with(never, "\t.vskPageTitle a:visited { text-decoration:none }\n", ""), kTitle),
            std::nullopt);
}

}  // namespace
}  // namespace html_editor
