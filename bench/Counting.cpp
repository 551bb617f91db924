#include "bench/Counting.h"

#include <utility>

#include <malloc.h>

#include <valgrind/callgrind.h>

extern "C" std::size_t CountedAllocations() __attribute__((weak));

namespace bench {

double HeapInUse() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

std::size_t Allocations() { return CountedAllocations ? CountedAllocations() : 0; }

CountedInstructions::CountedInstructions(std::string name) : m_name(std::move(name)) {
  CALLGRIND_START_INSTRUMENTATION;
}

CountedInstructions::~CountedInstructions() {
  CALLGRIND_STOP_INSTRUMENTATION;
  CALLGRIND_DUMP_STATS_AT(m_name.c_str());
}

}  // namespace bench
