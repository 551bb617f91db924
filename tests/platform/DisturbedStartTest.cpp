#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/LoadedBlanking.h"
#include "tests/support/Figures.h"

namespace {

using testing::ElementsAre;
using tests::CallOf;
using tests::Calls;
using tests::IniFile;
using tests::kBlue;
using tests::kRed;

fakes::CallLog& Log() { return fakes::CallLog::Instance(); }

fakes::Platform& Platform() { return fakes::Platform::Instance(); }

/// Waits until a lock has been asked for so many times; a lock that is never asked for hangs its
/// test until the time limit of the program.
void WaitForLocks(std::size_t locks) {
  while (Log().CallsOf("Mutex::Lock()").size() < locks) std::this_thread::yield();
}

/// All calls but those that read settings.
Calls CallsInLog() {
  Calls calls;
  for (const std::string& call : Log().Calls()) {
    if (call.rfind("IniFile::", 0) != 0 || call == "IniFile::MergeSettings(changes)")
      calls.push_back(call);
  }
  return calls;
}

/// A start in the midst of which a change is delivered. The subscription is from an earlier start,
/// whose callback still gets what comes late.
class ADisturbedStart : public tests::LoadedBlanking {
 protected:
  void SetUp() override {
    LoadStarted();
    m_library->Stop();
    Store({tests::RedRegion()});
    Log().Clear();
    tests::Count("compound_cases");
  }

  /// A change that adds a second region.
  void DeliverSecondRegion() const { Deliver(m_second); }

 private:
  const IniFile m_second = tests::Settings({{tests::RegionGroup(2), tests::BlueRegion()}});
};

const Calls kReading = {"TavrelSettingsClient::GetSettings(Imaging/WindowBlanking*)"};
const Calls kSubscribing = {"TavrelSettingsClient::Subscribe(callback,Imaging/WindowBlanking*)"};
const Calls kChange = {"Mutex::Lock()", "IniFile::MergeSettings(changes)",
                       CallOf("A"),     CallOf("B"),
                       CallOf("C"),     "Mutex::Unlock()"};

Calls Joined(const std::vector<Calls>& parts) {
  Calls all;
  for (const Calls& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST_F(ADisturbedStart, TakesInAChangeOnItsOwnThreadWhileItReads) {
  Platform().whileReading = [&] { DeliverSecondRegion(); };
  m_library->Start();
  EXPECT_EQ(Joined({{"Mutex::Lock()"}, kReading, kChange, kSubscribing, {"Mutex::Unlock()"}}),
            CallsInLog());
  EXPECT_THAT(Record(), ElementsAre(kRed, kBlue));
  EXPECT_TRUE(WasStarted());
}

TEST_F(ADisturbedStart, TakesInAChangeOnItsOwnThreadWhileItSubscribes) {
  Platform().whileSubscribing = [&] { DeliverSecondRegion(); };
  m_library->Start();
  EXPECT_EQ(Joined({{"Mutex::Lock()"}, kReading, kSubscribing, kChange, {"Mutex::Unlock()"}}),
            CallsInLog());
  EXPECT_THAT(Record(), ElementsAre(kRed, kBlue));
  EXPECT_TRUE(WasStarted());
}

TEST_F(ADisturbedStart, IsNotUndoneByAChangeThatFailsMeanwhile) {
  Log().FailAt("IniFile::MergeSettings", 1);
  Platform().whileSubscribing = [&] { DeliverSecondRegion(); };
  EXPECT_NO_THROW(m_library->Start());
  EXPECT_THAT(Record(), ElementsAre(kRed));
  EXPECT_TRUE(WasStarted());
}

TEST_F(ADisturbedStart, HasAChangeOfAnotherThreadWaitWhileItReads) {
  std::thread platform;
  Platform().whileReading = [&] {
    platform = std::thread([&] { DeliverSecondRegion(); });
    WaitForLocks(2);
  };
  m_library->Start();
  platform.join();
  Calls expected = Joined({{"Mutex::Lock()"}, kReading, {"Mutex::Lock()"}, kSubscribing});
  expected.emplace_back("Mutex::Unlock()");
  expected.insert(expected.end(), kChange.begin() + 1, kChange.end());
  EXPECT_EQ(expected, CallsInLog());
  EXPECT_THAT(Record(), ElementsAre(kRed, kBlue));
}

TEST_F(ADisturbedStart, HasAChangeOfAnotherThreadWaitWhileItSubscribes) {
  std::thread platform;
  Platform().whileSubscribing = [&] {
    platform = std::thread([&] { DeliverSecondRegion(); });
    WaitForLocks(2);
  };
  m_library->Start();
  platform.join();
  Calls expected = Joined({{"Mutex::Lock()"}, kReading, kSubscribing, {"Mutex::Lock()"}});
  expected.emplace_back("Mutex::Unlock()");
  expected.insert(expected.end(), kChange.begin() + 1, kChange.end());
  EXPECT_EQ(expected, CallsInLog());
  EXPECT_THAT(Record(), ElementsAre(kRed, kBlue));
}

TEST_F(ADisturbedStart, ThatFailsLetsTheChangeThatWaitedIn) {
  std::thread platform;
  Platform().whileSubscribing = [&] {
    platform = std::thread([&] { DeliverSecondRegion(); });
    WaitForLocks(2);
    throw 7;
  };
  EXPECT_THROW(m_library->Start(), int);
  platform.join();
  EXPECT_THAT(tests::CalledSubscribers(), ElementsAre(CallOf("A"), CallOf("B"), CallOf("C")));
  EXPECT_THAT(Record(), ElementsAre(kRed, kBlue));
  Platform().whileSubscribing = nullptr;
  EXPECT_FALSE(WasStarted());
}

/// A subscriber that throws while another thread waits for the lock.
class AWaitingThread : public ADisturbedStart {
 protected:
  /// Waits until both the thread of the dispatch and the other have asked for the lock.
  static int ThrowOnceTheOtherWaits(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
    auto& self = *static_cast<AWaitingThread*>(context);
    if (std::exchange(self.m_hasThrown, true)) return 0;
    self.m_waiter =
        std::thread([&self] { self.m_library->Subscribe(&tests::NoteCall, tests::Named("D")); });
    WaitForLocks(2);
    throw 7;
  }

  void SubscribeThrower() {
    m_library->Unsubscribe(&tests::NoteCall, tests::Named(tests::kB));
    m_library->Stop();
    Deliver(tests::Switched(false));  // so that subscribing calls nobody
    m_library->Subscribe(&ThrowOnceTheOtherWaits, this);
    Log().Clear();
  }

  /// Expects that the other thread came in after the failing dispatch had let go of the lock.
  void ExpectLetIn() {
    m_waiter.join();
    EXPECT_THAT(Log().CallsOf("Mutex::"), ElementsAre("Mutex::Lock()", "Mutex::Lock()",
                                                      "Mutex::Unlock()", "Mutex::Unlock()"));
    EXPECT_THAT(Subscribers(), ElementsAre(CallOf("A"), CallOf("C"), CallOf("D")));
  }

 private:
  std::thread m_waiter;
  bool m_hasThrown = false;
};

TEST_F(AWaitingThread, IsLetInWhereASubscriberThrowsOutOfAConfiguration) {
  SubscribeThrower();
  EXPECT_THROW(m_library->SetConfiguration(tests::OneRegion()), int);
  ExpectLetIn();
}

TEST_F(AWaitingThread, IsLetInWhereASubscriberEndsTheRoundOfAChange) {
  SubscribeThrower();
  const IniFile change;
  EXPECT_NO_THROW(Deliver(change));
  ExpectLetIn();
}

/// One try to start or to stop, of which the platform may fail a call.
struct Try {
  bool starts;
  const char* failing;  // null: nothing fails
};

const Try kTries[] = {{true, nullptr},
                      {true, "TavrelSettingsClient::GetSettings"},
                      {true, "IniFile::operator="},
                      {true, "TavrelSettingsClient::Subscribe"},
                      {false, nullptr},
                      {false, "TavrelSettingsClient::UnSubscribe"}};

class StartsAndStops : public tests::LoadedBlanking {
 protected:
  /// Makes one try and expects what it does from this state.
  void ExpectTry(const Try& one, bool& isStarted) {
    Log().Clear();
    if (one.failing) Log().FailAt(one.failing, 1);
    const bool fails = one.failing && one.starts != isStarted;
    if (fails)
      EXPECT_THROW(StartOrStop(one), fakes::Failure);
    else
      EXPECT_NO_THROW(StartOrStop(one));
    if (!fails) isStarted = one.starts;
    EXPECT_THAT(Platform().subscriptions, testing::SizeIs(isStarted ? 1 : 0));
    EXPECT_THAT(Log().CallsOf("Mutex::"), ElementsAre("Mutex::Lock()", "Mutex::Unlock()"));
  }

 private:
  void StartOrStop(const Try& one) const { one.starts ? m_library->Start() : m_library->Stop(); }
};

/// Calls `visit` with each sequence of four tries.
template <typename Visit>
void ForEachSequence(Visit visit) {
  for (const Try& first : kTries) {
    for (const Try& second : kTries) {
      for (const Try& third : kTries) {
        for (const Try& fourth : kTries) visit({first, second, third, fourth});
      }
    }
  }
}

TEST_F(StartsAndStops, FollowOneFlagInEverySequenceOfFourThatMayFail) {
  LoadAlone();
  m_library->Instance();
  ForEachSequence([this](const std::vector<Try>& tries) {
    bool isStarted = false;
    for (const Try& one : tries) ExpectTry(one, isStarted);
    Log().Clear();
    m_library->Stop();
    tests::Count("compound_cases");
  });
}

}  // namespace
