#include <string>
#include <utility>

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
using testing::Not;
using testing::Pair;
using testing::SizeIs;
using tests::Calls;
using tests::CallsDuring;
using tests::CallsOfFailing;
using tests::IniFile;
using tests::kBlue;
using tests::kRed;
using tests::NewListener;
using tests::SwitchedOn;

const auto& Subscriptions() { return fakes::Platform::Instance().subscriptions; }

/// All that the platform sees of a start without settings.
Calls WholeStart() {
  return {"Mutex::Lock()",
          "TavrelSettingsClient::GetSettings(Imaging/WindowBlanking*)",
          "IniFile::operator=(other)",
          "TavrelSettingsClient::Subscribe(callback,Imaging/WindowBlanking*)",
          "IniFile::GetBoolOrDefault(Imaging/WindowBlanking,Enabled,false)",
          "Mutex::Unlock()"};
}

TEST(Starting, SubscribesOneCallbackForTheGroupAndAllThatLiesBelowIt) {
  tests::InFreshProcess([] {
    tests::Started(IniFile());
    EXPECT_THAT(Subscriptions(), ElementsAre(Pair(Not(nullptr), "Imaging/WindowBlanking*")));
  });
}

TEST(Starting, CallsNoSubscriberThoughThereAreRegions) {
  tests::InFreshProcess([] {
    WindowBlankingChanges::Instance()->Subscribe(&tests::NoteCall, tests::Named("A"));
    const WindowBlankingChanges& changes = *tests::Started(SwitchedOn({tests::RedRegion()}));
    changes.Stop();
    changes.Start();
    EXPECT_EQ(1, NewListener().calls);
    EXPECT_THAT(tests::CalledSubscribers(), IsEmpty());
  });
}

TEST(Starting, NeitherReadsNorSubscribesAgainWhileStarted) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(IniFile());
    EXPECT_THAT(CallsDuring([&] { changes.Start(); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
    EXPECT_THAT(Subscriptions(), SizeIs(1));
  });
}

TEST(Starting, ReadsAfreshAfterAStop) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(SwitchedOn({tests::RedRegion()}));
    changes.Stop();
    fakes::Platform::Instance().stored = SwitchedOn({tests::BlueRegion(), tests::RedRegion()});
    changes.Start();
    EXPECT_THAT(tests::ColoursOf(NewListener().record), ElementsAre(kBlue, kRed));
  });
}

TEST(StartingAndStopping, DoTheSameInEveryRound) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    for (int round = 0; round < 3; ++round) {
      EXPECT_EQ(WholeStart(), CallsDuring([&] { changes.Start(); }));
      EXPECT_THAT(Subscriptions(), SizeIs(1));
      EXPECT_THAT(CallsDuring([&] { changes.Stop(); }),
                  ElementsAre("Mutex::Lock()", "TavrelSettingsClient::UnSubscribe(callback)",
                              "Mutex::Unlock()"));
      EXPECT_THAT(Subscriptions(), IsEmpty());
    }
  });
}

TEST(Stopping, AsksThePlatformNothingUnlessStarted) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    EXPECT_THAT(CallsDuring([&] { changes.Stop(); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
    changes.Start();
    changes.Stop();
    EXPECT_THAT(CallsDuring([&] { changes.Stop(); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
  });
}

TEST(Stopping, KeepsTheRecordForLaterSubscribers) {
  tests::InFreshProcess([] {
    tests::Started(SwitchedOn({tests::RedRegion(), tests::BlueRegion()}))->Stop();
    EXPECT_THAT(tests::ColoursOf(NewListener().record), ElementsAre(kRed, kBlue));
  });
}

TEST(Stopping, KeepsTheSubscribers) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(IniFile());
    changes.Subscribe(&tests::NoteCall, tests::Named("A"));
    changes.Stop();
    changes.SetConfiguration(tests::OneRegion());
    EXPECT_THAT(tests::CalledSubscribers(), SizeIs(1));
    changes.Start();
    tests::Change(IniFile());
    EXPECT_THAT(tests::CalledSubscribers(), SizeIs(2));
  });
}

TEST(Stopping, KeepsTheSettingsWithWhichALateDeliveryIsMerged) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(SwitchedOn({tests::RedRegion()}));
    auto* const callback = Subscriptions().front().first;
    changes.Stop();
    callback->OnSettingsChanged(nullptr,
                                tests::Settings({{tests::RegionGroup(2), tests::BlueRegion()}}));
    EXPECT_THAT(tests::ColoursOf(NewListener().record), ElementsAre(kRed, kBlue));
  });
}

struct FailingStart {
  const char* name;
  const char* start;  // of the call that fails
  Calls expected;     // all calls of the start that fails
};

const FailingStart kFailingStarts[] = {
    {"WhenReading",
     "TavrelSettingsClient::GetSettings",
     {"Mutex::Lock()", "TavrelSettingsClient::GetSettings(Imaging/WindowBlanking*)",
      "Mutex::Unlock()"}},
    {"WhenReceivingTheSettings",
     "IniFile::operator=",
     {"Mutex::Lock()", "TavrelSettingsClient::GetSettings(Imaging/WindowBlanking*)",
      "IniFile::operator=(other)", "Mutex::Unlock()"}},
    {"WhenSubscribing",
     "TavrelSettingsClient::Subscribe",
     {"Mutex::Lock()", "TavrelSettingsClient::GetSettings(Imaging/WindowBlanking*)",
      "IniFile::operator=(other)",
      "TavrelSettingsClient::Subscribe(callback,Imaging/WindowBlanking*)", "Mutex::Unlock()"}},
};

class AStartThatFails : public testing::TestWithParam<FailingStart> {
 protected:
  static Calls CallsOfFailingStart() {
    return CallsOfFailing(GetParam().start, [] { WindowBlankingChanges::Instance()->Start(); });
  }
};

TEST_P(AStartThatFails, LetsTheFailureOutWithTheLockReleased) {
  tests::InFreshProcess([] {
    WindowBlankingChanges::Instance();
    EXPECT_EQ(GetParam().expected, CallsOfFailingStart());
  });
}

TEST_P(AStartThatFails, MakesNoRecord) {
  tests::InFreshProcess([] {
    WindowBlankingChanges::Instance();
    fakes::Platform::Instance().stored = SwitchedOn({tests::RedRegion()});
    CallsOfFailingStart();
    EXPECT_EQ(0, NewListener().calls);
  });
}

TEST_P(AStartThatFails, MayBeTriedAgain) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    CallsOfFailingStart();
    EXPECT_EQ(WholeStart(), CallsDuring([&] { changes.Start(); }));
    EXPECT_THAT(Subscriptions(), SizeIs(1));
  });
}

TEST_P(AStartThatFails, IsNothingThatAStopEnds) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *WindowBlankingChanges::Instance();
    CallsOfFailingStart();
    EXPECT_THAT(CallsDuring([&] { changes.Stop(); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
  });
}

INSTANTIATE_TEST_SUITE_P(Places, AStartThatFails, testing::ValuesIn(kFailingStarts),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(AStopThatFails, LetsTheFailureOutWithTheLockReleased) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(IniFile());
    EXPECT_THAT(CallsOfFailing("TavrelSettingsClient::UnSubscribe", [&] { changes.Stop(); }),
                ElementsAre("Mutex::Lock()", "TavrelSettingsClient::UnSubscribe(callback)",
                            "Mutex::Unlock()"));
  });
}

TEST(AStopThatFails, LeavesItStarted) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(IniFile());
    CallsOfFailing("TavrelSettingsClient::UnSubscribe", [&] { changes.Stop(); });
    EXPECT_THAT(CallsDuring([&] { changes.Start(); }),
                ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
  });
}

TEST(AStopThatFails, MayBeTriedAgain) {
  tests::InFreshProcess([] {
    const WindowBlankingChanges& changes = *tests::Started(IniFile());
    CallsOfFailing("TavrelSettingsClient::UnSubscribe", [&] { changes.Stop(); });
    changes.Stop();
    EXPECT_THAT(Subscriptions(), IsEmpty());
    EXPECT_EQ(WholeStart(), CallsDuring([&] { changes.Start(); }));
  });
}

}  // namespace
}  // namespace analytics
