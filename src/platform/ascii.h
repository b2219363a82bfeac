// What ASCII knows of case and blanks. That of <cctype> depends on the locale and is undefined for bytes
// above 127.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace platform {

constexpr std::string_view kBlanks = "\t\n\f\r ";

constexpr char lowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isAsciiLetter(char c) {
  return lowerAscii(c) >= 'a' && lowerAscii(c) <= 'z';
}

constexpr bool isAsciiDigit(char c) {
  return c >= '0' && c <= '9';
}

inline std::string lowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = lowerAscii(c);
  return lower;
}

/// `lower` is in lower case.
inline bool startsWithAnyCase(std::string_view text, std::string_view lower) {
  return text.size() >= lower.size() && std::equal(lower.begin(), lower.end(), text.begin(),
                                                   [](char a, char b) { return a == lowerAscii(b); });
}

/// Without blanks at both ends.
inline std::string_view trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

}  // namespace platform
