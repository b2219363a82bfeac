// A clock for what waits: no time passes but when somebody sleeps, and then at once.
#pragma once

#include <chrono>
#include <mutex>
#include <stop_token>
#include <utility>
#include <vector>

#include "platform/clock.h"

namespace support {

class SkippedTime : public platform::Clock {
 public:
  Time now() const override {
    const std::lock_guard lock(m_mutex);
    return m_now;
  }

  void sleepUntil(Time time, const std::stop_token&) override {
    const std::lock_guard lock(m_mutex);
    if (time <= m_now) return;
    m_slept.push_back(std::chrono::duration_cast<std::chrono::milliseconds>(time - m_now));
    m_now = time;
  }

  /// How long each sleep was since this was last asked, in order.
  std::vector<std::chrono::milliseconds> takeSlept() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_slept, {});
  }

 private:
  mutable std::mutex m_mutex;  // guards all below
  Time m_now{std::chrono::hours(1)};
  std::vector<std::chrono::milliseconds> m_slept;
};

}  // namespace support
