#include <gtest/gtest.h>

#include "tests/support/FailingAllocation.h"

namespace tests {

void WithEachAllocationFailing(const std::function<void()>& operation) {
  operation();
  GTEST_SKIP() << "clang's thread sanitizer keeps operator new to itself, none is made to fail";
}

}  // namespace tests
