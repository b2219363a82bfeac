#include "support/bombs.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include <brotli/encode.h>
#include <zlib.h>

namespace support {

namespace {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
using Zeros = std::unique_ptr<void, Free>;

/// They take no memory, as the pages are never written to.
Zeros zeros(std::size_t size) {
  return Zeros(std::calloc(size, 1));
}

void require(bool packed) {
  if (!packed) throw std::runtime_error("the bomb was not packed");
}

}  // namespace

std::string gzipBomb(std::size_t size) {
  const Zeros content = zeros(size);
  z_stream stream = {};
  constexpr int kGzipFormat = 15 + 16;
  deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, kGzipFormat, 8, Z_DEFAULT_STRATEGY);
  std::string packed(size / 128 + 1024, '\0');
  stream.next_in = static_cast<Bytef*>(content.get());
  stream.avail_in = static_cast<uInt>(size);
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  require(deflate(&stream, Z_FINISH) == Z_STREAM_END);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

std::string brotliBomb(std::size_t size) {
  const Zeros content = zeros(size);
  std::string packed(size / 128 + 1024, '\0');
  std::size_t packedSize = packed.size();
  require(BrotliEncoderCompress(1, BROTLI_DEFAULT_WINDOW, BROTLI_MODE_GENERIC, size,
                                static_cast<const std::uint8_t*>(content.get()), &packedSize,
                                reinterpret_cast<std::uint8_t*>(packed.data())));
  packed.resize(packedSize);
  return packed;
}

}  // namespace support
