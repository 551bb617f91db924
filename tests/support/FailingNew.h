#pragma once

#include "tests/support/FailureCount.h"

namespace tests {

/// Has `operator new` throw `std::bad_alloc` in this thread for a scope. One at a time.
///
/// Only allocations of the calling thread count. Forms of `operator new` that never throw, or that
/// take an alignment, and `malloc` are neither counted nor made to fail. A test program that links
/// this has its global `operator new` and `operator delete` replaced.
class FailingAllocation {
 public:
  /// @param number  of the allocation that fails first, from 1
  FailingAllocation(int number, Shortage shortage);
  ~FailingAllocation();

  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  /// Whether this program can have allocations fail at all.
  static bool IsPossible();

  /// Whether an allocation does fail when it is told to: a checker may have taken the place of this
  /// program's `operator new`, which cannot be known when it is built.
  static bool IsInPlace();

  /// How many blocks of `operator new` the process has not given back.
  static long Live();

  /// How many allocations have failed so far.
  int Failures() const;
};

}  // namespace tests
