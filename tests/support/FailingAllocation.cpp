#include "tests/support/FailingAllocation.h"

#include <cstddef>
#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

namespace {

// How many allocations of this thread remain up to the one that fails; 0 while none is to fail.
thread_local int s_untilFailure = 0;

void* Allocate(std::size_t size) noexcept { return std::malloc(size > 0 ? size : 1); }

void* AllocateOrThrow(std::size_t size) {
  if (s_untilFailure > 0 && --s_untilFailure == 0) throw std::bad_alloc();
  void* const memory = Allocate(size);
  if (!memory) throw std::bad_alloc();
  return memory;
}

/// Has one allocation of this thread fail, for a scope.
class Failure {
 public:
  explicit Failure(int allocation) { s_untilFailure = allocation; }
  ~Failure() { s_untilFailure = 0; }

  Failure(const Failure&) = delete;
  Failure& operator=(const Failure&) = delete;

  bool Happened() const { return s_untilFailure == 0; }
};

bool LetsBadAllocOut(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const std::bad_alloc&) {
    return true;
  }
  return false;
}

/// Runs `operation` with one allocation failing and gives whether it came to that allocation.
bool ComesToFailure(const std::function<void()>& operation, int allocation) {
  const Failure failure(allocation);
  const bool letOut = LetsBadAllocOut(operation);
  if (!failure.Happened()) return false;
  EXPECT_TRUE(letOut) << "std::bad_alloc from allocation " << allocation << " was lost";
  return true;
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
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }

namespace tests {

void WithEachAllocationFailing(const std::function<void()>& operation) {
  int failures = 0;
  while (ComesToFailure(operation, failures + 1)) ++failures;
  EXPECT_GT(failures, 0) << "the operation allocates nothing";
}

}  // namespace tests
