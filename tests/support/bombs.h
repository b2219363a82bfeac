// A small body that decodes to an enormous one.
#pragma once

#include <cstddef>
#include <string>

namespace support {

/// `size` zero bytes, packed with brotli: next to nothing.
std::string brotliBomb(std::size_t size);

}  // namespace support
