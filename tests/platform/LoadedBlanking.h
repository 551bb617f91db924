#pragma once

#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/PlatformCalls.h"
#include "tests/platform/Regions.h"
#include "tests/platform/Subscribers.h"
#include "tests/support/LoadedLibrary.h"
#include "tests/support/fakes/LockAnswer.h"

namespace tests {

/// Which locks the platform refuses.
enum class Refused { kNone, kOne, kAll };

constexpr Refused kRefusals[] = {Refused::kNone, Refused::kOne, Refused::kAll};

inline std::string NameOf(Refused refused) {
  const char* const names[] = {"WithTheLock", "WithALockRefused", "WithAllLocksRefused"};
  return names[static_cast<int>(refused)];
}

// Names of subscribers; a name is a context, so that each has one address in the whole program.
inline constexpr char kA[] = "A";
inline constexpr char kB[] = "B";
inline constexpr char kC[] = "C";

/// "A" as an entry in the platform's log.
inline std::string CallOf(const std::string& subscriber) {
  return "Subscriber(" + subscriber + ")";
}

/// Fresh loads of the library over the fakes, one after another, and what can be seen of the state
/// that each is in.
class LoadedBlanking : public testing::Test {
 protected:
  ~LoadedBlanking() override {
    m_library.reset();
    fakes::Platform::Instance().Reset();
  }

  /// Loads the library afresh, starts it with one green region and subscribes A, B and C.
  void LoadStarted() {
    LoadAlone();
    Store({GreenRegion()});
    m_library->Start();
    m_callback = fakes::Platform::Instance().subscriptions.front().first;
    for (const char* const name : {kA, kB, kC}) m_library->Subscribe(&NoteCall, Named(name));
  }

  void LoadAlone() {
    m_library.reset();
    fakes::Platform::Instance().Reset();
    m_library.emplace();
    m_callback = nullptr;
  }

  static void Store(const std::vector<IniFile::Keys>& regions) {
    fakes::Platform::Instance().stored = SwitchedOn(regions);
  }

  /// Has the platform refuse locks from now on.
  static void Refuse(Refused refused) {
    if (refused == Refused::kNone) return;
    fakes::RefusalsLeft() = refused == Refused::kOne ? 1 : fakes::kAlways;
    fakes::LockAnswer() = 1;
  }

  /// Delivers a change, also one that is late and comes after a stop.
  void Deliver(const IniFile& change) const { m_callback->OnSettingsChanged(nullptr, change); }

  /// The record that a new subscriber is told at once; empty if it is told nothing.
  std::vector<Yuv> Record() const {
    Listener listener;
    m_library->Subscribe(&Listener::Hear, &listener);
    m_library->Unsubscribe(&Listener::Hear, &listener);
    return ColoursOf(listener.record);
  }

  /// The subscribers that are told a configuration, in order.
  Calls Subscribers() const {
    fakes::CallLog::Instance().Clear();
    m_library->SetConfiguration(OneRegion());
    return CalledSubscribers();
  }

  /// Whether it is started; started in any case afterwards.
  bool WasStarted() const {
    fakes::CallLog::Instance().Clear();
    m_library->Start();
    return fakes::CallLog::Instance().CallsOf("TavrelSettingsClient::Subscribe").empty();
  }

  /// Expects that a start brings the regions of the store, and a stop the end of the subscription,
  /// whatever happened before.
  void ExpectStartsAndStops() const {
    m_library->Stop();
    Store({RedRegion(), GreenRegion()});
    m_library->Start();
    EXPECT_THAT(Record(), testing::ElementsAre(kRed, kGreen));
    EXPECT_THAT(fakes::Platform::Instance().subscriptions, testing::SizeIs(1));
    m_library->Stop();
    EXPECT_THAT(fakes::Platform::Instance().subscriptions, testing::IsEmpty());
  }

  std::optional<LoadedLibrary> m_library;
  tavrel::settings::IChangeCallback* m_callback = nullptr;
};

}  // namespace tests
