#include <atomic>
#include <cerrno>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <analytics/Mutex.h>

namespace analytics {
namespace {

/// What `operation` of the mutex answers in a thread of its own.
int InOtherThread(Mutex& mutex, int (Mutex::*operation)()) {
  int answer = -1;
  std::thread([&] { answer = (mutex.*operation)(); }).join();
  return answer;
}

/// A mutex of each kind; the parameter is whether it is recursive.
class AMutex : public testing::TestWithParam<bool> {
 protected:
  AMutex() : m_mutex(GetParam()) {}

  Mutex m_mutex;
};

TEST_P(AMutex, IsTakenAndGivenBackAgainAndAgain) {
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(0, m_mutex.Lock());
    EXPECT_EQ(0, m_mutex.Unlock());
  }
}

TEST_P(AMutex, IsNotGivenBackUnlessItIsTaken) {
  EXPECT_EQ(EPERM, m_mutex.Unlock());
  EXPECT_EQ(0, m_mutex.Lock());
  EXPECT_EQ(0, m_mutex.Unlock());
  EXPECT_EQ(EPERM, m_mutex.Unlock());
}

TEST_P(AMutex, IsNotGivenBackByAnotherThread) {
  ASSERT_EQ(0, m_mutex.Lock());
  EXPECT_EQ(EPERM, InOtherThread(m_mutex, &Mutex::Unlock));
  EXPECT_EQ(0, m_mutex.Unlock());
}

TEST_P(AMutex, IsTakenByAnotherThreadOnceItIsGivenBack) {
  ASSERT_EQ(0, m_mutex.Lock());
  ASSERT_EQ(0, m_mutex.Unlock());
  std::thread([&] {
    EXPECT_EQ(0, m_mutex.Lock());
    EXPECT_EQ(0, m_mutex.Unlock());
  }).join();
}

TEST_P(AMutex, KeepsAnotherThreadOutUntilItIsGivenBack) {
  std::atomic<bool> isComing{false};
  std::atomic<bool> isIn{false};
  ASSERT_EQ(0, m_mutex.Lock());
  std::thread other([&] {
    isComing = true;
    m_mutex.Lock();
    isIn = true;
    m_mutex.Unlock();
  });
  while (!isComing) std::this_thread::yield();
  for (int turn = 0; turn < 1000; ++turn) std::this_thread::yield();
  EXPECT_FALSE(isIn);
  EXPECT_EQ(0, m_mutex.Unlock());
  other.join();
  EXPECT_TRUE(isIn);
}

TEST_P(AMutex, LetsOneOfManyThreadsCountAtATime) {
  int counter = 0;
  const auto countTo500 = [&] {
    for (int turn = 0; turn < 500; ++turn) {
      m_mutex.Lock();
      const int before = counter;
      std::this_thread::yield();  // invites the other threads in
      counter = before + 1;
      m_mutex.Unlock();
    }
  };
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int index = 0; index < 4; ++index) threads.emplace_back(countTo500);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(4 * 500, counter);
}

TEST_P(AMutex, IsIndependentOfAnother) {
  Mutex another(GetParam());
  ASSERT_EQ(0, m_mutex.Lock());
  EXPECT_EQ(0, another.Lock());
  EXPECT_EQ(0, m_mutex.Unlock());
  EXPECT_EQ(EPERM, m_mutex.Unlock());
  EXPECT_EQ(0, another.Unlock());
}

INSTANTIATE_TEST_SUITE_P(OfKind, AMutex, testing::Bool(), [](const auto& row) {
  return std::string(row.param ? "Recursive" : "Plain");
});

TEST(ARecursiveMutex, IsTakenAgainByItsThread) {
  Mutex mutex(true);
  EXPECT_EQ(0, mutex.Lock());
  EXPECT_EQ(0, mutex.Lock());
  EXPECT_EQ(0, mutex.Unlock());
  EXPECT_EQ(0, mutex.Unlock());
}

TEST(ARecursiveMutex, IsHeldUntilItIsGivenBackAsOftenAsItWasTaken) {
  Mutex mutex(true);
  mutex.Lock();
  mutex.Lock();
  mutex.Unlock();
  EXPECT_EQ(EPERM, InOtherThread(mutex, &Mutex::Unlock));
  EXPECT_EQ(0, mutex.Unlock());
  EXPECT_EQ(EPERM, mutex.Unlock());
}

TEST(APlainMutex, IsNotTakenAgainByItsThread) {
  Mutex mutex(false);
  EXPECT_EQ(0, mutex.Lock());
  EXPECT_EQ(EDEADLK, mutex.Lock());
  EXPECT_EQ(0, mutex.Unlock());
  EXPECT_EQ(EPERM, mutex.Unlock());
}

}  // namespace
}  // namespace analytics
