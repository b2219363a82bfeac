#include "support/bombs.h"

#include <cstdint>
#include <stdexcept>

#include <brotli/encode.h>

namespace support {

std::string brotliBomb(std::size_t size) {
  const std::string content(size, '\0');
  std::string packed(size / 128 + 1024, '\0');
  std::size_t packedSize = packed.size();
  if (!BrotliEncoderCompress(1, BROTLI_DEFAULT_WINDOW, BROTLI_MODE_GENERIC, size,
                             reinterpret_cast<const std::uint8_t*>(content.data()), &packedSize,
                             reinterpret_cast<std::uint8_t*>(packed.data()))) {
    throw std::runtime_error("the bomb was not packed");
  }
  packed.resize(packedSize);
  return packed;
}

}  // namespace support
