#include <cerrno>

#include <gtest/gtest.h>

#include <analytics/Mutex.h>

namespace analytics {
namespace {

TEST(ARecursiveMutex, IsTakenTwiceByOneThread) {
  Mutex mutex(true);
  EXPECT_EQ(0, mutex.Lock());
  EXPECT_EQ(0, mutex.Lock());
  EXPECT_EQ(0, mutex.Unlock());
  EXPECT_EQ(0, mutex.Unlock());
}

}  // namespace
}  // namespace analytics
