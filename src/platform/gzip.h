// Compressed files, as web servers hand them out.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// `text` as the content of a .gz file. The same text always gives the same bytes: no time and no name go
/// into it. Nothing when there is not enough memory.
std::optional<std::string> gzipped(std::string_view text);

/// Whether `content` begins as that of a .gz file.
bool isGzip(std::string_view content);

enum class GunzipFailure {
  none,
  damaged,   // not compressed, broken, cut off, or followed by something else
  tooLarge,  // more than was allowed
};

/// `text` is empty unless `failure` is none.
struct [[nodiscard]] Gunzipped {
  GunzipFailure failure = GunzipFailure::none;
  std::string text = {};
};

/// What is packed in the content of a .gz file, of one piece or several. Unpacking ends as soon as there are
/// more than `maxBytes`, however much a small file claims to hold.
Gunzipped gunzipped(std::string_view content, std::size_t maxBytes);

}  // namespace platform
