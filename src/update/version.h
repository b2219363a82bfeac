// Which of two versions is the newer one.
#pragma once

#include <compare>
#include <string_view>

namespace update {

/// Whether `text` is worth comparing: blanks around it aside, it begins with a digit, or with "v" and a
/// digit, and is one line of ASCII, a hundred characters at most.
bool isVersion(std::string_view text);

/// Compares two versions component by component; digits are one number, however many there are, letters one
/// word, and all else only separates: 1.10 is newer than 1.9. Components that are zero at the end count for
/// nothing: 2.0 is 2. A word makes a version that comes before the one without it: 2.0-beta2 comes before
/// 2.0-rc1, and that before 2.0. Case, a "v" in front, and "+" with all that follows do not count.
std::weak_ordering compareVersions(std::string_view left, std::string_view right);

}  // namespace update
