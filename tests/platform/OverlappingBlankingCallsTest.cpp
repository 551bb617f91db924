#include <atomic>
#include <thread>

#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/MeetingPoint.h"
#include "tests/platform/OverlappingActions.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"
#include "tests/support/TimeLimit.h"

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
    const WindowBlankingChanges& changes = *tests::Started(tests::SwitchedOn({tests::RedRegion()}));
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
    const WindowBlankingChanges& changes = *tests::Started(tests::SwitchedOn({tests::RedRegion()}));
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

/// A subscriber whose round lasts until an operation waits for its lock.
struct Guest {
  tests::MeetingPoint round{2};
  std::atomic<bool> hasLeft{false};
  int calls = 0;

  static int Stay(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
    Guest& guest = *static_cast<Guest*>(context);
    ++guest.calls;
    fakes::CallLog::Instance().Clear();
    EXPECT_TRUE(guest.round.Arrive());
    while (fakes::CallLog::Instance().CallsOf("Mutex::Lock()").empty()) std::this_thread::yield();
    guest.hasLeft = true;
    return 0;
  }
};

TEST(Unsubscribing, WaitsForARunningRoundAfterWhichTheSubscriberIsNotCalled) {
  tests::InFreshProcess([] {
    const tests::TimeLimit limit;
    Guest guest;
    const WindowBlankingChanges& changes = *tests::Started(IniFile());
    changes.Subscribe(&Guest::Stay, &guest);
    std::thread delivering([] { tests::Change(IniFile()); });
    EXPECT_TRUE(guest.round.Arrive());
    changes.Unsubscribe(&Guest::Stay, &guest);
    EXPECT_TRUE(guest.hasLeft);
    delivering.join();
    tests::Change(IniFile());
    EXPECT_EQ(1, guest.calls);
  });
}

}  // namespace
}  // namespace analytics
