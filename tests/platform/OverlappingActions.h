#pragma once

#include <functional>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/platform/MeetingPoint.h"

namespace tests {

/// Runs all actions at once, each on a thread of its own and so many times.
inline void RunOverlapping(int turns, const std::vector<std::function<void()>>& actions) {
  MeetingPoint meeting(static_cast<int>(actions.size()));
  std::vector<std::thread> threads;
  threads.reserve(actions.size());
  for (const std::function<void()>& action : actions) {
    threads.emplace_back([turns, &meeting, &action] {
      EXPECT_TRUE(meeting.Arrive());
      for (int turn = 0; turn < turns; ++turn) action();
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace tests
