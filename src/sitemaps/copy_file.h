// Copies of documents, beside what is there already.
#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>

#include "platform/files.h"

namespace sitemaps {

/// The name for a copy whose own name is taken: `destination` without its last "." and what follows, the time
/// of day as "_140509", and `extension`, which brings its own dot. A name without a dot is kept whole.
std::filesystem::path timedName(const std::filesystem::path& destination,
                                std::chrono::hh_mm_ss<std::chrono::seconds> timeOfDay,
                                std::string_view extension);

/// Copies a file to `destination`, or to its timedName() of this moment, local time, when anything stands
/// there. Never replaces: `exists` when both names are taken. No command of the program copies documents.
platform::FileResult copyFile(const std::filesystem::path& source, const std::filesystem::path& destination,
                              std::string_view extension);

}  // namespace sitemaps
