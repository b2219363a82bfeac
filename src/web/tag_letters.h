// The bytes that end the parts of a tag.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace web {

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
