#include <gmock/gmock.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::Calls;
using tests::CallsDuring;
using tests::IniFile;
using tests::Listener;
using tests::Named;
using tests::NoteCall;

/// Started blanking changes with three regions in their record.
const WindowBlankingChanges& StartedWithThree() {
  return *tests::Started(
      tests::SwitchedOn({tests::RedRegion(), tests::GreenRegion(), tests::BlueRegion()}));
}

/// The subscribers that a broadcast reaches, in order.
Calls ReachedSubscribers() {
  fakes::CallLog::Instance().Clear();
  WindowBlankingChanges().SetConfiguration(tests::OneRegion());
  return tests::CalledSubscribers();
}

/// A second callback that does the same as `NoteCall`.
int NoteOther(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
  fakes::CallLog::Instance().Note(std::string("Subscriber(other ") +
                                  static_cast<const char*>(context) + ")");
  return 0;
}

TEST(ANewSubscriber, IsToldOfTheRegionsAtOnce) {
  tests::InFreshProcess([] {
    Listener listener;
    StartedWithThree().Subscribe(&Listener::Hear, &listener);
    EXPECT_EQ(1, listener.calls);
    EXPECT_EQ(4, listener.kind);
    EXPECT_EQ(388, listener.size);
    EXPECT_THAT(tests::ColoursOf(listener.record),
                ElementsAre(tests::kRed, tests::kGreen, tests::kBlue));
  });
}

TEST(ANewSubscriber, IsToldUnderTheLock) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithThree();
    EXPECT_THAT(CallsDuring([&] { changes.Subscribe(&NoteCall, Named("A")); }),
                ElementsAre("Mutex::Lock()", "Subscriber(A)", "Mutex::Unlock()"));
  });
}

TEST(ANewSubscriber, IsStoredButNotToldWhereTheCountIsZero) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(IniFile());
    EXPECT_THAT(CallsDuring([&] { changes.Subscribe(&NoteCall, Named("A")); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
    EXPECT_THAT(ReachedSubscribers(), ElementsAre("Subscriber(A)"));
  });
}

TEST(ANewSubscriber, IsNotToldOnceTheRegionsAreSwitchedOff) {
  tests::InFreshProcess([] {
    StartedWithThree();
    tests::Change(tests::Switched(false));
    EXPECT_EQ(0, tests::NewListener().calls);
  });
}

TEST(ANewSubscriber, IsNotToldBeforeTheStart) {
  tests::InFreshProcess([] {
    fakes::Platform::Instance().stored = tests::SwitchedOn({tests::RedRegion()});
    WindowBlankingChanges::Instance();
    EXPECT_EQ(0, tests::NewListener().calls);
  });
}

TEST(ANewSubscriber, IsTheOnlyOneToBeTold) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithThree();
    changes.Subscribe(&NoteCall, Named("A"));
    fakes::CallLog::Instance().Clear();
    changes.Subscribe(&NoteCall, Named("B"));
    EXPECT_THAT(tests::CalledSubscribers(), ElementsAre("Subscriber(B)"));
  });
}

TEST(ANewSubscriber, ThatFailsIsStoredAndItsFailureGetsOutWithTheLockReleased) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithThree();
    EXPECT_THAT(
        tests::CallsOfFailing("Subscriber(", [&] { changes.Subscribe(&NoteCall, Named("A")); }),
        ElementsAre("Mutex::Lock()", "Subscriber(A)", "Mutex::Unlock()"));
    EXPECT_THAT(ReachedSubscribers(), ElementsAre("Subscriber(A)"));
  });
}

TEST(ANullCallback, IsNotCalledWhenItIsSubscribed) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithThree();
    EXPECT_THAT(CallsDuring([&] { changes.Subscribe(nullptr, Named("A")); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
  });
}

TEST(ANullCallback, IsSkippedByEveryDispatch) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(IniFile());
    changes.Subscribe(&NoteCall, Named("A"));
    changes.Subscribe(nullptr, Named("B"));
    changes.Subscribe(nullptr, nullptr);
    changes.Subscribe(&NoteCall, Named("C"));
    EXPECT_THAT(ReachedSubscribers(), ElementsAre("Subscriber(A)", "Subscriber(C)"));
    fakes::CallLog::Instance().Clear();
    tests::Change(IniFile());
    EXPECT_THAT(tests::CalledSubscribers(), ElementsAre("Subscriber(A)", "Subscriber(C)"));
  });
}

/// A subscriber that is gone once it was called, so that the entry behind it is passed over.
int NoteOnce(void* context, int kind, void* data, int size) {
  WindowBlankingChanges().Unsubscribe(&NoteOnce, context);
  return NoteCall(context, kind, data, size);
}

TEST(ANullCallback, IsKeptInTheList) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    changes.Subscribe(&NoteOnce, Named("once"));
    changes.Subscribe(nullptr, Named("A"));
    changes.Subscribe(&NoteCall, Named("B"));
    EXPECT_THAT(ReachedSubscribers(), ElementsAre("Subscriber(once)", "Subscriber(B)"));
  });
}

TEST(ANullCallback, IsRemovedByItsContext) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    changes.Subscribe(&NoteOnce, Named("once"));
    changes.Subscribe(nullptr, Named("A"));
    changes.Subscribe(&NoteCall, Named("B"));
    changes.Unsubscribe(nullptr, Named("A"));
    EXPECT_THAT(ReachedSubscribers(), ElementsAre("Subscriber(once)"));
  });
}

TEST(APairSubscribedTwice, IsToldTwice) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    changes.Subscribe(&NoteCall, Named("A"));
    changes.Subscribe(&NoteCall, Named("A"));
    EXPECT_THAT(ReachedSubscribers(), ElementsAre("Subscriber(A)", "Subscriber(A)"));
  });
}

TEST(APairSubscribedTwice, LosesOnlyTheEarlierEntryWhenItIsUnsubscribed) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    for (const char* const name : {"A", "B", "A", "C"}) changes.Subscribe(&NoteCall, Named(name));
    changes.Unsubscribe(&NoteCall, Named("A"));
    EXPECT_THAT(ReachedSubscribers(),
                ElementsAre("Subscriber(B)", "Subscriber(A)", "Subscriber(C)"));
    changes.Unsubscribe(&NoteCall, Named("A"));
    EXPECT_THAT(ReachedSubscribers(), ElementsAre("Subscriber(B)", "Subscriber(C)"));
  });
}

class AnUnsubscribing : public testing::TestWithParam<const char*> {};

TEST_P(AnUnsubscribing, KeepsTheOrderOfTheOthers) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    Calls expected;
    for (const char* const name : {"A", "B", "C", "D"}) {
      changes.Subscribe(&NoteCall, Named(name));
      if (std::string(name) != GetParam()) {
        expected.push_back(std::string("Subscriber(") + name + ")");
      }
    }
    changes.Unsubscribe(&NoteCall, Named(GetParam()));
    EXPECT_EQ(expected, ReachedSubscribers());
  });
}

INSTANTIATE_TEST_SUITE_P(Of, AnUnsubscribing, testing::Values("A", "B", "C", "D"),
                         [](const auto& row) { return std::string(row.param); });

TEST(AnUnsubscribing, ChangesNothingForAPairNeverSubscribed) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    changes.Unsubscribe(&NoteCall, Named("A"));
    changes.Subscribe(&NoteCall, Named("A"));
    changes.Subscribe(&NoteOther, Named("B"));
    changes.Unsubscribe(&NoteCall, Named("B"));
    changes.Unsubscribe(&NoteOther, Named("A"));
    changes.Unsubscribe(&NoteCall, nullptr);
    changes.Unsubscribe(nullptr, Named("A"));
    EXPECT_THAT(ReachedSubscribers(), ElementsAre("Subscriber(A)", "Subscriber(other B)"));
  });
}

TEST(AnUnsubscribing, EndsTheCalls) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = StartedWithThree();
    changes.Subscribe(&NoteCall, Named("A"));
    changes.Unsubscribe(&NoteCall, Named("A"));
    fakes::CallLog::Instance().Clear();
    tests::Change(IniFile());
    EXPECT_THAT(tests::CalledSubscribers(), IsEmpty());
  });
}

}  // namespace
}  // namespace analytics
