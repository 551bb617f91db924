#pragma once

#include <analytics/Mutex.h>

namespace analytics {

/// Holds a mutex for a scope. One that cannot be taken is not held and not released; the work goes
/// on without it.
///
/// Declared `throw()`, not `noexcept`: an exception out of `Lock()` or `Unlock()` ends the process
/// through the unexpected-exception handler, which runtimes install.
class ScopedLock {
 public:
  explicit ScopedLock(Mutex& mutex) throw() : m_mutex(mutex), m_held(mutex.Lock() == 0) {}
  ~ScopedLock() throw() {
    if (m_held) m_mutex.Unlock();
  }

  ScopedLock(const ScopedLock&) = delete;
  ScopedLock& operator=(const ScopedLock&) = delete;

 private:
  Mutex& m_mutex;
  const bool m_held;
};

}  // namespace analytics
