#pragma once

namespace tests {

/// How long memory stays short once an allocation has failed.
enum class Shortage {
  kOnce,        // the next allocation succeeds again
  kFromThenOn,  // every later one fails too
};

/// Counts the allocations of one thread and tells which of them fail.
class FailureCount {
 public:
  /// @param number  of the allocation that fails first, from 1
  void Begin(int number, Shortage shortage) {
    m_untilFailure = number;
    m_shortage = shortage;
    m_failures = 0;
  }
  void End() { m_untilFailure = 0; }

  /// Counts one allocation and gives whether it fails.
  bool NextFails() {
    if (m_untilFailure == 0) return false;
    if (m_untilFailure > 1) return --m_untilFailure, false;
    if (m_shortage == Shortage::kOnce) End();
    ++m_failures;
    return true;
  }

  int Failures() const { return m_failures; }

 private:
  int m_untilFailure = 0;  // 0 while none is to fail
  Shortage m_shortage = Shortage::kOnce;
  int m_failures = 0;
};

}  // namespace tests
