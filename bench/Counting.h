#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// Bytes of the heap in use, its own for each block included.
double HeapInUse();

/// Blocks of memory taken so far, where `libcounted-memory.so` is loaded before the C library;
/// otherwise 0.
std::size_t Allocations();

/// Has callgrind count the instructions of a scope, under a name; does nothing without callgrind.
class CountedInstructions {
 public:
  explicit CountedInstructions(std::string name);
  ~CountedInstructions();

  CountedInstructions(const CountedInstructions&) = delete;
  CountedInstructions& operator=(const CountedInstructions&) = delete;

 private:
  const std::string m_name;
};

}  // namespace bench
