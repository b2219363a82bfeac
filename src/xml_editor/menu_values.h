// The choices of the two pop-up columns.
#pragma once

#include <array>
#include <string_view>

#include "platform/phrases.h"
#include "sitemaps/row_text.h"

namespace xml_editor {

using sitemaps::Field;

/// A choice: the name of its action, what the menu shows in English, and what is written.
struct MenuValue {
  std::string_view action;
  std::string_view title;
  std::string_view value;
};

inline constexpr std::array<MenuValue, 7> kFrequencyMenu = {
    {{"alwaysMenuItem", platform::Phrases::noop("always"), "always"},
     {"hourlyMenuItem", platform::Phrases::noop("hourly"), "hourly"},
     {"dailyMenuItem", platform::Phrases::noop("daily"), "daily"},
     {"weeklyMenuItem", platform::Phrases::noop("weekly"), "weekly"},
     {"monthlyMenuItem", platform::Phrases::noop("monthly"), "monthly"},
     {"yearlyMenuItem", platform::Phrases::noop("yearly"), "yearly"},
     {"neverMenuItem", platform::Phrases::noop("never"), "never"}}};

/// The highest priority is written "1", without the places of the others.
inline constexpr std::array<MenuValue, 11> kPriorityMenu = {{{"pZeroPriority", "0.0", "0.0"},
                                                             {"ponePriority", "0.1", "0.1"},
                                                             {"ptwoPriority", "0.2", "0.2"},
                                                             {"pthreePriority", "0.3", "0.3"},
                                                             {"pfourPriority", "0.4", "0.4"},
                                                             {"pfivePriority", "0.5", "0.5"},
                                                             {"psixPriority", "0.6", "0.6"},
                                                             {"psevenPriority", "0.7", "0.7"},
                                                             {"peightPriority", "0.8", "0.8"},
                                                             {"pninePriority", "0.9", "0.9"},
                                                             {"highestPriority", "1.0", "1"}}};

/// The choice that a row has; null for a value that is none of them. "1.0", as others write it, is the
/// highest too.
const MenuValue* chosenValue(std::string_view row, Field field);

}  // namespace xml_editor
