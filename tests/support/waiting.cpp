#include "support/waiting.h"

#include <thread>

namespace support {

bool comesTrue(const std::function<bool()>& condition) {
  using std::chrono::steady_clock;
  constexpr std::chrono::milliseconds kLook{2};
  const auto deadline = steady_clock::now() + kPatience;
  while (!condition()) {
    if (steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(kLook);
  }
  return true;
}

}  // namespace support
