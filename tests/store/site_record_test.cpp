#include "store/site_record.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace {

const std::string kFresh =
    "<siteName>shop</siteName>\n<siteURL>http://a.test/</siteURL>\n<ignoreRobotFile>NO</ignoreRobotFile>\n"
    "<pagesFound>0</pagesFound>\n<totalLinks>0</totalLinks>";

TEST(SiteRecord, NewOneHasFiveLines) {
  EXPECT_EQ(store::newSiteRecord("shop", "http://a.test/"), kFresh);
}

TEST(SiteRecord, ReadsValues) {
  struct Case {
    const char* name;
    const char* record;
    std::optional<std::string> url;
  };
  const Case cases[] = {
      {"missing", "<siteName>x</siteName>", std::nullopt},
      {"empty", "<siteURL></siteURL>", ""},
      {"raw markup and entities", "<siteURL><b>&amp;</siteURL>", "<b>&amp;"},
      {"end tag inside the value", "<siteURL>a</siteURL>b</siteURL>", "a</siteURL>b"},
      {"two on a line are one", "<siteURL>a</siteURL><siteURL>b</siteURL>", "a</siteURL><siteURL>b"},
      {"first of two lines", "<siteURL>a</siteURL>\n<siteURL>b</siteURL>", "a"},
      {"broken line is passed over", "<siteURL>a\n</siteURL>\n<siteURL>b</siteURL>", "b"},
      {"carriage return belongs to a value", "<siteURL>a\r</siteURL>", "a\r"},
      {"other case", "<SITEURL>a</SITEURL>", std::nullopt},
      {"not UTF-8 elsewhere", "\xFF\xFE\n<siteURL>a</siteURL>", "a"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(store::recordValue(c.record, "siteURL"), c.url);
  }
}

TEST(SiteRecord, ReadsCounts) {
  struct Case {
    const char* value;
    std::optional<int> count;
  };
  const Case cases[] = {{"0", 0},
                        {"-3", -3},
                        {"2147483647", 2147483647},
                        {"2147483648", std::nullopt},
                        {"", std::nullopt},
                        {"12 pages", std::nullopt},
                        {" 12", std::nullopt}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.value);
    EXPECT_EQ(store::recordCount("<pagesUsed>" + std::string(c.value) + "</pagesUsed>", "pagesUsed"),
              c.count);
  }
}

TEST(SiteRecord, ReplacesEveryCopyOfTheFirstMatchAndNothingElse) {
  EXPECT_EQ(
      store::withRecordValue("a\n<siteURL>1</siteURL>\n<siteURL>2</siteURL>\nx<siteURL>1</siteURL>y\r\n",
                             "siteURL", "$1\\1"),
      "a\n<siteURL>$1\\1</siteURL>\n<siteURL>2</siteURL>\nx<siteURL>$1\\1</siteURL>y\r\n");
  EXPECT_EQ(store::withRecordValue("<siteName>x</siteName>", "siteURL", "y"), "<siteName>x</siteName>");
}

TEST(SiteRecord, GainsMissingCountersOnce) {
  const std::string complete = store::withMissingCounters(kFresh);
  EXPECT_EQ(complete, kFresh + "\n<pagesUsed>0</pagesUsed>");
  EXPECT_EQ(store::withMissingCounters(complete), complete);
  EXPECT_EQ(store::withMissingCounters("<TOTALLINKS>"),
            "<TOTALLINKS>\n<pagesFound>0</pagesFound>\n<pagesUsed>0</pagesUsed>");
}

TEST(SiteRecord, TakesStatisticsOnlyWhenAllThreeHavePlace) {
  EXPECT_EQ(store::withStatistics(kFresh, {.totalLinks = 1, .pagesFound = 2, .pagesUsed = 3}), std::nullopt);
  const auto record = store::withStatistics(store::withMissingCounters(kFresh),
                                            {.totalLinks = 1, .pagesFound = 2, .pagesUsed = -3});
  ASSERT_TRUE(record);
  EXPECT_EQ(store::recordCount(*record, "totalLinks"), 1);
  EXPECT_EQ(store::recordCount(*record, "pagesFound"), 2);
  EXPECT_EQ(store::recordCount(*record, "pagesUsed"), -3);
}

TEST(SiteRecord, TurnsOnlyAProperRobotsSwitch) {
  const std::string on = store::withIgnoreRobots(kFresh, true);
  EXPECT_TRUE(store::ignoresRobots(on));
  EXPECT_EQ(store::withIgnoreRobots(on, true), on);
  EXPECT_EQ(store::withIgnoreRobots(on, false), kFresh);
  EXPECT_EQ(store::withIgnoreRobots("<ignoreRobotFile>no</ignoreRobotFile>", true),
            "<ignoreRobotFile>no</ignoreRobotFile>");
}

TEST(SiteRecord, UpgradeKeepsNameAndUrlAlone) {
  EXPECT_EQ(store::upgradedRecord(
                "<x>1</x><siteURL>http://a.test/</siteURL>z\n<ignoreRobotFile>YES</ignoreRobotFile>"
                "\n<siteName>shop</siteName>\n<pagesFound>7</pagesFound>\n"),
            kFresh);
  EXPECT_EQ(store::upgradedRecord("<siteName>shop</siteName>"),
            "<siteName>shop</siteName>\n\n" + kFresh.substr(kFresh.find("<ignore")));
  EXPECT_EQ(store::upgradedRecord("some other file"), std::nullopt);
}

}  // namespace
