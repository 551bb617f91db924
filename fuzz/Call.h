#pragma once

#include <cstddef>
#include <cstdint>
#include <new>

namespace fuzz {

/// Has allocations of the library fail for a scope, in a program without memory: where, the input's
/// last bytes say. In other programs it does nothing.
class LibraryMemory {
 public:
  LibraryMemory();
  ~LibraryMemory();

  LibraryMemory(const LibraryMemory&) = delete;
  LibraryMemory& operator=(const LibraryMemory&) = delete;

  /// Whether this program is one without memory.
  static bool RunsOut();

  /// How many have failed so far.
  static int Failures();
};

/// Calls the library, once more if it had no memory: what failed has changed nothing, and the same
/// object then does and answers what it would have.
template <typename Operation>
auto Call(const Operation& operation) {
  try {
    const LibraryMemory memory;
    return operation();
  } catch (const std::bad_alloc&) {
  }
  return operation();
}

/// Runs the target for an input, with the memory that this program gives it, and requires that
/// nothing is lost.
void RunInput(const std::uint8_t* data, std::size_t size);

/// Prepares what `RunInput` needs, before the first allocation of libxml2.
void SetUpMemory();

}  // namespace fuzz
