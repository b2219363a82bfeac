#include "platform/gzip.h"

#include <algorithm>
#include <array>
#include <limits>

#include <zlib.h>

namespace platform {

namespace {

constexpr int kGzipWindow = 15 + 16;  // the usual window; 16 asks for gzip's header and checksum
constexpr int kMemoryLevel = 8;       // zlib's own default

/// A running compression, ended with this object.
class Deflation {
 public:
  Deflation()
      : m_ready(deflateInit2(&m_stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzipWindow, kMemoryLevel,
                             Z_DEFAULT_STRATEGY) == Z_OK) {}
  ~Deflation() {
    if (m_ready) deflateEnd(&m_stream);
  }
  Deflation(const Deflation&) = delete;
  Deflation& operator=(const Deflation&) = delete;

  bool ready() const { return m_ready; }

  /// Appends to `result` what becomes of `text`; `last` ends the file.
  void add(std::string_view text, bool last, std::string& result) {
    // The library counts in 32 bits, and its input is not const although it only reads it.
    m_stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    m_stream.avail_in = static_cast<uInt>(text.size());
    std::array<char, 64 * 1024> block;
    do {
      m_stream.next_out = reinterpret_cast<Bytef*>(block.data());
      m_stream.avail_out = static_cast<uInt>(block.size());
      deflate(&m_stream, last ? Z_FINISH : Z_NO_FLUSH);
      result.append(block.data(), block.size() - m_stream.avail_out);
    } while (m_stream.avail_out == 0);
  }

 private:
  z_stream m_stream = {};
  bool m_ready;
};

/// A running decompression, ended with this object.
class Inflation {
 public:
  Inflation() : m_ready(inflateInit2(&m_stream, kGzipWindow) == Z_OK) {}
  ~Inflation() {
    if (m_ready) inflateEnd(&m_stream);
  }
  Inflation(const Inflation&) = delete;
  Inflation& operator=(const Inflation&) = delete;

  /// Takes one piece of the file off `content` and appends what it holds.
  GunzipFailure takePiece(std::string_view& content, std::size_t maxBytes, std::string& result) {
    if (!m_ready || inflateReset(&m_stream) != Z_OK) return GunzipFailure::damaged;
    std::array<char, 64 * 1024> block;
    int state = Z_OK;
    while (state == Z_OK) {
      const auto given = static_cast<uInt>(std::min<std::size_t>(content.size(), kMaxInput));
      m_stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
      m_stream.avail_in = given;
      m_stream.next_out = reinterpret_cast<Bytef*>(block.data());
      m_stream.avail_out = static_cast<uInt>(block.size());
      state = inflate(&m_stream, Z_NO_FLUSH);  // Z_BUF_ERROR when there is nothing left to take
      content.remove_prefix(given - m_stream.avail_in);
      const std::size_t made = block.size() - m_stream.avail_out;
      if (made > maxBytes - result.size()) return GunzipFailure::tooLarge;
      result.append(block.data(), made);
    }
    return state == Z_STREAM_END ? GunzipFailure::none : GunzipFailure::damaged;
  }

 private:
  static constexpr std::size_t kMaxInput = std::numeric_limits<uInt>::max();

  z_stream m_stream = {};
  bool m_ready;
};

}  // namespace

std::optional<std::string> gzipped(std::string_view text) {
  Deflation deflation;
  if (!deflation.ready()) return {};
  std::string result;
  do {
    const std::string_view piece = text.substr(0, std::numeric_limits<uInt>::max());
    text.remove_prefix(piece.size());
    deflation.add(piece, text.empty(), result);
  } while (!text.empty());
  return result;
}

bool isGzip(std::string_view content) {
  return content.starts_with("\x1F\x8B");
}

Gunzipped gunzipped(std::string_view content, std::size_t maxBytes) {
  Gunzipped unpacked;
  Inflation inflation;
  do {
    unpacked.failure = inflation.takePiece(content, maxBytes, unpacked.text);
    if (unpacked.failure != GunzipFailure::none) return {unpacked.failure};
  } while (!content.empty());
  return unpacked;
}

}  // namespace platform
