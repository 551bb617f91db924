#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/fakes/CallLog.h"

namespace tests {

using Calls = std::vector<std::string>;

/// What the platform is asked from now on, and by `operation`, in order.
template <typename Operation>
Calls CallsDuring(Operation operation) {
  fakes::CallLog::Instance().Clear();
  operation();
  return fakes::CallLog::Instance().Calls();
}

/// What the platform is asked by an operation that lets the failure of the first call starting with
/// `start` out.
template <typename Operation>
Calls CallsOfFailing(const std::string& start, Operation operation) {
  return CallsDuring([&] {
    fakes::CallLog::Instance().FailAt(start, 1);
    EXPECT_THROW(operation(), fakes::Failure) << start;
  });
}

}  // namespace tests
