// The names that the HTML Standard has for characters.
#pragma once

#include <cstddef>

namespace web {

struct NamedReference {
  char name[33];  // what follows "&"; with the ";" but for old names, which stand here both ways
  char text[7];   // UTF-8, one character or two
};

inline constexpr std::size_t kNamedReferenceCount = 2231;

/// Sorted by name, bytes compared.
extern const NamedReference kNamedReferences[kNamedReferenceCount];

}  // namespace web
