// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <pthread.h>

namespace analytics {

/// A lock between threads. It is destroyed while no thread holds it or waits for it.
class Mutex {
 public:
  /// @param recursive  whether the thread that holds the lock may take it again
  explicit Mutex(bool recursive);
  ~Mutex();

  Mutex(const Mutex&) = delete;
  Mutex& operator=(const Mutex&) = delete;

  /// Waits for the lock and takes it.
  ///
  /// @return 0, or why it is not taken: `EDEADLK` if this thread holds it and it is not recursive
  int Lock();

  /// Gives the lock back.
  ///
  /// @return 0, or why it is not given back: `EPERM` if this thread does not hold it
  int Unlock();

 private:
  pthread_mutex_t m_mutex;
};

}  // namespace analytics
