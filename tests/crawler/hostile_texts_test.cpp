// Titles, link names and addresses that look like parts of the documents they are written to.
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "support/scan_run.h"
#include "support/site_server.h"

namespace crawler {
namespace {

using support::ScanRun;
using support::ServedPage;
using support::SiteServer;

struct HostilePage {
  const char* target;  // how the request for it begins
  const char* href;    // as the start page has it, within double quotes
  const char* name;    // the link's, as markup
  const char* title;   // as markup; none for a page that is not there
};

const HostilePage kPages[] = {
    {"/quoted", "quoted.html?'x---LINKID:9---&quot;&gt;x&lt;!-- LINKID: 9 --&gt;&lt;/a&gt;",
     "---LINKID:9---&quot;&gt;x&lt;!-- LINKID: 9 --&gt;&lt;/a&gt;",
     "---LINKID:9---&quot;&gt;x&lt;!-- LINKID: 9 --&gt;&lt;/a&gt;"},
    {"/markup", "markup.html?&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;", "<b>&lt;/td&gt;&lt;td&gt;</b>",
     "&lt;/td&gt;&lt;/tr&gt;&lt;/table&gt;&lt;/body&gt;&lt;/html&gt;"},
    {"/breaks", "breaks.html?a\nb", "two\nlines", "two\r\nlines\n"},
    {"/entities", "entities.html?a&amp;b&amp;amp;c&lt;/loc&gt;]]&gt;", "&amp;amp; &amp;#38; ]]&gt;",
     "&lt;![CDATA[ ]]&gt; &amp;lt;"},
    {"/bytes", "bytes.html?\xFF", "\xFF\xFE", "\x01\x02 \xED\xA0\x80"},
    {"/$0", "$0\\1%s%n \xC3\xA9.html", "$0 \\1 %s %n", "\xE2\x80\xAE right to left"},
    {"/missing", "missing.html?&quot;&gt;&lt;b&gt;\n---LINKID:9---", "gone", nullptr},
    {"/control", "control.html?\x01\x0B\x7F&#2;", "\x01x", "\x02\x0C"},
};

ServedPage answerTo(std::string_view target) {
  if (target == "/") {
    std::string links;
    for (const HostilePage& page : kPages) {
      links += "<a href=\"" + std::string(page.href) + "\">" + page.name + "</a>";
    }
    return {"<title>Start ---LINKID:0---</title>" + links};
  }
  for (const HostilePage& page : kPages) {
    if (!target.starts_with(page.target) || page.title == nullptr) continue;
    return {"<title>" + std::string(page.title) + "</title><a href=control.html>" + page.name + "</a>"};
  }
  return {.status = 404};
}

TEST(HostileTexts, AreWrittenAsTheyAre) {
  const SiteServer server([](const std::string& target, int) { return answerTo(target); });
  ScanRun run(server.url());
  EXPECT_EQ(run.scan().end, ScanEnd::complete);
  support::expectStored("scans/hostile-texts.txt", run.documents(server.url()));
}

}  // namespace
}  // namespace crawler
