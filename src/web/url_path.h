// The path of an address, one segment after the other.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "web/url_scheme.h"

namespace web {

/// Writes a path at the end of an address, which outlives it.
class UrlPath {
 public:
  /// `start` is where the path in `address` starts, which may hold a part of it already.
  UrlPath(std::string& address, std::size_t start, Scheme scheme)
      : m_address(address), m_start(start), m_scheme(scheme) {}

  /// The segments at the start of what is written, up to the query, the fragment or the end; there is no
  /// slash in front of the first one. Segments of dots climb. Returns what is left.
  std::string_view append(std::string_view written);

  /// Takes the last segment off. A Windows drive stays.
  void shorten();

 private:
  void appendSegment(std::string_view written, bool isLast);

  std::string& m_address;
  const std::size_t m_start;
  const Scheme m_scheme;
};

/// A letter and ":" or "|".
bool isDriveLetter(std::string_view text);

/// Whether a path as written begins with a segment that is a drive letter.
bool startsWithDriveLetter(std::string_view text);

}  // namespace web
