#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace tests {

/// Where threads wait for each other, so that what they do there overlaps.
class MeetingPoint {
 public:
  explicit MeetingPoint(int expected) : m_expected(expected) {}

  /// Waits until as many threads are here as are expected; not for ever, so that a thread that is
  /// kept away fails its test and does not hang it.
  ///
  /// @return whether they all came
  bool Arrive() {
    std::unique_lock<std::mutex> lock(m_mutex);
    ++m_arrived;
    m_changed.notify_all();
    return m_changed.wait_for(lock, std::chrono::seconds(20),
                              [this] { return m_arrived >= m_expected; });
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_changed;
  const int m_expected;
  int m_arrived = 0;  // under m_mutex
};

}  // namespace tests
