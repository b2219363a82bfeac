// Numbers, times and sizes as people read them: numbers and dates as their language writes them.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace report {

/// "1,204"
std::string grouped(std::int64_t number);
std::string grouped(std::size_t number);

/// "1 page", "1,204 pages", in English.
std::string counted(std::size_t number, std::string_view one, std::string_view many);

/// "350 ms", "1.2 s"
std::string timeText(std::chrono::milliseconds time);

/// "under 1 s", "12 s", "3 min 20 s"
std::string durationText(std::int64_t seconds);

/// "812 bytes", "1.2 KB", "34 MB"
std::string sizeText(std::int64_t bytes);

/// "2026-03-01 14:05", in the machine's own time zone.
std::string dateText(std::int64_t secondsSince1970);

/// "2026-03-01", likewise.
std::string dayText(std::int64_t secondsSince1970);

/// The first hundred bytes of a text, with "..." where some are missing; no character is cut apart.
std::string shortened(std::string_view text);

}  // namespace report
