#include "sitemaps/script_text.h"

#include <string>

#include <gtest/gtest.h>

namespace sitemaps {
namespace {

std::string linkTo(const std::string& url) {
  return "<p><a href=\"" + url + "---LINKID:1---\">Title</a></p>";
}

TEST(HoldsScriptText, TellsScriptsFromTextsAboutThem) {
  for (const char* script :
       {"a<SCRIPT src=x>", "<img src=x onerror=alert(1)>", "<svg/onload=alert(1)>", "<b\nOnClick\t =x>",
        "<b title='>' onclick=x>", "<!-- <a title=\" --><img onerror=x>", "<form action = javascript:x>"}) {
    EXPECT_TRUE(holdsScriptText(script)) << script;
  }
  for (const char* url : {"u\" onmouseover=\"alert(1)", " \tJavaScript:x", "java\nscript:x",
                          "&#106ava&#x73;cript&colon;x", "java&Tab;script&NewLine;:x"}) {
    EXPECT_TRUE(holdsScriptText(linkTo(url))) << url;
  }
  for (const char* prose :
       {"JavaScript: The Good Parts, onclick = and script>", "<b title=\"a onclick=x\">", "&lt;script>",
        "<b onclick>", "<", "<a", "<a ", "<a x=", "<a x='", "<a x=&#", "<a x=&", "<a on=", "<a / "}) {
    EXPECT_FALSE(holdsScriptText(prose)) << prose;
  }
  for (const char* url : {"http://a.test/?a=1&on=2", "http://a.test/onload=1",
                          "&#99999999999;javascript:", "http://a.test/javascript:x"}) {
    EXPECT_FALSE(holdsScriptText(linkTo(url))) << url;
  }
}

TEST(HoldsScriptText, IsSureOfNothingWhereQuotesNeverEnd) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += i % 2 == 0 ? "<a x=\"" : "<a x='";
  EXPECT_TRUE(holdsScriptText(text));
}

}  // namespace
}  // namespace sitemaps
