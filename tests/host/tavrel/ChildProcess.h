#pragma once

#include <functional>

#include <sys/types.h>

namespace tests {

/// A process that runs a function and ends with what it gives as its exit status.
class ChildProcess {
 public:
  explicit ChildProcess(const std::function<int()>& body);

  /// Kills the process, unless it was waited for.
  ~ChildProcess();

  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Id() const { return m_process; }

  /// Ends the process at once, wherever it is.
  void Kill();

  /// Waits for the end of the process.
  ///
  /// @return its exit status; -1 if it did not end by itself
  int Wait();

 private:
  pid_t m_process;  // 0 once waited for
};

/// Has processes that were started one after the other go on together. Make it before them.
class StartSignal {
 public:
  StartSignal();
  ~StartSignal();

  StartSignal(const StartSignal&) = delete;
  StartSignal& operator=(const StartSignal&) = delete;

  /// Waits in a child process.
  void Wait();

  /// Lets all go on, from the process that made the signal.
  void Give();

 private:
  int m_ends[2];
};

}  // namespace tests
