#pragma once

#include <cstddef>

namespace tests {

/// The blocks of memory that libxml2 holds, each behind a header that links it with the others.
///
/// A block that is released twice, and in most cases one that is used after that, ends the process.
class XmlBlocks {
 public:
  static void* Allocate(std::size_t size);
  static void* Resize(void* memory, std::size_t size);
  static void Release(void* memory);

  static long Count();

  /// Number of the block made last; later ones have greater numbers.
  static long Newest();

  /// Frees all blocks that are newer than the one of this number.
  static void ReleaseNewerThan(long number);
};

}  // namespace tests
