#include "report/figures.h"

#include "crawler/left_out.h"
#include "platform/phrases.h"

namespace report {

using platform::Phrases;

namespace {

/// With one digit behind the point where that says something.
std::string rounded(double number, const char* unit) {
  return Phrases::language().number(number, number < 9.95 ? 1 : 0) + " " + unit;
}

}  // namespace

std::string grouped(std::int64_t number) {
  return Phrases::language().number(number);
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
  return Phrases::language().dateAndTime(secondsSince1970);
}

std::string dayText(std::int64_t secondsSince1970) {
  return Phrases::language().date(secondsSince1970);
}

std::string shortened(std::string_view text) {
  constexpr std::size_t kShown = 100;
  if (text.size() <= kShown) return std::string(text);
  return std::string(crawler::firstBytes(text, kShown)) + "...";
}

}  // namespace report
