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
using tests::CallsDuring;
using tests::IniFile;
using tests::Listener;
using tests::Named;
using tests::NoteCall;
using tests::OneRegion;

void SubscribeThree() {
  for (const char* const name : {"A", "B", "C"}) {
    WindowBlankingChanges::Instance()->Subscribe(&NoteCall, Named(name));
  }
}

TEST(AConfiguration, IsToldToAllSubscribersInTheirOrderUnderTheLock) {
  tests::InFreshProcess([] {
    SubscribeThree();
    EXPECT_THAT(CallsDuring([] { WindowBlankingChanges().SetConfiguration(OneRegion()); }),
                ElementsAre("Mutex::Lock()", "Subscriber(A)", "Subscriber(B)", "Subscriber(C)",
                            "Mutex::Unlock()"));
  });
}

TEST(AConfiguration, OfCountZeroIsToldToNobodyAndTakesNoLock) {
  tests::InFreshProcess([] {
    SubscribeThree();
    tagWindowBlankingRegions record = OneRegion();
    record.count = 0;
    EXPECT_THAT(CallsDuring([&] { WindowBlankingChanges().SetConfiguration(record); }), IsEmpty());
  });
}

TEST(AConfiguration, IsHandedOverAsTheCallersOwnRecord) {
  tests::InFreshProcess([] {
    Listener listener;
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    changes.Subscribe(&Listener::Hear, &listener);
    const tagWindowBlankingRegions record = OneRegion();
    changes.SetConfiguration(record);
    EXPECT_EQ(1, listener.calls);
    EXPECT_EQ(4, listener.kind);
    EXPECT_EQ(388, listener.size);
    EXPECT_EQ(&record, listener.data);
  });
}

class AConfigurationOfCount : public testing::TestWithParam<unsigned> {};

TEST_P(AConfigurationOfCount, IsHandedOverAsItIs) {
  tests::InFreshProcess([] {
    Listener listener;
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    changes.Subscribe(&Listener::Hear, &listener);
    tagWindowBlankingRegions record = OneRegion();
    record.count = GetParam();
    changes.SetConfiguration(record);
    EXPECT_EQ(GetParam(), listener.record.count);
    EXPECT_EQ(tests::AllEntries(record), tests::AllEntries(listener.record));
  });
}

INSTANTIATE_TEST_SUITE_P(Count, AConfigurationOfCount,
                         testing::Values(1U, 31U, 32U, 33U, 0xFFFFFFFFU));

TEST(AConfiguration, IsNotStoredWhereThereAreNoRegions) {
  tests::InFreshProcess([] {
    tests::Started(IniFile())->SetConfiguration(OneRegion());
    EXPECT_EQ(0, tests::NewListener().calls);
    EXPECT_EQ(0U, tests::ListenerAfter(IniFile()).record.count);
  });
}

TEST(AConfiguration, IsNotStoredInPlaceOfTheRegions) {
  tests::InFreshProcess([] {
    tests::Started(tests::SwitchedOn({tests::RedRegion(), tests::BlueRegion()}))
        ->SetConfiguration(OneRegion());
    EXPECT_THAT(tests::ColoursOf(tests::NewListener().record),
                ElementsAre(tests::kRed, tests::kBlue));
    EXPECT_THAT(tests::ColoursOf(tests::ListenerAfter(IniFile()).record),
                ElementsAre(tests::kRed, tests::kBlue));
  });
}

TEST(AConfiguration, NeedsNoStart) {
  tests::InFreshProcess([] {
    SubscribeThree();
    WindowBlankingChanges::Instance()->SetConfiguration(OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), testing::SizeIs(3));
    EXPECT_THAT(fakes::CallLog::Instance().CallsOf("TavrelSettingsClient::"),
                ElementsAre("TavrelSettingsClient::TavrelSettingsClient(0)"));
  });
}

int AnswerMinusOne(void* context, int kind, void* data, int size) {
  NoteCall(context, kind, data, size);
  return -1;
}

TEST(TheAnswerOfASubscriber, IsIgnored) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    changes.Subscribe(&AnswerMinusOne, Named("A"));
    changes.Subscribe(&NoteCall, Named("B"));
    changes.SetConfiguration(OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), ElementsAre("Subscriber(A)", "Subscriber(B)"));
  });
}

int NoteWhetherNull(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
  return NoteCall(Named(context ? "some" : "null"), 0, nullptr, 0);
}

TEST(TheContextOfASubscriber, IsPassedBackAlsoIfItIsNull) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    changes.Subscribe(&NoteWhetherNull, nullptr);
    changes.SetConfiguration(OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), ElementsAre("Subscriber(null)"));
  });
}

TEST(ASubscriberThatFails, LetsItsFailureOutOfSetConfigurationAndEndsTheRound) {
  tests::InFreshProcess([] {
    SubscribeThree();
    EXPECT_THAT(tests::CallsOfFailing(
                    "Subscriber(B)", [] { WindowBlankingChanges().SetConfiguration(OneRegion()); }),
                ElementsAre("Mutex::Lock()", "Subscriber(A)", "Subscriber(B)", "Mutex::Unlock()"));
  });
}

TEST(ASubscriberThatFails, IsCalledAgainByTheNextSetConfiguration) {
  tests::InFreshProcess([] {
    SubscribeThree();
    tests::CallsOfFailing("Subscriber(A)",
                          [] { WindowBlankingChanges().SetConfiguration(OneRegion()); });
    fakes::CallLog::Instance().Clear();
    WindowBlankingChanges().SetConfiguration(OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(),
                ElementsAre("Subscriber(A)", "Subscriber(B)", "Subscriber(C)"));
  });
}

}  // namespace
}  // namespace analytics
