#include "tests/support/FailingAllocation.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

#include "tests/support/Figures.h"
#include "tests/support/Survival.h"

namespace {

thread_local tests::FailureCount s_count;
std::atomic<long> s_live;

void* Allocate(std::size_t size) noexcept {
  void* const memory = std::malloc(size > 0 ? size : 1);
  if (memory) ++s_live;
  return memory;
}

void* AllocateOrThrow(std::size_t size) {
  if (s_count.NextFails()) throw std::bad_alloc();
  void* const memory = Allocate(size);
  if (!memory) throw std::bad_alloc();
  return memory;
}

void Release(void* memory) noexcept {
  if (memory) --s_live;
  std::free(memory);
}

bool LetsBadAllocOut(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const std::bad_alloc&) {
    return true;
  }
  return false;
}

/// Runs `operation` with allocations failing and gives whether it came to the first of them.
bool ComesToFailure(const std::function<void()>& operation, int number, tests::Shortage shortage) {
  const tests::FailingAllocation failing(number, shortage);
  const bool letOut = LetsBadAllocOut(operation);
  if (failing.Failures() == 0) return false;
  EXPECT_TRUE(letOut) << "std::bad_alloc from allocation " << number << " was lost";
  tests::Count("allocations_failed", failing.Failures());
  return true;
}

/// How many blocks are kept by a run in which nothing fails: one in a child process, so that this
/// one stays as it is.
long KeptUndisturbed(const std::function<void()>& operation) {
  tests::SharedNumber kept(0);
  const bool isComplete = tests::SurvivesInAChild([&] {
    const long before = s_live;
    operation();
    kept.Set(static_cast<int>(s_live - before));
  });
  EXPECT_TRUE(isComplete) << "the operation ends the process where nothing fails";
  return kept.Get();
}

}  // namespace

// All forms that could meet one another are replaced, so that a checker sees matching pairs.
void* operator new(std::size_t size) { return AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return AllocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete[](void* memory) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { Release(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { Release(memory); }
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { Release(memory); }
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept { Release(memory); }

namespace tests {

FailingAllocation::FailingAllocation(int number, Shortage shortage) {
  s_count.Begin(number, shortage);
}

FailingAllocation::~FailingAllocation() { s_count.End(); }

bool FailingAllocation::IsPossible() { return true; }

bool FailingAllocation::IsInPlace() {
  const FailingAllocation failing(1, Shortage::kOnce);
  return LetsBadAllocOut([] { ::operator delete(::operator new(1)); });
}

long FailingAllocation::Live() { return s_live; }

int FailingAllocation::Failures() const { return s_count.Failures(); }

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
