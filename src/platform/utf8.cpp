#include "platform/utf8.h"

#include <cstddef>

namespace platform {

namespace {

/// The length of the character at the start of `bytes`; 0 when there is no whole one.
std::size_t characterLength(std::string_view bytes) {
  const auto isWithin = [&](std::size_t at, unsigned first, unsigned last) {
    const unsigned byte = at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0u;
    return byte >= first && byte <= last;
  };
  const auto follows = [&](std::size_t at) { return isWithin(at, 0x80, 0xBF); };
  const auto lead = static_cast<unsigned char>(bytes.front());
  if (lead < 0x80) return 1;
  if (lead < 0xE0) return lead >= 0xC2 && follows(1) ? 2 : 0;
  // The second byte keeps out overlong forms, surrogates and what lies behind the last character.
  if (lead < 0xF0) {
    const bool second = isWithin(1, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF);
    return second && follows(2) ? 3 : 0;
  }
  const bool second = isWithin(1, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF);
  return lead <= 0xF4 && second && follows(2) && follows(3) ? 4 : 0;
}

}  // namespace

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = characterLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

}  // namespace platform
