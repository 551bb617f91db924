#include <gmock/gmock.h>

#include "tests/platform/LibraryUse.h"

namespace {

// What a round leaves behind is found by the leak checker at the end of the program.
TEST(AThousandLoads, AreUsedAndUnloadedLikeTheFirst) {
  for (int round = 0; round < 1000; ++round) {
    tests::LoadUseAndUnload(round);
    ASSERT_FALSE(HasFailure()) << "round " << round;
  }
  fakes::Platform::Instance().Reset();
}

}  // namespace
