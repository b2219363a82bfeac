// The bytes that names consist of, and those that end the parts of a tag.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/ascii.h"

namespace web {

/// Names are compared by their first letters, as one number, whatever their case.
inline constexpr std::size_t kPackedLetters = sizeof(std::uint64_t);

constexpr std::uint64_t packedWith(std::uint64_t packed, char next) {
  return packed << 8 | static_cast<unsigned char>(platform::lowerAscii(next));
}

constexpr std::uint64_t packedLetters(std::string_view name) {
  std::uint64_t packed = 0;
  for (const char c : name.substr(0, kPackedLetters)) packed = packedWith(packed, c);
  return packed;
}

/// One look-up a byte: pages consist of tags to a large part.
constexpr std::array<std::uint8_t, 256> makeTagLetters() {
  std::array<std::uint8_t, 256> letters{};
  const auto mark = [&](std::string_view bytes, std::uint8_t bit) {
    for (const char c : bytes) letters[static_cast<unsigned char>(c)] |= bit;
  };
  mark("\t\n\f\r ", 1);
  mark("\t\n\f\r />", 2);
  mark("\t\n\f\r />=", 4);
  mark("\t\n\f\r >", 8);
  return letters;
}

inline constexpr std::array<std::uint8_t, 256> kTagLetters = makeTagLetters();

constexpr bool hasTagLetterBit(char c, std::uint8_t bit) {
  return (kTagLetters[static_cast<unsigned char>(c)] & bit) != 0;
}

constexpr bool isBlank(char c) {
  return hasTagLetterBit(c, 1);
}
constexpr bool endsTagName(char c) {
  return hasTagLetterBit(c, 2);
}
constexpr bool endsAttributeName(char c) {
  return hasTagLetterBit(c, 4);
}
constexpr bool endsBareValue(char c) {
  return hasTagLetterBit(c, 8);
}

}  // namespace web
