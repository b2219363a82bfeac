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
  const DateStyle german{"de_DE", "UTC"};
  const Case cases[] = {
      {"in the middle of a year", american, "Tue, 15 Jun 2010 12:00:00 GMT", "2010-06-15"},
      {"the last days of a year", american, "Mon, 31 Dec 2012 23:59:59 GMT", "2013-12-31"},
      {"a Sunday begins the American week", american, "Sun, 30 Dec 2012 12:00:00 GMT", "2013-12-30"},
      {"a Sunday ends the German week", german, "Sun, 30 Dec 2012 12:00:00 GMT", "2012-12-30"},
      {"the first days in the week of 1 January", american, "Fri, 01 Jan 2010 12:00:00 GMT", "2010-01-01"},
      {"the first days in the week before", german, "Fri, 01 Jan 2010 12:00:00 GMT", "2009-01-01"},
      {"an offset", american, "Tue, 15 Jun 2010 23:30:00 -0100", "2010-06-16"},
      {"a zone moves the year", {"en_US", "Asia/Tokyo"}, "Sat, 31 Dec 2011 16:00:00 GMT", "2012-01-01"},
      {"the calendar of another locale", {"th_TH", "UTC"}, "Tue, 15 Jun 2010 12:00:00 GMT", "2010-06-15"},
      {"the digits of another locale", {"ar_EG", "UTC"}, "Tue, 15 Jun 2010 12:00:00 GMT", "2010-06-15"},
      {"a locale that nobody knows", {"xx_YY", "UTC"}, "Tue, 15 Jun 2010 12:00:00 GMT", "2010-06-15"},
      {"before 1970", american, "Thu, 12 Jun 1969 12:00:00 GMT", "1969-06-12"},
      {"nothing", american, "", ""},
      {"garbage", american, "yesterday", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(DateFormatter(c.style).weekDate(c.date), c.expected);
  }
}

void setVariable(const char* name, const char* value) {
  if (value != nullptr) {
    setenv(name, value, 1);
  } else {
    unsetenv(name);
  }
}

TEST(EnvironmentDateStyle, TakesTheFirstThatIsSet) {
  struct Case {
    const char* all;
    const char* time;
    const char* language;
    const char* expected;
  };
  const Case cases[] = {
      {nullptr, nullptr, nullptr, "en_US"},      {"", "de_DE.UTF-8", "fr_FR", "de_DE"},
      {nullptr, nullptr, "fr_FR@euro", "fr_FR"}, {"POSIX", "de_DE", nullptr, "en_US"},
      {"C.UTF-8", nullptr, nullptr, "en_US"},
  };
  for (const Case& c : cases) {
    setVariable("LC_ALL", c.all);
    setVariable("LC_TIME", c.time);
    setVariable("LANG", c.language);
    EXPECT_EQ(environmentDateStyle().locale, c.expected);
    EXPECT_EQ(environmentDateStyle().timeZone, "");
  }
}

}  // namespace
}  // namespace platform
