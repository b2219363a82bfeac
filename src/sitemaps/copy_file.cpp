#include "sitemaps/copy_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string>

#include "platform/phrases.h"

namespace sitemaps {

namespace {

std::chrono::hh_mm_ss<std::chrono::seconds> localTimeOfDay() {
  const std::time_t now = std::time(nullptr);
  std::tm local = {};
  localtime_r(&now, &local);
  return std::chrono::hh_mm_ss<std::chrono::seconds>(std::chrono::hours(local.tm_hour) +
                                                     std::chrono::minutes(local.tm_min) +
                                                     std::chrono::seconds(local.tm_sec));
}

}  // namespace

std::filesystem::path timedName(const std::filesystem::path& destination,
                                std::chrono::hh_mm_ss<std::chrono::seconds> timeOfDay,
                                std::string_view extension) {
  std::array<char, 32> time{};
  std::snprintf(time.data(), time.size(), "_%02d%02d%02d", static_cast<int>(timeOfDay.hours().count()),
                static_cast<int>(timeOfDay.minutes().count()), static_cast<int>(timeOfDay.seconds().count()));
  std::string name = destination.filename().native();
  name.erase(std::min(name.rfind('.'), name.size()));  // in the name alone: folders may have dots too
  name += time.data();
  name += extension;
  return destination.parent_path() / name;
}

platform::FileResult copyFile(const std::filesystem::path& source, const std::filesystem::path& destination,
                              std::string_view extension) {
  const platform::FileContent content = platform::readFile(source);
  if (!content.result.ok()) return content.result;
  std::filesystem::path copy = destination;
  if (platform::somethingAt(copy)) copy = timedName(destination, localTimeOfDay(), extension);
  if (platform::somethingAt(copy))
    return {platform::FileStatus::exists, platform::Phrases::tr("a file of this name exists")};
  return platform::replaceFile(copy, content.text);
}

}  // namespace sitemaps
