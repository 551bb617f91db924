#include "tests/support/XmlBlocks.h"

#include <cstdlib>
#include <cstring>
#include <mutex>

namespace tests {
namespace {

struct alignas(std::max_align_t) Header {
  Header* newer;
  Header* older;
  long number;  // 0 once it is released
  std::size_t size;
};

std::mutex s_mutex;
Header s_end{&s_end, &s_end, 0, 0};  // under s_mutex; its older one is the newest block
long s_newest = 0;                   // under s_mutex
long s_count = 0;                    // under s_mutex

Header* HeaderOf(void* memory) { return static_cast<Header*>(memory) - 1; }

// s_mutex held.
void Link(Header* block) {
  block->newer = &s_end;
  block->older = s_end.older;
  block->older->newer = s_end.older = block;
}

// s_mutex held.
void Unlink(const Header* block) {
  block->newer->older = block->older;
  block->older->newer = block->newer;
}

// What a block held is made useless, so that it ends the process if it is used all the same.
// s_mutex held.
void Free(Header* block) {
  Unlink(block);
  --s_count;
  block->number = 0;
  std::memset(static_cast<void*>(block + 1), 0xDD, block->size);
  std::free(block);
}

}  // namespace

void* XmlBlocks::Allocate(std::size_t size) {
  auto* const block = static_cast<Header*>(std::malloc(sizeof(Header) + size));
  if (!block) return nullptr;
  const std::lock_guard<std::mutex> lock(s_mutex);
  block->number = ++s_newest;
  block->size = size;
  Link(block);
  ++s_count;
  return block + 1;
}

void* XmlBlocks::Resize(void* memory, std::size_t size) {
  if (!memory) return Allocate(size);
  const std::lock_guard<std::mutex> lock(s_mutex);
  Unlink(HeaderOf(memory));
  auto* const moved = static_cast<Header*>(std::realloc(HeaderOf(memory), sizeof(Header) + size));
  if (!moved) std::abort();  // no test is about a machine that has really run out of memory
  moved->size = size;
  Link(moved);
  return moved + 1;
}

void XmlBlocks::Release(void* memory) {
  if (!memory) return;
  const std::lock_guard<std::mutex> lock(s_mutex);
  if (HeaderOf(memory)->number == 0) std::abort();
  Free(HeaderOf(memory));
}

long XmlBlocks::Count() {
  const std::lock_guard<std::mutex> lock(s_mutex);
  return s_count;
}

long XmlBlocks::Newest() {
  const std::lock_guard<std::mutex> lock(s_mutex);
  return s_newest;
}

void XmlBlocks::ReleaseNewerThan(long number) {
  const std::lock_guard<std::mutex> lock(s_mutex);
  for (Header* block = s_end.older; block != &s_end;) {
    Header* const older = block->older;
    if (block->number > number) Free(block);
    block = older;
  }
}

}  // namespace tests
