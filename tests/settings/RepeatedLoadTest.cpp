#include <cstdlib>

#include <gtest/gtest.h>

#include <analytics/Settings.h>

#include "tests/support/FreshProcess.h"
#include "tests/support/MemoryInUse.h"
#include "tests/support/fakes/CallLog.h"

namespace analytics {
namespace {

void FailToLoadManyTimes() {
  for (int load = 0; load < 100; ++load) {
    EXPECT_FALSE(Settings::LoadSettings(""));
    fakes::CallLog::Instance().Clear();
  }
}

// The path is expanded anew by each of these loads, and the expansion is the C library's memory.
TEST(RepeatedLoads, NeedNoMoreMemoryThanEarlierOnes) {
  tests::InFreshProcess([] {
    setenv("ANALYTICS_INI", "~/'several words'/*.ini another", 1);
    FailToLoadManyTimes();  // fills the allocator's caches
    const long allocated = tests::AllocatedBytes();
    FailToLoadManyTimes();
    EXPECT_EQ(allocated, tests::AllocatedBytes());
  });
}

}  // namespace
}  // namespace analytics
