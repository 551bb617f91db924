#include "tests/support/FailingAllocation.h"

#include <new>

#include <gtest/gtest.h>

#include "tests/support/Figures.h"
#include "tests/support/Survival.h"

namespace tests {
namespace {

bool LetsBadAllocOut(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const std::bad_alloc&) {
    return true;
  }
  return false;
}

/// Runs `operation` with allocations failing and gives whether it came to the first of them.
bool ComesToFailure(const std::function<void()>& operation, int number, Shortage shortage) {
  const FailingAllocation failing(number, shortage);
  const bool letOut = LetsBadAllocOut(operation);
  if (failing.Failures() == 0) return false;
  EXPECT_TRUE(letOut) << "std::bad_alloc from allocation " << number << " was lost";
  Count("allocations_failed", failing.Failures());
  return true;
}

/// How many blocks are kept by a run in which nothing fails: one in a child process, so that this
/// one stays as it is.
long KeptUndisturbed(const std::function<void()>& operation) {
  SharedNumber kept(0);
  const bool isComplete = SurvivesInAChild([&] {
    const long before = FailingAllocation::Live();
    operation();
    kept.Set(static_cast<int>(FailingAllocation::Live() - before));
  });
  EXPECT_TRUE(isComplete) << "the operation ends the process where nothing fails";
  return kept.Get();
}

}  // namespace

void WithEachAllocationFailing(Shortage shortage, const std::function<void()>& operation) {
  const long kept = KeptUndisturbed(operation);
  const long before = FailingAllocation::Live();
  int failures = 0;
  while (ComesToFailure(operation, failures + 1, shortage)) ++failures;
  EXPECT_GT(failures, 0) << "the operation allocates nothing";
  EXPECT_LE(FailingAllocation::Live() - before, kept) << "failed runs have lost blocks";
  Count("operations");
}

}  // namespace tests
