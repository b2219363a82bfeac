#include "platform/dates.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(WeekDate, FormatsByTheWeeksOfTheLocale) {
  struct Case {
    const char* name;
    DateStyle style;
    const char* date;
    const char* expected;
  };
  const DateStyle american{"en_US", "UTC"};
  const Case cases[] = {
      {"an offset", american, "Tue, 15 Jun 2010 23:30:00 -0100", "2010-06-16"},
      {"a zone moves the year", {"en_US", "Asia/Tokyo"}, "Sat, 31 Dec 2011 16:00:00 GMT", "2012-01-01"},
      {"the calendar of another locale", {"th_TH", "UTC"}, "Tue, 15 Jun 2010 12:00:00 GMT", "2010-06-15"},
      {"the digits of another locale", {"ar_EG", "UTC"}, "Tue, 15 Jun 2010 12:00:00 GMT", "2010-06-15"},
      {"a locale that nobody knows", {"xx_YY", "UTC"}, "Tue, 15 Jun 2010 12:00:00 GMT", "2010-06-15"},
      {"weeks from Monday", {"de_DE", "UTC"}, "Sun Jan  3 12:00:00 2010", "2009-01-03"},
      {"weeks from Sunday", american, "Sun Dec 27 12:00:00 2009", "2010-12-27"},
      {"garbage", american, "yesterday", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(DateFormatter(c.style).weekDate(c.date), c.expected);
  }
}

TEST(EnvironmentDateStyle, TakesTheFirstThatIsSet) {
  for (const char* name : {"LC_ALL", "LC_TIME", "LANG"}) unsetenv(name);
  EXPECT_EQ(environmentDateStyle().locale, "en_US");
  const char* const cases[][4] = {
      {"", "de_DE.UTF-8", "fr_FR", "de_DE"},
      {"", "", "fr_FR@euro", "fr_FR"},
      {"POSIX", "de_DE", "", "en_US"},
      {"C.UTF-8", "", "", "en_US"},
  };
  for (const auto& [all, time, language, expected] : cases) {
    setenv("LC_ALL", all, 1);
    setenv("LC_TIME", time, 1);
    setenv("LANG", language, 1);
    EXPECT_EQ(environmentDateStyle().locale, expected);
    EXPECT_EQ(environmentDateStyle().timeZone, "");
  }
}

}  // namespace
}  // namespace platform
