// The programs whose memory never runs out.

#include "fuzz/Call.h"
#include "fuzz/Target.h"

namespace fuzz {

LibraryMemory::LibraryMemory() = default;

LibraryMemory::~LibraryMemory() = default;

bool LibraryMemory::RunsOut() { return false; }

int LibraryMemory::Failures() { return 0; }

void RunInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  RunOne(input);
}

void SetUpMemory() {}

}  // namespace fuzz
