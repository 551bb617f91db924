#include "tests/support/FailingNew.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

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
  try {
    ::operator delete(::operator new(1));
  } catch (const std::bad_alloc&) {
    return true;
  }
  return false;
}

long FailingAllocation::Live() { return s_live; }

int FailingAllocation::Failures() const { return s_count.Failures(); }

}  // namespace tests
