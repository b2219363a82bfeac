// Time that passes, as something that can be handed in: what waits is tested without waiting.
#pragma once

#include <chrono>
#include <stop_token>

namespace platform {

/// Any thread, and several at once.
class Clock {
 public:
  using Time = std::chrono::steady_clock::time_point;

  virtual ~Clock() = default;

  virtual Time now() const = 0;

  /// Blocks until then, or until a stop. Returns at once when that time has come already.
  virtual void sleepUntil(Time time, const std::stop_token& stop) = 0;
};

/// The machine's, which never goes back.
class SteadyClock : public Clock {
 public:
  Time now() const override;
  void sleepUntil(Time time, const std::stop_token& stop) override;
};

}  // namespace platform
