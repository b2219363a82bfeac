// Small bodies that decode to enormous ones.
#pragma once

#include <cstddef>
#include <string>

namespace support {

/// `size` zero bytes, packed with gzip: about a thousandth of it.
std::string gzipBomb(std::size_t size);

/// `size` zero bytes, packed with brotli: next to nothing.
std::string brotliBomb(std::size_t size);

}  // namespace support
