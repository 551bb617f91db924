#pragma once

#include <unistd.h>

namespace tests {

/// Ends the process by a signal where a scope does not come to an end.
class TimeLimit {
 public:
  TimeLimit() { alarm(kSeconds); }
  ~TimeLimit() { alarm(0); }

  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

 private:
  static constexpr unsigned kSeconds = 30;
};

}  // namespace tests
