// Waiting for what happens in another thread or program.
#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace support {

/// Longer than anything takes on a busy machine; only a test that fails waits so long.
inline constexpr std::chrono::milliseconds kPatience{60'000};

/// Whether `condition` comes true.
inline bool comesTrue(const std::function<bool()>& condition) {
  constexpr std::chrono::milliseconds kLook{2};
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(kLook);
  }
  return true;
}

}  // namespace support
