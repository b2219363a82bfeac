// Turns SIGINT, SIGTERM and SIGHUP into a stop request, so that a scan can end in good order.
#pragma once

#include <atomic>
#include <csignal>
#include <stop_token>
#include <thread>

namespace cli {

/// While it lives, the signals do not end the program but request a stop, and a write to a reader that is
/// gone fails like any other. Made before other threads are started, since those inherit which signals are
/// held back.
class SignalWatch {
 public:
  SignalWatch();
  ~SignalWatch();
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;

  /// Stopped by the first signal. Callbacks run on a thread of the watch's own.
  std::stop_token token() const { return m_stop.get_token(); }

 private:
  void watch();

  sigset_t m_signals;
  sigset_t m_maskBefore;
  struct sigaction m_brokenPipeBefore = {};
  std::stop_source m_stop;
  std::atomic<bool> m_ending = false;
  std::jthread m_thread;
};

}  // namespace cli
