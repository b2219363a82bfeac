// Whether the program that is tested was built with sanitizers.
#pragma once

namespace support {

/// They take memory of their own and make system calls of their own, so that neither says anything of the
/// program's.
constexpr bool withSanitizers() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return true;
#elif defined(__has_feature)
  return __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
  return false;
#endif
}

}  // namespace support
