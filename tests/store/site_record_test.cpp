#include "store/site_record.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace {

const std::string kFresh =
    "<siteName>shop</siteName>\n<siteURL>http://a.test/</siteURL>\n<ignoreRobotFile>NO</ignoreRobotFile>\n"
    "<pagesFound>0</pagesFound>\n<totalLinks>0</totalLinks>";

TEST(SiteRecord, ReadsValues) {
  struct Case {
    const char* name;
    const char* record;
    std::optional<std::string> url;
  };
  const Case cases[] = {
      {"missing", "<siteName>x</siteName>", std::nullopt},
      {"raw markup and entities", "<siteURL><b>&amp;</siteURL>", "<b>&amp;"},
      {"end tag inside the value", "<siteURL>a</siteURL>b</siteURL>", "a</siteURL>b"},
      {"first of two lines", "<siteURL>a</siteURL>\n<siteURL>b</siteURL>", "a"},
      {"broken line is passed over", "<siteURL>a\n</siteURL>\n<siteURL>b</siteURL>", "b"},
      {"carriage return belongs to a value", "<siteURL>a\r</siteURL>", "a\r"},
      {"bytes that are no text", "<siteURL>\xFF</siteURL>", std::nullopt},
      {"other case", "<SITEURL>a</SITEURL>", std::nullopt},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(store::recordValue(c.record, "siteURL"), c.url);
  }
}

TEST(SiteRecord, ReadsCountsThatAreNumbers) {
  const auto count = [](const std::string& value) {
    return store::recordCount("<pagesUsed>" + value + "</pagesUsed>", "pagesUsed");
  };
  EXPECT_EQ(count("-2147483648"), -2147483648);
  for (const char* value : {"2147483648", "12 pages", " 12"}) EXPECT_EQ(count(value), std::nullopt) << value;
}

TEST(SiteRecord, ReplacesEveryCopyOfTheFirstMatchAndNothingElse) {
  EXPECT_EQ(
      store::withRecordValue("a\n<siteURL>1</siteURL>\n<siteURL>2</siteURL>\nx<siteURL>1</siteURL>y\r\n",
                             "siteURL", "$1\\1"),
      "a\n<siteURL>$1\\1</siteURL>\n<siteURL>2</siteURL>\nx<siteURL>$1\\1</siteURL>y\r\n");
  EXPECT_EQ(store::withRecordValue("<siteName>x</siteName>", "siteURL", "y"), "<siteName>x</siteName>");
}

TEST(SiteRecord, GainsOnlyTheCountersThatAreMissing) {
  EXPECT_EQ(store::withMissingCounters("<TOTALLINKS>"),
            "<TOTALLINKS>\n<pagesFound>0</pagesFound>\n<pagesUsed>0</pagesUsed>");
}

TEST(SiteRecord, UpgradeKeepsNameAndUrlAlone) {
  EXPECT_EQ(store::newSiteRecord("shop", "http://a.test/"), kFresh);
  EXPECT_EQ(store::upgradedRecord(
                "<x>1</x><siteURL>http://a.test/</siteURL>z\n<ignoreRobotFile>YES</ignoreRobotFile>"
                "\n<siteName>shop</siteName>\n<pagesFound>7</pagesFound>\n"),
            kFresh);
  EXPECT_EQ(store::upgradedRecord("<siteName>shop</siteName>"),
            "<siteName>shop</siteName>\n\n" + kFresh.substr(kFresh.find("<ignore")));
}

}  // namespace
