#include "report/figures.h"

#include <array>
#include <cstdio>
#include <ctime>

#include "crawler/left_out.h"

namespace report {

namespace {

/// With one digit behind the point where that says something.
std::string rounded(double number, const char* unit) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), number < 9.95 ? "%.1f %s" : "%.0f %s", number, unit);
  return text.data();
}

}  // namespace

std::string grouped(std::int64_t number) {
  std::string text = std::to_string(number);
  const std::size_t first = number < 0 ? 1 : 0;
  for (std::size_t at = text.size(); at > first + 3;) text.insert(at -= 3, ",");
  return text;
}

std::string grouped(std::size_t number) {
  return grouped(static_cast<std::int64_t>(number));
}

std::string counted(std::size_t number, std::string_view one, std::string_view many) {
  return grouped(number).append(" ").append(number == 1 ? one : many);
}

std::string timeText(std::chrono::milliseconds time) {
  if (time.count() < 1000) return std::to_string(time.count()) + " ms";
  return rounded(static_cast<double>(time.count()) / 1000, "s");
}

std::string durationText(std::int64_t seconds) {
  if (seconds <= 0) return "under 1 s";
  if (seconds < 60) return std::to_string(seconds) + " s";
  return grouped(seconds / 60) + " min " + std::to_string(seconds % 60) + " s";
}

std::string sizeText(std::int64_t bytes) {
  if (bytes < 1000) return counted(static_cast<std::size_t>(bytes), "byte", "bytes");
  if (bytes < 1'000'000) return rounded(static_cast<double>(bytes) / 1e3, "KB");
  return rounded(static_cast<double>(bytes) / 1e6, "MB");
}

std::string dateText(std::int64_t secondsSince1970) {
  const auto time = static_cast<std::time_t>(secondsSince1970);
  std::tm parts{};
  std::array<char, 64> text{};
  if (localtime_r(&time, &parts) == nullptr) return {};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts)};
}

std::string shortened(std::string_view text) {
  constexpr std::size_t kShown = 100;
  if (text.size() <= kShown) return std::string(text);
  return std::string(crawler::firstBytes(text, kShown)) + "...";
}

}  // namespace report
