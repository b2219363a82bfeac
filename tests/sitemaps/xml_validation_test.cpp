// Which sitemaps are valid, and what is said of the others.
#include "sitemaps/xml_validation.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sitemaps/xml_value_rules.h"

namespace sitemaps {
namespace {

using std::chrono::minutes;
using std::chrono::sys_days;
using std::chrono::year;
using testing::AllOf;
using testing::Contains;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kOpen = "<urlset xmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\">";
const std::chrono::sys_seconds kNoon = sys_days(year(2024) / 5 / 6) + std::chrono::hours(12);

std::vector<XmlFinding> validate(const std::string& text) {
  return validateXmlSitemap(text, {.now = kNoon});
}

/// An entry of the address "http://a.test/" and `rest`, and what follows that.
std::string urlEntry(const std::string& rest = {}, const std::string& children = {}) {
  return "<url><loc>http://a.test/" + rest + "</loc>" + children + "</url>";
}

std::string sitemap(const std::string& entries) {
  return kOpen + entries + "</urlset>";
}

TEST(ValidateXmlSitemap, TakesAByteOrderMark) {
  EXPECT_THAT(validate("\xEF\xBB\xBF" + sitemap(urlEntry())), IsEmpty());
}

TEST(ValidateXmlSitemap, NamesEachFaultWithItsEntry) {
  struct Case {
    const char* name;
    std::string text;
    std::size_t entry;
    const char* element;
    const char* message;  // a part of it
  };
  const std::string good = urlEntry();
  const Case cases[] = {
      {"nothing", "", 0, "", "Line 1"},
      {"no namespace", "<urlset>" + good + "</urlset>", 0, "urlset", "namespace is missing"},
      {"another namespace", "<urlset xmlns='http://b.test/0.84'>" + good + "</urlset>", 0, "urlset", "0.84"},
      {"an entry of no namespace", sitemap(good + "<url xmlns=''/>"), 0, "urlset", "\"url\""},
      {"text beside entries", sitemap("x" + good), 0, "urlset", "Text"},
      {"text in an entry", sitemap(good + urlEntry("b", "x")), 2, "url", "Text"},
      {"no address", sitemap(good + "<url><lastmod>2010-06-15</lastmod></url>"), 2, "loc", "no address"},
      {"an address twice in an entry",
       sitemap("<url><loc>http://a.test/b</loc><loc>http://a.test/c</loc></url>"), 1, "loc", "twice"},
      {"a frequency", sitemap(urlEntry("", "<changefreq>often</changefreq>")), 1, "changefreq", "\"often\""},
      {"of another namespace", sitemap(urlEntry("", "<i:image xmlns:i='http://i.test/'/>")), 1, "url",
       "http://i.test/"},
      {"an element in a value", sitemap(urlEntry("<b/>")), 1, "loc", "\"b\""},
      {"an attribute", sitemap(urlEntry("", "<priority x='1'>0.5</priority>")), 1, "priority", "\"x\""},
      {"an attribute behind the schema's place",
       "<urlset xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:schemaLocation='a b' y=''/>", 0,
       "urlset", "\"y\""},
      {"another host", sitemap(good + "<url><loc>http://b.test/x</loc></url>"), 2, "loc", "host"},
      {"the same, written otherwise", sitemap(good + "<url><loc> HTTP://A.Test:80 </loc></url>"), 2, "loc",
       "in entry 1"},
      {"an empty date", sitemap(urlEntry("", "<lastmod></lastmod>")), 1, "lastmod", "empty"},
      {"a date of tomorrow", sitemap(urlEntry("", "<lastmod>2024-05-07</lastmod>")), 1, "lastmod", "future"},
      {"a priority", sitemap(urlEntry("", "<priority>1.1</priority>")), 1, "priority", "\"1.1\""},
      {"a bare ampersand", sitemap(good + urlEntry("?x&y=1")), 2, "loc", "A bare \"&\""},
      {"a stray less-than", sitemap(good + urlEntry("?x< y")), 2, "loc", "A bare \"<\""},
      {"an entity of HTML", sitemap(good + urlEntry("&nbsp;")), 2, "loc", "nbsp"},
      {"a document type", "<!DOCTYPE urlset>" + sitemap(good), 0, "", "document type"},
      {"unclosed", kOpen + good, 0, "", "urlset"},
      {"bad bytes", sitemap(good + "<!-- \xFF -->"), 0, "", "not UTF-8"},
      {"another encoding", "<?xml version='1.0' encoding='ASCII'?>" + sitemap(good), 0, "", "ASCII"},
      {"a prefix without a namespace", sitemap(urlEntry("", "<i:image/>")), 1, "", "Namespace prefix i"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_THAT(validate(c.text),
                Contains(AllOf(Field("entry", &XmlFinding::entry, c.entry),
                               Field("element", &XmlFinding::element, c.element),
                               Field("message", &XmlFinding::message, HasSubstr(c.message)))));
  }
}

TEST(ValidateXmlSitemap, FindsEveryFaultInTheOrderOfTheDocument) {
  // What was read of the third address is that of the first, and says nothing.
  const auto findings =
      validate(sitemap(urlEntry("?a&b", "<priority>2</priority>") + urlEntry("", "<lastmod>x</lastmod>") +
                       urlEntry("?a&b") + "<x/>" + urlEntry("c d")));
  std::vector<std::string> places;
  for (const XmlFinding& finding : findings)
    places.push_back(std::to_string(finding.entry) + finding.element);
  EXPECT_EQ(places, (std::vector<std::string>{"0urlset", "1loc", "1priority", "2lastmod", "3loc", "4loc"}));
}

TEST(ValidateXmlSitemap, HoldsEntriesToTheHostOfTheSite) {
  const auto onSite = [](const std::string& site) {
    return validateXmlSitemap(sitemap(urlEntry()), {.now = kNoon, .siteUrl = site});
  };
  EXPECT_THAT(onSite("HTTP://A.test:80/shop/"), IsEmpty());
  EXPECT_THAT(onSite("no address"), IsEmpty());
  const auto findings = onSite("https://a.test/");
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_THAT(findings[0].message, HasSubstr("the site, https://a.test:443"));
}

TEST(ValidateXmlSitemap, CountsEntriesAndBytes) {
  std::string entries;
  for (std::size_t i = 0; i < kMaxSitemapEntries; ++i) entries += "<url/>";
  EXPECT_THAT(validate(sitemap(entries)), Not(Contains(Field(&XmlFinding::entry, 0))));
  EXPECT_EQ(validate(sitemap(entries + "<url/>"))[0].message,
            "The sitemap has 50001 entries; at most 50000 are allowed");

  const std::string large(kMaxSitemapBytes, 'x');
  const auto tooLarge = Contains(Field(&XmlFinding::message, HasSubstr("larger than 50 MB")));
  EXPECT_THAT(validate(large), Not(tooLarge));
  EXPECT_THAT(validate(large + "x"), tooLarge);
}

TEST(ValidateXmlSitemap, ReadsOnlySoMuchOfHostileText) {
  std::string attributes = kOpen + urlEntry() + "<url ";
  for (int i = 0; i < 100'000; ++i) attributes += "a" + std::to_string(i) + "='' ";
  EXPECT_THAT(validate(attributes + "/></urlset>").back().message, HasSubstr("A tag is too long"));

  std::string nested = kOpen;
  for (int i = 0; i < 100'000; ++i) nested += "<url>";
  EXPECT_FALSE(validate(nested).empty());

  std::string broken = kOpen + urlEntry();
  for (int i = 0; i < 100'000; ++i) broken += "&";
  EXPECT_LE(validate(broken + "</urlset>").size(), 1002u);

  const std::string laughs =
      "<!DOCTYPE urlset [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">"
      "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d SYSTEM \"file:///etc/passwd\">]>";
  for (const XmlFinding& finding : validate(laughs + sitemap(urlEntry("&c;&d;")))) {
    EXPECT_EQ(finding.message.find("haha"), std::string::npos);
    EXPECT_EQ(finding.message.find("root:"), std::string::npos);
  }
}

TEST(LocFault, HoldsAddressesToTheGrammar) {
  const auto ofLength = [](std::size_t length) { return "http://a.test/" + std::string(length - 14, 'x'); };
  EXPECT_EQ(locFault(ofLength(2047)), std::nullopt);
  for (const char* good :
       {"https://a.test/b?c=d&e='f'#g", "HTTP://A.TEST:8080/%7Ex/;a,b(c)*!$+@:", "http://[::1]/abc",
        "http://user@a.test/", " http://a.co/ ", "http://a.test:65535/"}) {
    EXPECT_EQ(locFault(good), std::nullopt);
  }
  for (const char* bad :
       {"http://a.test/%4", "http://a.test/[b]", "ftp://a.test/abc", "//a.test/abcdef", "http:///abcdefghij",
        "http://a.test:/abc", "http://a.test:0/abc", "http://a.test:65536/"}) {
    EXPECT_THAT(locFault(bad).value_or(""), HasSubstr("not an absolute address")) << bad;
  }
  const std::pair<std::string, const char*> others[] = {
      {ofLength(2048), "2048 characters"},
      {"http://a.co", "fewer than 12"},
      {"", "empty"},
      {"http://a.test/a b", "a blank"},
      {"http://a.test/\xC3\xA9", "\"\xC3\xA9\""},
      {"http://a.test/{b}", "\"{\""},
  };
  for (const auto& [address, fault] : others) {
    EXPECT_THAT(locFault(address).value_or(""), HasSubstr(fault)) << address;
  }
}

TEST(LastmodFault, TakesTheFormsOfBothRules) {
  struct Case {
    const char* fault;
    std::vector<const char*> values;
  };
  const Case cases[] = {
      {"none",
       {" 2010-06-15 ", "2010-06-15T12:30:00Z", "2010-06-15T00:00:00.5+14:00", "2010-06-15T23:59:59-12:00",
        "2012-02-29", "0001-01-01", "2024-05-06", "2024-05-06T12:00:00Z", "2024-05-07T01:00:00+14:00"}},
      {"calendar", {"2011-02-29", "2010-13-01", "2010-00-01", "2010-06-00", "0000-01-01"}},
      {"form",
       {"", "2010", "2010-06", "2010-6-15", "2010-06-15Z", "2010-06-15T12:30Z", "2010-06-15T12:30:00",
        "2010-06-15T24:00:00Z", "2010-06-15T12:60:00Z", "2010-06-15T12:30:60Z", "2010-06-15T12:30:00.Z",
        "2010-06-15T12:30:00+14:01", "2010-06-15T12:30:00+0200", "2010-06-15 12:30:00Z"}},
      {"future", {"2024-05-07", "2024-05-06T12:00:01Z", "2024-05-06T11:00:01-01:00"}},
  };
  for (const Case& c : cases) {
    for (const char* value : c.values) {
      EXPECT_THAT(lastmodFault(value, kNoon, minutes(0)).value_or("none"), HasSubstr(c.fault)) << value;
    }
  }
  // Days are those of the reader's zone.
  EXPECT_FALSE(lastmodFault("2024-05-07", kNoon, minutes(12 * 60)));
  EXPECT_TRUE(lastmodFault("2024-05-07", kNoon, minutes(12 * 60 - 1)));
}

TEST(ValueFaults, TakeOnlyWhatTheSchemaTakes) {
  for (const char* good : {"0", "1", "1.000", "0.123456789", " 0.5 "})
    EXPECT_FALSE(priorityFault(good)) << good;
  for (const char* bad :
       {"1.01", "2", "-0.1", "+0.5", ".5", "0.", "00.5", "0,5", "", "0.12345678901234567"}) {
    EXPECT_TRUE(priorityFault(bad)) << bad;
  }
  EXPECT_FALSE(changefreqFault("never"));
  for (const char* bad : {"Daily", " daily", "dail", ""}) EXPECT_TRUE(changefreqFault(bad)) << bad;
}

TEST(InQuotes, CutsBetweenCharacters) {
  std::string text;
  for (int i = 0; i < 60; ++i) text += "\xE2\x82\xAC";
  EXPECT_EQ(inQuotes(text), "\"" + text.substr(0, 78) + "...\"");
}

}  // namespace
}  // namespace sitemaps
