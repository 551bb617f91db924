// Counts how often a program takes memory. It is loaded before the C library with LD_PRELOAD, so
// that what is timed without it pays nothing for the counting.
#include <atomic>
#include <cstddef>

namespace {

std::atomic<std::size_t> s_count{0};

}  // namespace

// The names are the C library's.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

std::size_t CountedAllocations() { return s_count; }

void* malloc(std::size_t size) {
  ++s_count;
  return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
  ++s_count;
  return __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size) {
  ++s_count;
  return __libc_realloc(block, size);
}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
