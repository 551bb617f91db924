#include <fstream>

#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/platform/LibraryUse.h"

namespace {

/// Bytes of this process that are in memory.
long ResidentBytes() {
  std::ifstream statistics("/proc/self/statm");
  long all = 0;
  long resident = 0;
  EXPECT_TRUE(statistics >> all >> resident);
  return resident * sysconf(_SC_PAGESIZE);
}

void LoadRounds(int first, int last) {
  for (int round = first; round <= last; ++round) tests::LoadUseAndUnload(round);
}

// Not with a sanitizer, which keeps what was freed. The bound lies well below what 900 rounds would
// add if each kept the implementation object, and above what loading itself makes memory vary by.
TEST(AThousandLoads, NeedNoMoreMemoryThanAHundred) {
  LoadRounds(1, 100);
  const long before = ResidentBytes();
  LoadRounds(101, 1000);
  EXPECT_LE(ResidentBytes() - before, 64 * 1024);
  fakes::Platform::Instance().Reset();
}

}  // namespace
