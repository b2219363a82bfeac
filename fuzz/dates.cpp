// Dates of Last-Modified headers. Input: a header's text; one that begins with a number is also taken for
// seconds since 1970, whose date in the servers' notations is known beforehand.
#include "platform/dates.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <string>

#include "fuzz_target.h"

namespace {

using fuzz::require;
using std::chrono::days;
using std::chrono::sys_days;

/// Years whose weeks begin on Sunday, the first of them being that of January 1.
const platform::DateFormatter& american() {
  static const platform::DateFormatter formatter({"en_US", "UTC"});
  return formatter;
}

/// Years whose weeks begin on Monday, the first of them having most of its days in January.
const platform::DateFormatter& german() {
  static const platform::DateFormatter formatter({"de_DE", "UTC"});
  return formatter;
}

bool looksLikeDate(std::string_view text) {
  const std::size_t dash = text.find('-', 1);
  if (dash == std::string_view::npos || text.size() != dash + 6 || text[dash + 3] != '-') return false;
  const bool digitsOnly =
      std::all_of(text.begin() + 1, text.end(), [](char c) { return c == '-' || (c >= '0' && c <= '9'); });
  const std::string_view month = text.substr(dash + 1, 2);
  const std::string_view day = text.substr(dash + 4, 2);
  return digitsOnly && month >= "01" && month <= "12" && day >= "01" && day <= "31";
}

/// The year is that of `yearDay`, a day in the same week that the locale's rule goes by.
std::string expectedDate(sys_days date, sys_days yearDay) {
  const std::chrono::year_month_day civil(date);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", int(std::chrono::year_month_day(yearDay).year()),
                unsigned(civil.month()), unsigned(civil.day()));
  return text;
}

void checkKnownDate(std::int64_t seconds) {
  constexpr const char* kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::chrono::sys_seconds time{std::chrono::seconds(seconds)};
  const sys_days date = std::chrono::floor<days>(time);
  const std::chrono::hh_mm_ss clock(time - date);
  const std::chrono::year_month_day civil(date);
  const unsigned weekday = std::chrono::weekday(date).c_encoding();
  const char* const dayName = kDays[weekday];
  const char* const monthName = kMonths[unsigned(civil.month()) - 1];
  const unsigned day = unsigned(civil.day());
  const int year = int(civil.year());
  char clockText[16];
  std::snprintf(clockText, sizeof clockText, "%02d:%02d:%02d", int(clock.hours().count()),
                int(clock.minutes().count()), int(clock.seconds().count()));

  char preferred[64];
  char old[64];
  std::snprintf(preferred, sizeof preferred, "%s, %02u %s %04d %s GMT", dayName, day, monthName, year,
                clockText);
  std::snprintf(old, sizeof old, "%s %s %2u %s %04d", dayName, monthName, day, clockText, year);

  const std::string us = expectedDate(date, date + days(6 - weekday));
  const std::string de = expectedDate(date, date - days((weekday + 6) % 7) + days(3));
  require(american().weekDate(preferred) == us, "a year is that of its week, by the rule from Sunday on");
  require(german().weekDate(preferred) == de, "a year is that of its week, by the rule from Monday on");
  require(american().weekDate(old) == us, "both notations mean the same");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::textOf(data, size);
  for (const auto* formatter : {&american(), &german()}) {
    const std::string date = formatter->weekDate(text);
    require(date.empty() || looksLikeDate(date), "what is shown is a date");
    require(formatter->weekDate(text) == date, "a date is the same every time");
  }
  std::int64_t seconds = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  constexpr std::int64_t kFirstSecond = -12'212'553'600;  // 1583, the first whole year of the calendar
  constexpr std::int64_t kLastSecond = 253'402'300'799;   // the last with a year of four digits
  // -1 stands for no date in the C library's terms.
  if (error == std::errc() && seconds >= kFirstSecond && seconds <= kLastSecond && seconds != -1) {
    checkKnownDate(seconds);
  }
  return 0;
}
