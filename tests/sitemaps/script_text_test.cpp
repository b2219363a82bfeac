#include "sitemaps/script_text.h"

#include <string>

#include <gtest/gtest.h>

namespace sitemaps {
namespace {

TEST(HoldsScriptText, TellsScriptsFromTextsAboutThem) {
  struct Case {
    const char* name;
    const char* url;
    const char* title;
    bool expected;
  };
  const Case cases[] = {
      {"ordinary", "http://a.test/?a=1&on=2", "Text", false},
      {"script", "u", "<script>x</script>", true},
      {"any case", "u", "a<SCRIPT src=x>", true},
      {"in a comment", "u", "<!--><script>", true},
      {"prose about it", "u", "JavaScript: The Good Parts, onclick = and script>", false},
      {"escaped", "u", "&lt;script>", false},
      {"attribute in a title", "u", "<img src=x onerror=alert(1)>", true},
      {"slashes for blanks", "u", "<svg/onload=alert(1)>", true},
      {"right behind a quote", "u", "<img src=\"x\"onerror='y'>", true},
      {"blanks around the sign", "u", "<b\nOnClick\t =x>", true},
      {"name alone", "u", "<b onclick>", false},
      {"in a value", "u", "<b title=\"a onclick=x\">", false},
      {"behind a value with a >", "u", "<b title='>' onclick=x>", true},
      {"quote left open in a comment", "u", "<!-- <a title=\" --><img onerror=x>", true},
      {"address breaks out of its quotes", "u\" onmouseover=\"alert(1)", "T", true},
      {"address with a slash and a name", "http://a.test/onload=1", "T", false},
      {"script address", "javascript:alert(1)", "T", true},
      {"script address, any case", " \tJavaScript:x", "T", true},
      {"script address, line feed within", "java\nscript:x", "T", true},
      {"script address, reference", "&#106ava&#x73;cript&colon;x", "T", true},
      {"script address, named blanks", "java&Tab;script&NewLine;:x", "T", true},
      {"reference out of range", "&#99999999999;javascript:", "T", false},
      {"script elsewhere in the address", "http://a.test/javascript:x", "T", false},
      {"script in any attribute", "u", "<form action = javascript:x>", true},
      {"script address cut off", "javascript", "T", false},
      {"tag cut off", "u", "<b onclick", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(
        holdsScriptText("<p><a href=\"" + std::string(c.url) + "---LINKID:1---\">" + c.title + "</a></p>"),
        c.expected);
  }
  for (const char* end :
       {"<", "<a", "<a ", "<a x", "<a x=", "<a x='", "<a x=&#", "<a x=&", "<a on=", "<a / "}) {
    EXPECT_FALSE(holdsScriptText(end)) << end;
  }
}

TEST(HoldsScriptText, IsSureOfNothingWhereQuotesNeverEnd) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += i % 2 == 0 ? "<a x=\"" : "<a x='";
  EXPECT_TRUE(holdsScriptText(text));
}

}  // namespace
}  // namespace sitemaps
