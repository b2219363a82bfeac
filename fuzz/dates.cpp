// Dates of Last-Modified headers.
#include "platform/dates.h"

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

}  // namespace

void fuzz::tryInput(std::string_view text) {
  for (const auto* formatter : {&kAmerican, &kGerman}) {
    const std::string date = formatter->weekDate(text);
    require(date.empty() || looksLikeDate(date), "what is shown is a date");
    require(formatter->weekDate(text) == date, "a date is the same every time");
  }
}
