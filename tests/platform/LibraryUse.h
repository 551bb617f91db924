#pragma once

#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/LoadedLibrary.h"

namespace tests {

/// Loads the library, uses all of it, and unloads it, every other time while it is still started.
inline void LoadUseAndUnload(int round) {
  fakes::Platform::Instance().Reset();
  fakes::Platform::Instance().stored = SwitchedOn(ManyRegions(5));
  Listener listener;
  {
    LoadedLibrary library;
    library.ReserveResources(1);
    library.AvailableResources();
    library.Subscribe(&Listener::Hear, &listener);
    library.Start();
    Change(fakes::Platform::Instance().stored);
    library.SetConfiguration(OneRegion());
    if (round % 2 == 0) library.Stop();
  }
  EXPECT_EQ(2, listener.calls);
  EXPECT_FALSE(LoadedLibrary::IsInTheProcess());
}

}  // namespace tests
