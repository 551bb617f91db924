#pragma once

#include <csignal>

namespace programs {

/// Ctrl-C and a polite kill, for a program that other threads work for until one of them comes.
///
/// They are blocked in the thread that makes this and in those that it starts from then on, so make
/// it before them: none is missed, and none ends the program halfway.
class EndSignals {
 public:
  EndSignals() {
    sigemptyset(&m_signals);
    sigaddset(&m_signals, SIGINT);
    sigaddset(&m_signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
  }

  /// Waits for one of them.
  void Await() const {
    int signal = 0;
    sigwait(&m_signals, &signal);
  }

 private:
  sigset_t m_signals;
};

}  // namespace programs
