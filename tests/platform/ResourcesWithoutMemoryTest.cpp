#include <string>
#include <thread>

#include <gmock/gmock.h>

#include "tests/platform/PlatformCalls.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/fakes/Platform.h"

namespace {

using testing::ElementsAre;
using tests::Calls;
using tests::CallsDuring;
using tests::LoadedLibrary;

/// A fresh load of the library whose first use runs out of memory.
class AResourceCallWithoutMemory : public testing::TestWithParam<tests::Shortage> {
 protected:
  void SetUp() override { fakes::Platform::Instance().Reset(); }

  /// What the platform sees of a claim whose first allocation fails.
  Calls CallsWithoutFirstAllocation() {
    int runs = 0;
    return CallsDuring([&] {
      tests::WithEachAllocationFailing(GetParam(), [&] {
        if (++runs == 1) m_library.ReserveResources(3);
      });
    });
  }

  LoadedLibrary m_library;
};

const Calls kWholeCall = {"Mutex::Lock()",
                          "Mutex::Unlock()",
                          "TavrelSettingsClient::TavrelSettingsClient(1)",
                          "ResourceReserver::ResourceReserver(client,CPU,Analytics)",
                          "ResourceReserver::TrySetUsage(3)",
                          "ResourceReserver::~ResourceReserver()",
                          "TavrelSettingsClient::~TavrelSettingsClient()"};

TEST_P(AResourceCallWithoutMemory, ReleasesTheLockWhereTheInstanceCannotBeMade) {
  const Calls calls = CallsWithoutFirstAllocation();
  if (IsSkipped()) return;
  EXPECT_THAT(calls, ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
}

TEST_P(AResourceCallWithoutMemory, LeavesTheNextCallToMakeTheInstance) {
  CallsWithoutFirstAllocation();
  EXPECT_EQ(kWholeCall, CallsDuring([&] { EXPECT_EQ(1, m_library.ReserveResources(3)); }));
}

TEST_P(AResourceCallWithoutMemory, MakesNoSecondInstanceOnALaterUse) {
  m_library.AvailableResources();
  const Calls calls = CallsWithoutFirstAllocation();
  if (IsSkipped()) return;
  EXPECT_THAT(calls, ElementsAre("Mutex::Lock()", "Mutex::Unlock()",
                                 "TavrelSettingsClient::TavrelSettingsClient(1)",
                                 "TavrelSettingsClient::~TavrelSettingsClient()"));
}

TEST_P(AResourceCallWithoutMemory, MakesNoSecondInstanceOnAnotherThread) {
  m_library.ReserveResources(1);
  Calls calls;
  std::thread([&] { calls = CallsWithoutFirstAllocation(); }).join();
  if (IsSkipped()) return;
  EXPECT_THAT(calls, ElementsAre("Mutex::Lock()", "Mutex::Unlock()",
                                 "TavrelSettingsClient::TavrelSettingsClient(1)",
                                 "TavrelSettingsClient::~TavrelSettingsClient()"));
}

TEST_P(AResourceCallWithoutMemory, ClosesAndReleasesWhateverAllocationFails) {
  int result = 0;
  tests::WithEachAllocationFailing(GetParam(), [&] { result = m_library.ReserveResources(3); });
  EXPECT_EQ(1, result);
  const fakes::CallLog& log = fakes::CallLog::Instance();
  EXPECT_EQ(log.CallsOf("Mutex::Lock()").size(), log.CallsOf("Mutex::Unlock()").size());
  EXPECT_EQ(log.CallsOf("TavrelSettingsClient::TavrelSettingsClient(").size(),
            log.CallsOf("TavrelSettingsClient::~").size());
  EXPECT_EQ(log.CallsOf("ResourceReserver::ResourceReserver(").size(),
            log.CallsOf("ResourceReserver::~").size());
  EXPECT_EQ(kWholeCall, CallsDuring([&] { m_library.ReserveResources(3); }));
}

INSTANTIATE_TEST_SUITE_P(Shortages, AResourceCallWithoutMemory,
                         testing::ValuesIn(tests::kShortages), tests::ShortageName);

}  // namespace
