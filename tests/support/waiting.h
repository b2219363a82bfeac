// Waiting for what happens in another thread or program.
#pragma once

#include <chrono>
#include <functional>

namespace support {

/// Longer than anything takes on a busy machine; only a test that fails waits so long.
inline constexpr std::chrono::milliseconds kPatience{60'000};

/// Whether `condition` comes true.
bool comesTrue(const std::function<bool()>& condition);

}  // namespace support
