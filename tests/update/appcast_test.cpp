// What is read of a publisher's list of versions.
#include "update/appcast.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace update {
namespace {

using testing::HasSubstr;

std::string rss(const std::string& items) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rss version=\"2.0\" "
         "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\" "
         "xmlns:atom=\"http://www.w3.org/2005/Atom\"><channel><title>Versions</title>"
         "<link>https://list.test/</link><description>All of them</description>" +
         items + "</channel></rss>";
}

std::string item(const std::string& fields) {
  return "<item>" + fields + "</item>";
}

std::string version(const std::string& number) {
  return "<sparkle:version>" + number + "</sparkle:version>";
}

/// The releases as "version|shown|minimum|page|notes|address of notes", all in one text.
std::string summaryOf(const Appcast& appcast) {
  std::string summary = appcast.problem;
  for (const Release& each : appcast.releases)
    summary += "[" + each.version + "|" + each.shownVersion + "|" + each.minimumSystem + "|" + each.page +
               "|" + each.notes + "|" + each.notesAddress + "]";
  return summary;
}

TEST(ParseAppcast, ReadsEveryFormOfAnItem) {
  struct Case {
    const char* name;
    std::string items;
    std::string expected;
  };
  const Case cases[] = {
      {"nothing but a version", item(version("2.1")), "[2.1|2.1||||]"},
      {"everything",
       item("<title>x</title>" + version(" 2.1.0\n") +
            "<sparkle:shortVersionString>2.1 (Autumn)</sparkle:shortVersionString>"
            "<sparkle:minimumSystemVersion>6.1</sparkle:minimumSystemVersion>"
            "<link> https://a.test/get?a=1&amp;b=2 </link>"
            "<description><![CDATA[<ul><li>R&amp;D</ul>]]></description>"
            "<sparkle:releaseNotesLink>\n https://a.test/notes </sparkle:releaseNotesLink>"),
       "[2.1.0|2.1 (Autumn)|6.1|https://a.test/get?a=1&b=2|- R&D|https://a.test/notes]"},
      {"attributes",
       item("<enclosure url='https://a.test/p.deb' sparkle:version='2.1' "
            "sparkle:shortVersionString='A &amp; &#38; &lt;B' sparkle:minimumSystemVersion='5'/>"),
       "[2.1|A & & <B|5|||]"},
      {"elements count before attributes",
       item("<enclosure sparkle:version='1' sparkle:shortVersionString='one'/>" + version("2")),
       "[2|one||||]"},
      {"only what is shown", item("<sparkle:shortVersionString>2.2</sparkle:shortVersionString>"),
       "[2.2|2.2||||]"},
      {"the first one counts", item(version("2") + version("3")), "[2|2||||]"},
      {"escaped markup", item(version("2") + "<description>&lt;p&gt;a&amp;amp;b</description>"),
       "[2|2|||a&b|]"},
      {"no https",
       item(version("2") + "<link>http://a.test/</link><sparkle:releaseNotesLink>javascript:x"
                           "</sparkle:releaseNotesLink>"),
       "[2|2||||]"},
      {"elements of others",
       item(version("2") + "<atom:link href='x'>https://b.test/</atom:link><version>9"
                           "</version>"),
       "[2|2||||]"},
      {"differences from older versions",
       item("<sparkle:deltas><enclosure sparkle:version='9'/></sparkle:deltas><enclosure "
            "sparkle:version='2'/>"),
       "[2|2||||]"},
      {"for other systems", item(version("9") + "<enclosure sparkle:os='macos'/>") + item(version("2")),
       "[2|2||||]"},
      {"for several systems",
       item("<enclosure sparkle:os='windows' sparkle:version='9'/>"
            "<enclosure sparkle:os='Linux' sparkle:version='2'/>"),
       "[2|2||||]"},
      {"for those who try everything", item(version("9") + "<sparkle:channel>beta</sparkle:channel>"), ""},
      {"several lines to show",
       item(version("2") + "<sparkle:shortVersionString>2\n beta</sparkle:shortVersionString>"),
       "[2|2  beta||||]"},
      {"too much to show",
       item(version("2") + "<sparkle:shortVersionString>" + std::string(101, '2') +
            "</sparkle:shortVersionString>"),
       "[2|2||||]"},
      {"a system that cannot be compared",
       item(version("2") + "<sparkle:minimumSystemVersion>any</sparkle:minimumSystemVersion>"), "[2|2||||]"},
      {"no version", item("<title>3.0</title>") + item(version("soon")), ""},
      {"no item", "", ""},
      {"an item out of its place", "<x>" + item(version("9")) + "</x>", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(summaryOf(parseAppcast(rss(c.items))), c.expected);
  }
}

TEST(ParseAppcast, SaysWhatIsWrongWithTheWhole) {
  struct Case {
    const char* name;
    std::string text;
    const char* problem;
  };
  const std::string good = rss(item(version("2")));
  const std::string withEntity = rss(item(version("2&a;")));
  const Case cases[] = {
      {"nothing", "", "no list of versions"},
      {"a web page", "<!doctype html><html><body><p>Sign in", "no list of versions"},
      {"another feed", "<feed xmlns='http://www.w3.org/2005/Atom'/>", "no list of versions"},
      {"cut off", good.substr(0, good.size() - 5), "Line 2: "},
      {"a bare ampersand", rss(item(version("2") + "<link>https://a.test/?a=1&b=2</link>")), "A bare \"&\""},
      {"a prefix that is not declared", "<rss>" + item(version("2")) + "</rss>", "sparkle"},
      {"an entity of its own",
       "<!DOCTYPE rss [<!ENTITY a '.1'>]>" + withEntity.substr(withEntity.find("<rss")), "Entity 'a'"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Appcast appcast = parseAppcast(c.text);
    EXPECT_THAT(appcast.problem, HasSubstr(c.problem));
    EXPECT_TRUE(appcast.releases.empty());
  }
}

TEST(ParseAppcast, BoundsTheNotes) {
  const Appcast appcast =
      parseAppcast(rss(item(version("2") + "<description>" + std::string(500'000, 'x') + "</description>")));
  ASSERT_EQ(appcast.releases.size(), 1u);
  EXPECT_LE(appcast.releases[0].notes.size(), 70'000u);
}

}  // namespace
}  // namespace update
