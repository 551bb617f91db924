#include <cerrno>
#include <string>

#include <gmock/gmock.h>

#include "tests/platform/BlankingOperations.h"
#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/fakes/LockAnswer.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::BlankingOperation;
using tests::Calls;
using tests::CallsDuring;

class ABlankingOperation : public testing::TestWithParam<BlankingOperation> {};

TEST_P(ABlankingOperation, DoesAllOfItUnderTheLock) {
  tests::InFreshProcess([] {
    tests::PrepareFor(GetParam());
    Calls expected = GetParam().underLock;
    expected.insert(expected.begin(), "Mutex::Lock()");
    expected.emplace_back("Mutex::Unlock()");
    EXPECT_EQ(expected, CallsDuring(GetParam().call));
  });
}

TEST_P(ABlankingOperation, DoesAllOfItAndReleasesNothingWhereTheLockIsRefused) {
  for (const int answer : {1, -1, EDEADLK}) {
    tests::InFreshProcess([answer] {
      tests::PrepareFor(GetParam());
      fakes::LockAnswer() = answer;
      Calls expected = GetParam().underLock;
      expected.insert(expected.begin(), "Mutex::Lock()");
      EXPECT_EQ(expected, CallsDuring(GetParam().call)) << answer;
    });
  }
}

INSTANTIATE_TEST_SUITE_P(Operations, ABlankingOperation,
                         testing::ValuesIn(tests::kBlankingOperations),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ARefusedLock, LetsSubscribersInAndOutAllTheSame) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    fakes::LockAnswer() = EDEADLK;
    changes.Subscribe(&tests::NoteCall, tests::Named("A"));
    changes.SetConfiguration(tests::OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), ElementsAre("Subscriber(A)"));
    changes.Unsubscribe(&tests::NoteCall, tests::Named("A"));
    fakes::CallLog::Instance().Clear();
    changes.SetConfiguration(tests::OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), IsEmpty());
  });
}

TEST(ARefusedLock, LetsStartAndStopKeepTheirStateAllTheSame) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    fakes::LockAnswer() = EDEADLK;
    changes.Start();
    EXPECT_THAT(CallsDuring([&] { changes.Start(); }), ElementsAre("Mutex::Lock()"));
    changes.Stop();
    EXPECT_THAT(CallsDuring([&] { changes.Stop(); }), ElementsAre("Mutex::Lock()"));
  });
}

TEST(ARefusedLock, LetsAFailureOfStartOutAndReleasesNothing) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    fakes::LockAnswer() = EDEADLK;
    EXPECT_THAT(
        tests::CallsOfFailing("TavrelSettingsClient::GetSettings", [&] { changes.Start(); }),
        ElementsAre("Mutex::Lock()", "TavrelSettingsClient::GetSettings(Imaging/WindowBlanking*)"));
  });
}

}  // namespace
}  // namespace analytics
