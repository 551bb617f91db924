#pragma once

#include <functional>

namespace tests {

/// Whether a child process comes to the end of `body`; what it writes on its way is dropped.
///
/// For code that is not ours and may end the process by touching memory that it must not.
bool SurvivesInAChild(const std::function<void()>& body);

/// A number that a child process shares with its parent.
class SharedNumber {
 public:
  explicit SharedNumber(int number);
  ~SharedNumber();

  SharedNumber(const SharedNumber&) = delete;
  SharedNumber& operator=(const SharedNumber&) = delete;

  int Get() const { return *m_number; }
  void Set(int number) { *m_number = number; }
  int operator++() { return *m_number = *m_number + 1; }

 private:
  volatile int* const m_number;
};

}  // namespace tests
