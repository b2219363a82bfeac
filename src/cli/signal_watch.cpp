#include "cli/signal_watch.h"

namespace cli {

SignalWatch::SignalWatch() {
  sigemptyset(&m_signals);
  sigaddset(&m_signals, SIGINT);
  sigaddset(&m_signals, SIGTERM);
  // Whoever started the program with nohup does not want it to end with the terminal.
  struct sigaction hangup = {};
  sigaction(SIGHUP, nullptr, &hangup);
  if (hangup.sa_handler != SIG_IGN) sigaddset(&m_signals, SIGHUP);
  pthread_sigmask(SIG_BLOCK, &m_signals, &m_maskBefore);
  struct sigaction ignore = {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignore, &m_brokenPipeBefore);
  m_thread = std::jthread([this] { watch(); });
}

SignalWatch::~SignalWatch() {
  m_ending = true;
  pthread_kill(m_thread.native_handle(), SIGTERM);  // wakes the thread, and only it
  m_thread.join();
  pthread_sigmask(SIG_SETMASK, &m_maskBefore, nullptr);
  sigaction(SIGPIPE, &m_brokenPipeBefore, nullptr);
}

void SignalWatch::watch() {
  for (;;) {
    int signal = 0;
    if (sigwait(&m_signals, &signal) != 0 || m_ending) return;
    m_stop.request_stop();
  }
}

}  // namespace cli
