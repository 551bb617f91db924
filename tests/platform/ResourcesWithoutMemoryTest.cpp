#include <ostream>
#include <string>
#include <thread>
#include <tuple>

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

/// An operation of the resource server.
struct Operation {
  const char* name;
  int (*ask)(LoadedLibrary& library);
  const char* question;  // what it asks the platform
  int answer;
};

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

constexpr int kAvailable = 5;

const Operation kOperations[] = {
    {"AvailableResources", [](LoadedLibrary& library) { return library.AvailableResources(); },
     "ResourceReserver::GetAvailableResources()", kAvailable},
    {"ReserveResources", [](LoadedLibrary& library) { return library.ReserveResources(3); },
     "ResourceReserver::TrySetUsage(3)", 1},
};

/// A fresh load of the library whose first use runs out of memory.
class AResourceCallWithoutMemory
    : public testing::TestWithParam<std::tuple<Operation, tests::Shortage>> {
 protected:
  void SetUp() override {
    fakes::Platform::Instance().Reset();
    fakes::Platform::Instance().availableResources = kAvailable;
  }
  void TearDown() override { fakes::Platform::Instance().Reset(); }

  int Ask() { return std::get<0>(GetParam()).ask(m_library); }

  static int Answer() { return std::get<0>(GetParam()).answer; }

  static tests::Shortage Shortage() { return std::get<1>(GetParam()); }

  /// What the platform sees of a call whose first allocation fails.
  Calls CallsWithoutFirstAllocation() {
    int runs = 0;
    return CallsDuring([&] {
      tests::WithEachAllocationFailing(Shortage(), [&] {
        if (++runs == 1) Ask();
      });
    });
  }

  static Calls WholeCall() {
    return {"Mutex::Lock()",
            "Mutex::Unlock()",
            "TavrelSettingsClient::TavrelSettingsClient(1)",
            "ResourceReserver::ResourceReserver(client,CPU,Analytics)",
            std::get<0>(GetParam()).question,
            "ResourceReserver::~ResourceReserver()",
            "TavrelSettingsClient::~TavrelSettingsClient()"};
  }

  LoadedLibrary m_library;
};

TEST_P(AResourceCallWithoutMemory, ReleasesTheLockWhereTheInstanceCannotBeMade) {
  const Calls calls = CallsWithoutFirstAllocation();
  if (IsSkipped()) return;
  EXPECT_THAT(calls, ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
}

TEST_P(AResourceCallWithoutMemory, LeavesTheNextCallToMakeTheInstance) {
  CallsWithoutFirstAllocation();
  EXPECT_EQ(WholeCall(), CallsDuring([&] { EXPECT_EQ(Answer(), Ask()); }));
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
  tests::WithEachAllocationFailing(Shortage(), [&] { result = Ask(); });
  EXPECT_EQ(Answer(), result);
  const fakes::CallLog& log = fakes::CallLog::Instance();
  EXPECT_EQ(log.CallsOf("Mutex::Lock()").size(), log.CallsOf("Mutex::Unlock()").size());
  EXPECT_EQ(log.CallsOf("TavrelSettingsClient::TavrelSettingsClient(").size(),
            log.CallsOf("TavrelSettingsClient::~").size());
  EXPECT_EQ(log.CallsOf("ResourceReserver::ResourceReserver(").size(),
            log.CallsOf("ResourceReserver::~").size());
  EXPECT_EQ(WholeCall(), CallsDuring([&] { Ask(); }));
}

std::string NameOf(const testing::TestParamInfo<AResourceCallWithoutMemory::ParamType>& info) {
  const auto& [operation, shortage] = info.param;
  return operation.name + tests::NameOf(shortage);
}

INSTANTIATE_TEST_SUITE_P(During, AResourceCallWithoutMemory,
                         testing::Combine(testing::ValuesIn(kOperations),
                                          testing::ValuesIn(tests::kShortages)),
                         NameOf);

}  // namespace
