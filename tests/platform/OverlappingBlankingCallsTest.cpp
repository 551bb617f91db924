#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/OverlappingActions.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using tests::IniFile;
using tests::Listener;

constexpr int kTurns = 200;

/// A subscription that comes and goes on a thread of its own.
void ComeAndGo() {
  Listener listener;
  const WindowBlankingChanges changes;
  changes.Subscribe(&Listener::Hear, &listener);
  changes.Unsubscribe(&Listener::Hear, &listener);
}

TEST(OverlappingCalls, TellALastingSubscriberOfEachDispatchOnce) {
  tests::InFreshProcess([] {
    Listener listener;  // is written by several threads, and only the library's lock keeps order
    const WindowBlankingChanges& changes = tests::Started(tests::SwitchedOn({tests::RedRegion()}));
    changes.Subscribe(&Listener::Hear, &listener);
    listener = Listener();
    tests::RunOverlapping(
        kTurns, {[] { tests::Change(tests::SwitchedOn({tests::BlueRegion()})); },
                 [&] { changes.SetConfiguration(tests::OneRegion()); }, &ComeAndGo, &ComeAndGo});
    EXPECT_EQ(2 * kTurns, listener.calls);
  });
}

TEST(OverlappingCalls, LeaveNoneOfTheSubscribersThatWent) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = tests::Started(tests::SwitchedOn({tests::RedRegion()}));
    tests::RunOverlapping(kTurns, {[] { tests::Change(IniFile()); }, &ComeAndGo, &ComeAndGo});
    changes.Subscribe(&tests::NoteCall, tests::Named("last"));
    fakes::CallLog::Instance().Clear();
    changes.SetConfiguration(tests::OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), testing::ElementsAre("Subscriber(last)"));
  });
}

TEST(OverlappingCalls, StartAndStopInPairs) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    const auto startAndStop = [&changes] {
      changes.Start();
      changes.Stop();
    };
    fakes::CallLog::Instance().Clear();
    tests::RunOverlapping(kTurns, {startAndStop, startAndStop, &ComeAndGo});
    changes.Stop();
    const auto& log = fakes::CallLog::Instance();
    EXPECT_EQ(log.CallsOf("TavrelSettingsClient::Subscribe").size(),
              log.CallsOf("TavrelSettingsClient::UnSubscribe").size());
    EXPECT_THAT(fakes::Platform::Instance().subscriptions, testing::IsEmpty());
  });
}

}  // namespace
}  // namespace analytics
