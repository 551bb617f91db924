#include <type_traits>

#include <gmock/gmock.h>

#include <analytics/WindowBlankingChanges.h>

#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::CallsDuring;

static_assert(std::is_empty<WindowBlankingChanges>::value, "a facade keeps no state");
static_assert(!std::is_polymorphic<WindowBlankingChanges>::value, "nothing of it is virtual");
static_assert(std::is_default_constructible<WindowBlankingChanges>::value,
              "callers may make a facade of their own");

TEST(TheInstance, ConnectsOnceWithoutTakingTheLock) {
  tests::InFreshProcess([] {
    EXPECT_THAT(CallsDuring([] { WindowBlankingChanges::Instance(); }),
                ElementsAre("Mutex::Mutex(true)", "TavrelSettingsClient::TavrelSettingsClient(0)",
                            "IniFile::IniFile()"));
  });
}

TEST(TheInstance, IsTheSameForEver) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges* const first = WindowBlankingChanges::Instance();
    EXPECT_NE(nullptr, first);
    EXPECT_EQ(first, WindowBlankingChanges::Instance());
    first->Start();
    first->Stop();
    EXPECT_EQ(first, WindowBlankingChanges::Instance());
  });
}

TEST(TheInstance, AsksThePlatformNothingWhenItIsAskedForAgain) {
  tests::InFreshProcess([] {
    WindowBlankingChanges::Instance();
    EXPECT_THAT(CallsDuring([] { WindowBlankingChanges::Instance(); }), IsEmpty());
  });
}

TEST(AFacadeOfACaller, AsksThePlatformNothingWhenItIsMadeAndDestroyed) {
  tests::InFreshProcess(
      [] { EXPECT_THAT(CallsDuring([] { WindowBlankingChanges(); }), IsEmpty()); });
}

TEST(AFacadeOfACaller, SharesSubscribersWithTheInstance) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& instance = *WindowBlankingChanges::Instance();
    const WindowBlankingChanges own;
    instance.Subscribe(&tests::NoteCall, tests::Named("A"));
    own.Subscribe(&tests::NoteCall, tests::Named("B"));
    own.SetConfiguration(tests::OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), ElementsAre("Subscriber(A)", "Subscriber(B)"));
    own.Unsubscribe(&tests::NoteCall, tests::Named("A"));
    fakes::CallLog::Instance().Clear();
    instance.SetConfiguration(tests::OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), ElementsAre("Subscriber(B)"));
  });
}

TEST(AFacadeOfACaller, SharesTheSubscriptionWithTheInstance) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& instance = *WindowBlankingChanges::Instance();
    const WindowBlankingChanges own;
    own.Start();
    EXPECT_THAT(CallsDuring([&] { instance.Start(); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
    instance.Stop();
    EXPECT_THAT(CallsDuring([&] { own.Stop(); }), ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
  });
}

}  // namespace
}  // namespace analytics
