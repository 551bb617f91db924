#include <gtest/gtest.h>

#include "tests/platform/LibraryUse.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/MemoryInUse.h"
#include "tests/support/fakes/Platform.h"

namespace tests {
namespace {

void UseAll(int round) {
  LoadUseAndUnload(round);
  const LoadedLibrary library;
  EXPECT_EQ(100000, library.MaxResource());
}

TEST(AThousandUses, LoadReadSubscribeAndUnloadInTheMemoryOfTheFirst) {
  ExpectNoGrowth(1000, &UseAll);
  fakes::Platform::Instance().Reset();
}

}  // namespace
}  // namespace tests
