#pragma once

#include <algorithm>
#include <fstream>
#include <functional>

#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include "tests/support/Figures.h"

namespace tests {

/// Bytes of this process that are in memory.
inline long ResidentBytes() {
  std::ifstream statistics("/proc/self/statm");
  long all = 0;
  long resident = 0;
  EXPECT_TRUE(statistics >> all >> resident);
  return resident * sysconf(_SC_PAGESIZE);
}

/// Bytes that `malloc` has given out and not got back.
inline long AllocatedBytes() { return static_cast<long>(mallinfo2().uordblks); }

/// Does `round` so many times and expects that memory stays as it is after the first thousandth of
/// them, or the first hundred, which make what other libraries keep: not a byte more is allocated,
/// and what lies in memory grows by no more than a few pages.
inline void ExpectNoGrowth(int rounds, const std::function<void(int)>& round) {
  constexpr long kPages = 65536;  // the allocator's own changes of mind
  const int first = std::max(100, rounds / 1000);
  for (int index = 0; index < first; ++index) round(index);
  const long resident = ResidentBytes();
  const long allocated = AllocatedBytes();
  for (int index = first; index < rounds && !testing::Test::HasFailure(); ++index) round(index);
  const long lost = std::max(0L, AllocatedBytes() - allocated);
  EXPECT_EQ(0, lost) << "bytes in " << rounds << " rounds";
  EXPECT_LE(ResidentBytes(), resident + kPages);
  Count("rounds", rounds);
  Count("bytes_lost", lost);
}

}  // namespace tests
