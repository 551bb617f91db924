#include "tests/support/FreshProcess.h"

#include <cstdlib>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <unistd.h>

namespace {

using tests::InFreshProcess;

constexpr char kFailed[] = "the child process failed";

TEST(AFreshProcess, SucceedsWhereItsBodyDoes) {
  InFreshProcess([] {});
}

TEST(AFreshProcess, LeavesThisOneAsItWas) {
  int here = 1;
  InFreshProcess([&here] { here = 2; });
  EXPECT_EQ(1, here);
}

TEST(AFreshProcess, FailsWhereItsBodyEndsItWithAStatus) {
  EXPECT_NONFATAL_FAILURE(InFreshProcess([] { _exit(3); }), kFailed);
}

TEST(AFreshProcess, FailsWhereAnExceptionLeavesItsBody) {
  EXPECT_NONFATAL_FAILURE(InFreshProcess([] { throw std::runtime_error("lost"); }), kFailed);
}

TEST(AFreshProcess, FailsWhereANumberLeavesItsBody) {
  EXPECT_NONFATAL_FAILURE(InFreshProcess([] { throw 7; }), kFailed);
}

void* volatile s_last = nullptr;

/// Loses many pieces of memory, of which a forgotten register or place on the stack hides but one.
void Leak() {
  for (int piece = 0; piece < 100; ++piece) s_last = std::malloc(64);
  s_last = nullptr;
}

TEST(AFreshProcess, FailsWhereItsBodyLeaks) {
  if (!tests::HasLeakChecker()) GTEST_SKIP() << "this build has no leak checker";
  EXPECT_NONFATAL_FAILURE(InFreshProcess(&Leak), kFailed);
}

}  // namespace
