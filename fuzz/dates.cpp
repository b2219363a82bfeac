// Dates of Last-Modified headers. Input: a header's text; one that begins with a number is also taken for
// seconds since 1970, whose date in the servers' notations is known beforehand.
#include "platform/dates.h"

#include <charconv>
#include <ctime>
#include <string>

#include "fuzz_target.h"
#include "platform/regex.h"

namespace {

using fuzz::require;

/// Years whose weeks begin on Sunday, the first of them being that of January 1.
const platform::DateFormatter kAmerican({"en_US", "UTC"});

/// Years whose weeks begin on Monday, the first of them having most of its days in January.
const platform::DateFormatter kGerman({"de_DE", "UTC"});

bool looksLikeDate(std::string_view text) {
  static const platform::Regex date("-?[0-9]+-(0[1-9]|1[0-2])-(0[1-9]|[12][0-9]|3[01])");
  const auto match = date.find(text);
  return match && match->whole == text;
}

std::string formatted(const char* format, std::time_t seconds) {
  std::tm date = {};
  gmtime_r(&seconds, &date);
  char text[64];
  return {text, std::strftime(text, sizeof text, format, &date)};
}

void checkKnownDate(std::time_t seconds) {
  const std::string preferred = formatted("%a, %d %b %Y %H:%M:%S GMT", seconds);
  const int daysToSaturday = 6 - std::stoi(formatted("%w", seconds));
  const std::string year = formatted("%Y", seconds + std::time_t{daysToSaturday} * 24 * 60 * 60);
  require(kAmerican.weekDate(preferred) == year + formatted("-%m-%d", seconds),
          "a year is that of its week, by the rule from Sunday on");
  require(kGerman.weekDate(preferred) == formatted("%G-%m-%d", seconds),
          "a year is that of its week, by the rule from Monday on");
  require(kAmerican.weekDate(formatted("%a %b %e %T %Y", seconds)) == kAmerican.weekDate(preferred),
          "both notations mean the same");
}

}  // namespace

void fuzz::tryInput(std::string_view text) {
  for (const auto* formatter : {&kAmerican, &kGerman}) {
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
}
