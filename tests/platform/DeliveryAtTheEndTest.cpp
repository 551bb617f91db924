#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform/LoadedBlanking.h"
#include "tests/platform/MeetingPoint.h"

namespace {

using testing::Contains;
using testing::Not;
using testing::SizeIs;
using tests::Calls;

fakes::CallLog& Log() { return fakes::CallLog::Instance(); }

fakes::Platform& Platform() { return fakes::Platform::Instance(); }

/// Waits until the platform was asked so often what starts so; not for ever.
bool WaitForCalls(const std::string& start, std::size_t count, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (Log().CallsOf(start).size() < count) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::yield();
  }
  return true;
}

constexpr std::chrono::seconds kPatience{20};

/// A subscriber that holds up the first round until another change waits for the lock, and the last
/// round until the settings are gone, should they go before it has ended.
struct Guest {
  std::size_t deliveries = 0;
  std::size_t round = 0;
  tests::MeetingPoint lastRound{2};

  static int Hear(void* context, int /*kind*/, void* /*data*/, int /*size*/) {
    Guest& guest = *static_cast<Guest*>(context);
    if (guest.deliveries == 0) return 0;  // it is told the regions as it subscribes
    if (++guest.round < guest.deliveries) {
      EXPECT_TRUE(WaitForCalls("Mutex::Lock()", guest.deliveries, kPatience));
      return 0;
    }
    EXPECT_TRUE(guest.lastRound.Arrive());
    EXPECT_FALSE(WaitForCalls("IniFile::~", 1, std::chrono::milliseconds(50)));
    return 0;
  }
};

class ChangesInDelivery : public tests::LoadedBlanking,
                          public testing::WithParamInterface<std::size_t> {
 protected:
  ChangesInDelivery() {
    LoadAlone();
    Store({tests::GreenRegion()});
    m_library->Start();
  }

  /// Starts deliveries on threads of the platform, which a client waits for as it is destroyed, and
  /// comes back in the round of the last one.
  void DeliverTo(Guest& guest) {
    Log().Clear();
    auto* const callback = Platform().subscriptions.front().first;
    for (std::size_t index = 0; index < guest.deliveries; ++index) {
      m_threads.emplace_back(
          [callback] { callback->OnSettingsChanged(nullptr, Platform().stored); });
    }
    Platform().whileClosing = [this] {
      for (std::thread& thread : m_threads) thread.join();
    };
    EXPECT_TRUE(guest.lastRound.Arrive());
  }

 private:
  std::vector<std::thread> m_threads;
};

TEST_P(ChangesInDelivery, AreWaitedForByTheUnloading) {
  Guest guest;
  m_library->Subscribe(&Guest::Hear, &guest);
  guest.deliveries = GetParam();
  DeliverTo(guest);
  m_library.reset();
  EXPECT_EQ(GetParam(), guest.round);
  EXPECT_THAT(Log().CallsOf("IniFile::~"), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(Count, ChangesInDelivery, testing::Values(1U, 2U, 3U));

/// A change that comes while the library is being unloaded, when its settings are gone already.
class AChangeAtTheEnd : public tests::LoadedBlanking, public testing::WithParamInterface<bool> {};

TEST_P(AChangeAtTheEnd, IsTurnedAwayBeforeItTakesTheLock) {
  LoadStarted();
  if (GetParam()) Deliver(Platform().stored);
  Platform().whileClosing = [this] { Deliver(Platform().stored); };
  const Calls calls = tests::CallsDuring([this] { m_library.reset(); });
  EXPECT_THAT(calls, Contains("IniFile::~IniFile()"));
  EXPECT_THAT(calls, Not(Contains("Mutex::Lock()")));
}

INSTANTIATE_TEST_SUITE_P(AfterAnEarlierOne, AChangeAtTheEnd, testing::Bool());

}  // namespace
