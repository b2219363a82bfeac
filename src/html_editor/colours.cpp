#include "html_editor/colours.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/phrases.h"
#include "platform/regex.h"

namespace html_editor {

const std::string_view kHexFieldMessage = platform::Phrases::noop(
    "The colour much be 6 characters, (7 with begining #) please check the colour hex value you entered.");

namespace {

constexpr int kFull = 255;
constexpr std::size_t kDigits = 6;

/// In characters, not bytes.
std::size_t lengthOf(std::string_view utf8) {
  return static_cast<std::size_t>(std::count_if(
      utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace

std::string getHEXValue(const Colour& colour) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string text = "#";
  for (const double part : {colour.red, colour.green, colour.blue}) {
    const auto value = static_cast<unsigned>(std::clamp(part, 0.0, 1.0) * kFull);
    text += kHex[value >> 4];
    text += kHex[value & 15];
  }
  return text;
}

std::optional<Colour> setHEXValue(std::string_view text) {
  if (text.starts_with('#')) text.remove_prefix(1);
  const std::size_t run = text.find_first_not_of("1234567890abcdefABCDEF");
  if (std::min(run, text.size()) != kDigits) return std::nullopt;
  unsigned bits = 0;
  std::from_chars(text.data(), text.data() + kDigits, bits, 16);
  const auto part = [bits](unsigned shift) { return static_cast<double>(bits >> shift & 0xFF) / kFull; };
  return Colour{part(16), part(8), part(0)};
}

HexFieldAnswer checkHexField(std::string_view typed) {
  static const platform::Regex kSixDigits("(#?[A-Fa-f0-9]{3}([A-Fa-f0-9]){3})");
  HexFieldAnswer answer;
  const std::size_t length = lengthOf(typed);
  answer.text = length == kDigits ? "#" + std::string(typed) : std::string(typed);
  if (length < kDigits || length > kDigits + 1) ++answer.complaints;
  answer.accepted = kSixDigits.find(answer.text).has_value();
  if (!answer.accepted) {
    ++answer.complaints;
  } else {
    answer.well = setHEXValue(answer.text);
  }
  return answer;
}

}  // namespace html_editor
