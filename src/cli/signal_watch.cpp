#include "cli/signal_watch.h"

namespace cli {

SignalWatch::SignalWatch() {
  sigemptyset(&m_signals);
  sigaddset(&m_signals, SIGINT);
  sigaddset(&m_signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &m_signals, &m_maskBefore);
  m_thread = std::jthread([this] { watch(); });
}

SignalWatch::~SignalWatch() {
  m_ending = true;
  pthread_kill(m_thread.native_handle(), SIGTERM);  // wakes the thread, and only it
  m_thread.join();
  pthread_sigmask(SIG_SETMASK, &m_maskBefore, nullptr);
}

void SignalWatch::watch() {
  for (;;) {
    int signal = 0;
    if (sigwait(&m_signals, &signal) != 0 || m_ending) return;
    m_stop.request_stop();
  }
}

}  // namespace cli
