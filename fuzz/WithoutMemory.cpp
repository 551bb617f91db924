// The programs in which `operator new` fails within the library, and which count what is lost.

#include <optional>

#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/Target.h"
#include "tests/support/FailingNew.h"
#include "tests/support/XmlAllocations.h"

namespace fuzz {
namespace {

using tests::FailingAllocation;
using tests::Shortage;
using tests::XmlAllocations;

constexpr std::size_t kOwnBytes = 2;  // at the end of an input

int s_failing = 1;                              // which allocation of each call fails first
Shortage s_shortage = Shortage::kOnce;          // and whether those after it do
std::optional<FailingAllocation> s_allocation;  // of the call that is being made
int s_failures = 0;                             // of all calls that were made

/// How many blocks there are.
struct Blocks {
  long objects = FailingAllocation::Live();
  long xml = XmlAllocations::Alive();

  bool HasNoMoreThan(const Blocks& other) const {
    return objects <= other.objects && xml <= other.xml;
  }
};

/// Most calls make few allocations, some a hundred.
void ChooseShortage(std::uint8_t place, std::uint8_t kind) {
  s_failing = 1 + (place < 128 ? place % 8 : place - 128);
  s_shortage = kind % 2 == 0 ? Shortage::kOnce : Shortage::kFromThenOn;
}

Blocks BlocksAfter(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  RunOne(input);
  return Blocks();
}

/// What is made once, or kept until the next input, is the same when the input is run again; but by
/// chance libxml2 takes a few blocks more or less for the names of a document.
void RequireNothingLost(const std::uint8_t* data, std::size_t size) {
  constexpr int kRuns = 64;
  const Blocks before;
  const Blocks first = BlocksAfter(data, size);
  Blocks last = first;
  if (first.HasNoMoreThan(before)) return;
  for (int run = 0; run < kRuns; ++run) {
    last = BlocksAfter(data, size);
    if (last.HasNoMoreThan(first)) return;
  }
  Require(last.objects < first.objects + kRuns && last.xml < first.xml + kRuns, "blocks are lost");
}

}  // namespace

LibraryMemory::LibraryMemory() { s_allocation.emplace(s_failing, s_shortage); }

LibraryMemory::~LibraryMemory() {
  s_failures += s_allocation->Failures();
  s_allocation.reset();
}

bool LibraryMemory::RunsOut() { return true; }

int LibraryMemory::Failures() { return s_failures; }

void RunInput(const std::uint8_t* data, std::size_t size) {
  const std::size_t used = size < kOwnBytes ? 0 : size - kOwnBytes;
  if (size >= kOwnBytes) ChooseShortage(data[used], data[used + 1]);
  RequireNothingLost(data, used);
}

void SetUpMemory() {
  Require(FailingAllocation::IsInPlace(), "operator new can be made to fail");
  static const XmlAllocations counted;
}

}  // namespace fuzz
