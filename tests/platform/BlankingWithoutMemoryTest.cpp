#include <new>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/FailingAllocation.h"
#include "tests/support/LoadedLibrary.h"

namespace {

using testing::ElementsAre;
using tests::Calls;
using tests::IniFile;
using tests::Listener;
using tests::LoadedLibrary;
using tests::Named;
using tests::NoteCall;
using tests::WithEachAllocationFailing;

fakes::CallLog& Log() { return fakes::CallLog::Instance(); }

fakes::Platform& Platform() { return fakes::Platform::Instance(); }

/// A fresh load of the library, in a process whose memory runs out.
class BlankingWithoutMemory : public testing::TestWithParam<tests::Shortage> {
 protected:
  void SetUp() override {
    Platform().Reset();
    Platform().stored = tests::SwitchedOn({tests::RedRegion(), tests::BlueRegion()});
  }
  void TearDown() override { Platform().Reset(); }

  /// What a new subscriber is told at once.
  Listener NewListener() const {
    Listener listener;
    m_library.Subscribe(&Listener::Hear, &listener);
    m_library.Unsubscribe(&Listener::Hear, &listener);
    return listener;
  }

  /// Expects that an operation completes without memory and releases its lock.
  template <typename Operation>
  static void ExpectNoAllocation(Operation operation) {
    {
      const tests::FailingAllocation failing(1, GetParam());
      operation();
      EXPECT_EQ(0, failing.Failures());
    }
    ExpectLockReleased();
  }

  static void ExpectLockReleased() {
    EXPECT_EQ(Log().CallsOf("Mutex::Lock()").size(), Log().CallsOf("Mutex::Unlock()").size());
  }

  const LoadedLibrary m_library;
};

TEST_P(BlankingWithoutMemory, MakesTheInstanceOnceThereIsMemory) {
  analytics::WindowBlankingChanges* instance = nullptr;
  WithEachAllocationFailing(GetParam(), [&] { instance = m_library.Instance(); });
  EXPECT_NE(nullptr, instance);
  EXPECT_EQ(instance, m_library.Instance());
  m_library.Start();
  EXPECT_THAT(tests::ColoursOf(NewListener().record), ElementsAre(tests::kRed, tests::kBlue));
}

TEST_P(BlankingWithoutMemory, ReplacesTheImplementationWhereTheFacadeCouldNotBeMade) {
  WithEachAllocationFailing(GetParam(), [&] {
    Log().Clear();
    m_library.Instance();
  });
  if (IsSkipped()) return;
  // The last run, in which the implementation of the run before is still there.
  EXPECT_THAT(Log().Calls(),
              ElementsAre("Mutex::Mutex(true)", "TavrelSettingsClient::TavrelSettingsClient(0)",
                          "IniFile::IniFile()", "IniFile::~IniFile()",
                          "TavrelSettingsClient::~TavrelSettingsClient()", "Mutex::~Mutex()",
                          "IChangeCallback::~IChangeCallback()"));
}

TEST_P(BlankingWithoutMemory, KeepsOneImplementationOfAllThatItMade) {
  WithEachAllocationFailing(GetParam(), [&] { m_library.Instance(); });
  EXPECT_EQ(Log().CallsOf("TavrelSettingsClient::TavrelSettingsClient(").size(),
            Log().CallsOf("TavrelSettingsClient::~").size() + 1);
  EXPECT_EQ(Log().CallsOf("IniFile::IniFile()").size(),
            Log().CallsOf("IniFile::~IniFile()").size() + 1);
  EXPECT_EQ(Log().CallsOf("Mutex::Mutex(").size(), Log().CallsOf("Mutex::~").size() + 1);
}

TEST_P(BlankingWithoutMemory, LetsTheFailureOfASubscriptionOutAndStoresNothing) {
  m_library.Instance();
  Listener listener;
  WithEachAllocationFailing(GetParam(), [&] { m_library.Subscribe(&Listener::Hear, &listener); });
  m_library.SetConfiguration(tests::OneRegion());
  EXPECT_EQ(1, listener.calls);
  ExpectLockReleased();
}

TEST_P(BlankingWithoutMemory, DoesNotTellASubscriberThatItCannotStore) {
  m_library.Start();
  Listener listener;
  WithEachAllocationFailing(GetParam(), [&] { m_library.Subscribe(&Listener::Hear, &listener); });
  EXPECT_EQ(1, listener.calls);
  EXPECT_THAT(tests::ColoursOf(listener.record), ElementsAre(tests::kRed, tests::kBlue));
}

TEST_P(BlankingWithoutMemory, KeepsTheOrderOfSubscribersWhoseListCouldNotGrow) {
  m_library.Instance();
  const char* const names[] = {"A", "B", "C", "D", "E", "F", "G", "H", "I"};
  Calls expected;
  for (const char* const name : names) {
    expected.push_back(std::string("Subscriber(") + name + ")");
  }
  WithEachAllocationFailing(GetParam(), [&] {
    for (const char* const name : names) m_library.Unsubscribe(&NoteCall, Named(name));
    for (const char* const name : names) m_library.Subscribe(&NoteCall, Named(name));
  });
  m_library.SetConfiguration(tests::OneRegion());
  EXPECT_EQ(expected, tests::CalledSubscribers());
}

TEST_P(BlankingWithoutMemory, NeedsNoMemoryToUnsubscribe) {
  Listener listener;
  Listener other;
  m_library.Subscribe(&Listener::Hear, &listener);
  m_library.Subscribe(&Listener::Hear, &other);
  ExpectNoAllocation([&] { m_library.Unsubscribe(&Listener::Hear, &listener); });
  m_library.SetConfiguration(tests::OneRegion());
  EXPECT_EQ(0, listener.calls);
  EXPECT_EQ(1, other.calls);
}

TEST_P(BlankingWithoutMemory, NeedsNoMemoryToPassAConfigurationOn) {
  const tagWindowBlankingRegions record = tests::OneRegion();
  Listener listener;
  m_library.Subscribe(&Listener::Hear, &listener);
  ExpectNoAllocation([&] { m_library.SetConfiguration(record); });
  EXPECT_EQ(1, listener.calls);
  EXPECT_EQ(tests::AllEntries(record), tests::AllEntries(listener.record));
}

// What needs memory here is the platform's own ending of the subscription.
TEST_P(BlankingWithoutMemory, StaysStartedUntilTheSubscriptionIsEnded) {
  m_library.Start();
  WithEachAllocationFailing(GetParam(), [&] {
    EXPECT_EQ(1U, Platform().subscriptions.size());
    m_library.Start();  // again, which changes nothing
    EXPECT_EQ(1U, Platform().subscriptions.size());
    m_library.Stop();
  });
  EXPECT_EQ(0U, Platform().subscriptions.size());
  ExpectLockReleased();
  m_library.Start();
  EXPECT_EQ(1U, Platform().subscriptions.size());
}

TEST_P(BlankingWithoutMemory, IsStartedAndSubscribedUnlessTheFailureGotOut) {
  NewListener();  // so that the list has room and only the start needs memory
  int runs = 0;
  int starts = 0;
  bool isStarted = false;
  WithEachAllocationFailing(GetParam(), [&] {
    ++runs;
    EXPECT_EQ(isStarted ? 1U : 0U, Platform().subscriptions.size());
    m_library.Stop();
    isStarted = false;
    m_library.Start();
    isStarted = true;
    ++starts;
    if (NewListener().calls == 0) throw std::bad_alloc();  // what the start has swallowed
  });
  ExpectLockReleased();
  if (IsSkipped()) return;
  EXPECT_GT(runs, starts) << "no failure got out";
  EXPECT_GT(starts, 1) << "no failure was swallowed";
}

TEST_P(BlankingWithoutMemory, HasTheRegionsOnceAStartHasMemory) {
  NewListener();
  WithEachAllocationFailing(GetParam(), [&] {
    m_library.Stop();
    m_library.Start();
    if (NewListener().calls == 0) throw std::bad_alloc();  // what the start has swallowed
  });
  EXPECT_THAT(tests::ColoursOf(NewListener().record), ElementsAre(tests::kRed, tests::kBlue));
}

TEST_P(BlankingWithoutMemory, LetsNothingOutOfAChangeAndTellsNobodyOrTheOldRecord) {
  const IniFile change = tests::Settings({{tests::RegionGroup(3), tests::GreenRegion()}});
  Listener listener;
  m_library.Subscribe(&Listener::Hear, &listener);
  m_library.Start();
  int untold = 0;
  int toldOld = 0;
  WithEachAllocationFailing(GetParam(), [&] {
    listener.calls = 0;
    EXPECT_NO_THROW(tests::Change(change));
    if (listener.calls == 1 && listener.record.count == 3) return;
    ++(listener.calls == 0 ? untold : toldOld);
    throw std::bad_alloc();  // what the change has swallowed
  });
  EXPECT_THAT(tests::ColoursOf(listener.record),
              ElementsAre(tests::kRed, tests::kBlue, tests::kGreen));
  ExpectLockReleased();
  if (IsSkipped()) return;
  EXPECT_GT(untold, 0);
  EXPECT_GT(toldOld, 0);
}

INSTANTIATE_TEST_SUITE_P(Shortages, BlankingWithoutMemory, testing::ValuesIn(tests::kShortages),
                         tests::ShortageName);

}  // namespace
