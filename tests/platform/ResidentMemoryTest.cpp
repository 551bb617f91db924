#include <gmock/gmock.h>

#include "tests/platform/LibraryUse.h"
#include "tests/support/MemoryInUse.h"

namespace {

void LoadRounds(int first, int last) {
  for (int round = first; round <= last; ++round) tests::LoadUseAndUnload(round);
}

// The bound lies well below what 900 rounds would add if each kept the implementation object, and
// above what loading itself makes memory vary by.
TEST(AThousandLoads, NeedNoMoreMemoryThanAHundred) {
  LoadRounds(1, 100);
  const long before = tests::ResidentBytes();
  LoadRounds(101, 1000);
  EXPECT_LE(tests::ResidentBytes() - before, 64 * 1024);
  fakes::Platform::Instance().Reset();
}

}  // namespace
