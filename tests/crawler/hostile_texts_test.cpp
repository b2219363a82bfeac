// Titles, link names and addresses that look like parts of the documents they are written to.
#include <map>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/raw_server.h"
#include "support/scan_run.h"

namespace crawler {
namespace {

using support::rawAnswerTo;
using support::RawRequest;
using support::RawServer;
using support::ScanRun;

struct HostilePage {
  const char* target;  // how the request for it begins
  const char* href;    // as the start page has it, within double quotes
  const char* name;    // the link's, as markup
  const char* title;   // as markup; none for a page that is not there
};

const HostilePage kPages[] = {
    {"/quoted", "quoted.html?x---LINKID:9---&quot;&gt;x&lt;!-- LINKID: 9 --&gt;&lt;/a&gt;",
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

std::string answerTo(const RawRequest& request) {
  const std::string_view target = request.target();
  if (target == "/") {
    std::string links;
    for (const HostilePage& page : kPages) {
      links += "<a href=\"" + std::string(page.href) + "\">" + page.name + "</a>";
    }
    return rawAnswerTo(request, "200 OK", "Content-Type: text/html; charset=utf-8\r\n",
                       "<title>Start ---LINKID:0---</title>" + links);
  }
  for (const HostilePage& page : kPages) {
    if (!target.starts_with(page.target) || page.title == nullptr) continue;
    return rawAnswerTo(
        request, "200 OK", "Content-Type: text/html; charset=utf-8\r\n",
        "<title>" + std::string(page.title) + "</title><a href=control.html>" + page.name + "</a>");
  }
  return rawAnswerTo(request, "404 Not Found", "", "");
}

TEST(HostileTexts, AreWrittenAsTheyAre) {
  RawServer server(RawServer::answering(answerTo));
  ScanRun run(server.url());
  EXPECT_EQ(run.scan().end, ScanEnd::complete);
  support::expectStored("scans/hostile-texts.txt", run.documents(server.url()));
}

}  // namespace
}  // namespace crawler
