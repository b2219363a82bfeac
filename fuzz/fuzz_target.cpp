#include "fuzz_target.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Called by libFuzzer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::tryInput(size == 0 ? "" : std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}

namespace fuzz {

void require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "This does not hold: %s\n", property);
  std::abort();
}

std::string_view takeLine(std::string_view& rest) {
  const std::string_view line = rest.substr(0, rest.find('\n'));
  rest.remove_prefix(std::min(line.size() + 1, rest.size()));
  return line;
}

bool isUtf8(std::string_view text) {
  std::size_t i = 0;
  const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  while (i < text.size()) {
    const unsigned lead = byteAt(i++);
    if (lead < 0x80) continue;
    const std::size_t following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - i < following) return false;
    unsigned code = lead & (0x3Fu >> following);
    for (std::size_t k = 0; k < following; ++k, ++i) {
      if ((byteAt(i) & 0xC0) != 0x80) return false;
      code = code << 6 | (byteAt(i) & 0x3F);
    }
    constexpr unsigned kSmallest[] = {0, 0x80, 0x800, 0x10000};
    if (code < kSmallest[following] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return false;
  }
  return true;
}

}  // namespace fuzz
