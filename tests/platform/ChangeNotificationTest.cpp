#include <cstring>

#include <gmock/gmock.h>
#include <tavrel/settings/IChangeCallback.h>
#include <tavrel/settings/TavrelSettingsClient.h>

#include "tests/platform/BlankingChanges.h"
#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FreshProcess.h"

namespace analytics {
namespace {

using testing::ElementsAre;
using tests::Calls;
using tests::CallsDuring;
using tests::Change;
using tests::IniFile;
using tests::Listener;
using tests::ListenerAfter;
using tests::Named;
using tests::NoteCall;

constexpr char kSwitchRead[] = "IniFile::GetBoolOrDefault(Imaging/WindowBlanking,Enabled,false)";

/// Started without settings and with the subscribers A, B and C.
const WindowBlankingChanges& StartedWithSubscribers() {
  const WindowBlankingChanges& changes = *tests::Started(IniFile());
  for (const char* const name : {"A", "B", "C"}) changes.Subscribe(&NoteCall, Named(name));
  return changes;
}

TEST(AChange, IsMergedThenReadThenToldToAllSubscribersUnderTheLock) {
  tests::InFreshProcess([] {
    StartedWithSubscribers();
    const IniFile change;
    EXPECT_THAT(CallsDuring([&] { Change(change); }),
                ElementsAre("Mutex::Lock()", "IniFile::MergeSettings(changes)", kSwitchRead,
                            "Subscriber(A)", "Subscriber(B)", "Subscriber(C)", "Mutex::Unlock()"));
  });
}

TEST(AChange, IsToldWithTheKindFourAndTheSizeOfTheRecord) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    const Listener listener = ListenerAfter(tests::SwitchedOn({tests::RedRegion()}));
    EXPECT_EQ(1, listener.calls);
    EXPECT_EQ(4, listener.kind);
    EXPECT_EQ(388, listener.size);
    EXPECT_THAT(tests::ColoursOf(listener.record), ElementsAre(tests::kRed));
  });
}

/// Virtual operations in the order in which the platform calls them.
struct Slots {
  virtual ~Slots() = default;
  virtual void Third() = 0;
};

TEST(AChange, IsReportedToTheVirtualOperationBehindTheDestructors) {
  // Pointers to members differ in nothing but the slot that they go to.
  const auto expected = &Slots::Third;
  const auto reported = &tavrel::settings::IChangeCallback::OnSettingsChanged;
  static_assert(sizeof expected == sizeof reported, "all pointers to members are alike");
  EXPECT_EQ(0, std::memcmp(&expected, &reported, sizeof expected));
}

TEST(AChange, IsToldByTheRecordThatNewSubscribersGet) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::RedRegion()}));
    EXPECT_EQ(tests::NewListener().data, ListenerAfter(IniFile()).data);
  });
}

TEST(AChange, IsMergedIntoTheSettingsThatWereReadAtTheStart) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::RedRegion()}));
    const IniFile change = tests::Settings({{tests::RegionGroup(2), tests::BlueRegion()}});
    EXPECT_THAT(tests::ColoursOf(ListenerAfter(change).record),
                ElementsAre(tests::kRed, tests::kBlue));
  });
}

TEST(AChange, IsToldAlsoWhereTheRecordStaysAsItWas) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::RedRegion()}));
    for (int round = 0; round < 3; ++round) {
      const Listener listener = ListenerAfter(IniFile());
      EXPECT_EQ(1, listener.calls);
      EXPECT_THAT(tests::ColoursOf(listener.record), ElementsAre(tests::kRed));
    }
  });
}

TEST(AChange, IsToldAlsoWithACountOfZero) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    const Listener listener = ListenerAfter(tests::Switched(false));
    EXPECT_EQ(1, listener.calls);
    EXPECT_EQ(0U, listener.record.count);
  });
}

TEST(AChange, IsTakenFromAnySource) {
  tests::InFreshProcess([] {
    StartedWithSubscribers();
    tavrel::settings::TavrelSettingsClient source(
        tavrel::settings::TavrelSettingsClient::OperationMode(1));
    auto* const callback = fakes::Platform::Instance().subscriptions.front().first;
    const IniFile change;
    const Calls withoutSource = CallsDuring([&] { Change(change); });
    EXPECT_EQ(withoutSource, CallsDuring([&] { callback->OnSettingsChanged(&source, change); }));
  });
}

TEST(AChange, ThatCannotBeMergedIsReadByNobodyAndToldToNobody) {
  tests::InFreshProcess([] {
    StartedWithSubscribers();
    const IniFile change = tests::SwitchedOn({tests::RedRegion()});
    EXPECT_THAT(CallsDuring([&] {
                  fakes::CallLog::Instance().FailAt("IniFile::MergeSettings", 1);
                  EXPECT_NO_THROW(Change(change));
                }),
                ElementsAre("Mutex::Lock()", "IniFile::MergeSettings(changes)", "Mutex::Unlock()"));
    EXPECT_EQ(0, tests::NewListener().calls);
  });
}

TEST(AChange, ThatCannotBeMergedLeavesTheNextOneAsItIs) {
  tests::InFreshProcess([] {
    StartedWithSubscribers();
    fakes::CallLog::Instance().FailAt("IniFile::MergeSettings", 1);
    Change(IniFile());
    EXPECT_THAT(tests::CalledSubscribers(), testing::IsEmpty());
    Change(IniFile());
    EXPECT_THAT(tests::CalledSubscribers(),
                ElementsAre("Subscriber(A)", "Subscriber(B)", "Subscriber(C)"));
  });
}

TEST(ASubscriberThatFails, EndsTheRoundOfAChangeAndNothingGetsOut) {
  tests::InFreshProcess([] {
    StartedWithSubscribers();
    const IniFile change;
    EXPECT_THAT(CallsDuring([&] {
                  fakes::CallLog::Instance().FailAt("Subscriber(B)", 1);
                  EXPECT_NO_THROW(Change(change));
                }),
                ElementsAre("Mutex::Lock()", "IniFile::MergeSettings(changes)", kSwitchRead,
                            "Subscriber(A)", "Subscriber(B)", "Mutex::Unlock()"));
  });
}

TEST(ASubscriberThatFails, IsCalledAgainAtTheNextChange) {
  tests::InFreshProcess([] {
    StartedWithSubscribers();
    fakes::CallLog::Instance().FailAt("Subscriber(A)", 1);
    Change(IniFile());
    EXPECT_THAT(tests::CalledSubscribers(), ElementsAre("Subscriber(A)"));
    fakes::CallLog::Instance().Clear();
    Change(IniFile());
    EXPECT_THAT(tests::CalledSubscribers(),
                ElementsAre("Subscriber(A)", "Subscriber(B)", "Subscriber(C)"));
  });
}

TEST(ASubscriberThatFails, DoesNotUndoTheRecordOfTheChange) {
  tests::InFreshProcess([] {
    StartedWithSubscribers();
    fakes::CallLog::Instance().FailAt("Subscriber(A)", 1);
    Change(tests::SwitchedOn({tests::GreenRegion()}));
    EXPECT_THAT(tests::ColoursOf(tests::NewListener().record), ElementsAre(tests::kGreen));
  });
}

int ThrowNumber(void* /*context*/, int /*kind*/, void* /*data*/, int /*size*/) { throw 7; }

TEST(ASubscriberThatThrowsANumber, LetsNothingOutOfAChangeEither) {
  tests::InFreshProcess([] {
    tests::Started(IniFile())->Subscribe(&ThrowNumber, nullptr);
    EXPECT_NO_THROW(Change(IniFile()));
  });
}

}  // namespace
}  // namespace analytics
