#include "platform/clock.h"

#include <condition_variable>
#include <mutex>

namespace platform {

Clock::Time SteadyClock::now() const {
  return std::chrono::steady_clock::now();
}

void SteadyClock::sleepUntil(Time time, const std::stop_token& stop) {
  std::mutex mutex;
  std::unique_lock lock(mutex);
  std::condition_variable_any nothing;  // ever comes but the time or the stop
  nothing.wait_until(lock, stop, time, [] { return false; });
}

}  // namespace platform
