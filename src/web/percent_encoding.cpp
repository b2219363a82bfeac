#include "web/percent_encoding.h"

#include <array>
#include <cstddef>

#include "platform/ascii.h"

namespace web {
namespace {

constexpr std::array<std::uint8_t, 256> makeEncodeSets() {
  constexpr std::uint8_t kAll = 63;
  std::array<std::uint8_t, 256> sets{};
  for (std::size_t byte = 0; byte < sets.size(); ++byte) {
    if (byte < 0x20 || byte > 0x7E) sets[byte] = kAll;
  }
  const auto mark = [&](std::string_view bytes, std::uint8_t bits) {
    for (const char c : bytes) sets[static_cast<unsigned char>(c)] |= bits;
  };
  constexpr auto kFragment = static_cast<std::uint8_t>(EncodeSet::fragment);
  constexpr auto kSpecialQuery = static_cast<std::uint8_t>(EncodeSet::specialQuery);
  constexpr auto kUserInfo = static_cast<std::uint8_t>(EncodeSet::userInfo);
  constexpr auto kPath = static_cast<std::uint8_t>(static_cast<unsigned>(EncodeSet::path) | kUserInfo);
  constexpr auto kQuery =
      static_cast<std::uint8_t>(static_cast<unsigned>(EncodeSet::query) | kSpecialQuery | kPath);
  mark(" \"<>", kQuery | kFragment);
  mark("`", kPath | kFragment);
  mark("#", kQuery);
  mark("'", kSpecialQuery);
  mark("?^{}", kPath);
  mark("/:;=@[\\]|", kUserInfo);
  return sets;
}

constexpr std::array<std::uint8_t, 256> kEncodeSets = makeEncodeSets();

}  // namespace

void appendPercentEncoded(std::string& to, std::string_view bytes, EncodeSet set) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::size_t start = 0;  // of what can stay
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if ((kEncodeSets[byte] & static_cast<std::uint8_t>(set)) == 0) continue;
    to.append(bytes, start, i - start);
    const char encoded[] = {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    to.append(encoded, sizeof encoded);
    start = i + 1;
  }
  to.append(bytes, start);
}

std::string percentDecoded(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned high = text[i] == '%' && text.size() - i > 2 ? hexValue(text[i + 1]) : 16;
    const unsigned low = high < 16 ? hexValue(text[i + 2]) : 16;
    if (low < 16) {
      decoded += static_cast<char>(high << 4 | low);
      i += 2;
    } else {
      decoded += text[i];
    }
  }
  return decoded;
}

unsigned hexValue(char c) {
  if (platform::isAsciiDigit(c)) return static_cast<unsigned>(c - '0');
  const char lower = platform::lowerAscii(c);
  return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a') + 10 : 16;
}

}  // namespace web
