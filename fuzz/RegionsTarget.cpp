// Changes window-blanking settings step by step, over the fakes of the platform, and compares what
// subscribers are told with a model.

#include <stdexcept>
#include <string>
#include <vector>

#include <tavrel/core/IniFile.h>
#include <tavrel/settings/IChangeCallback.h>

#include <analytics/ResourceUsageServer.h>
#include <analytics/WindowBlankingChanges.h>

#include "fuzz/Call.h"
#include "fuzz/Check.h"
#include "fuzz/RegionsEdits.h"
#include "fuzz/RegionsModel.h"
#include "fuzz/Target.h"
#include "tests/support/fakes/CallLog.h"
#include "tests/support/fakes/LockAnswer.h"
#include "tests/support/fakes/Platform.h"

namespace fuzz {
namespace {

using analytics::WindowBlankingChanges;
using tavrel::core::IniFile;

/// The library's instance, which no caller can reach otherwise: with it gone, the next use makes a
/// new implementation, so that no input sees what the one before left.
template <auto* instance>
struct InstanceAccess {
  friend void ForgetInstance() { instance->reset(); }
};
void ForgetInstance();
template struct InstanceAccess<&WindowBlankingChanges::m_sInstance>;

constexpr int kKind = 4;
constexpr int kSize = 388;

std::vector<Delivery> s_deliveries;  // what the library told its subscribers

int Hear(void* context, int kind, void* data, int size) {
  Require(kind == kKind && size == kSize, "the arguments of a subscriber");
  const int subscriber = *static_cast<int*>(context);
  Require(s_deliveries.size() < s_deliveries.capacity(), "a subscriber needs no memory");
  s_deliveries.push_back({subscriber, *static_cast<tagWindowBlankingRegions*>(data)});
  static const std::runtime_error failure("a subscriber's failure");
  if (subscriber >= RegionsModel::kThrows) throw std::runtime_error(failure);
  return subscriber;
}

/// Another callback for the same contexts; its subscribers have the next numbers.
int HearToo(void* context, int kind, void* data, int size) {
  int subscriber = *static_cast<int*>(context) + 1;
  return Hear(&subscriber, kind, data, size);
}

struct Subscriber {
  WindowBlankingCallback callback;
  void* context;
};

Subscriber SubscriberOf(int number) {
  static int contexts[] = {0, 1, 2, 3, 4, 5, 6};
  const bool isSecond = number == 1 || number == 3;
  if (number >= RegionsModel::kNeverCalled) return {nullptr, &contexts[number]};
  return {isSecond ? &HearToo : &Hear, &contexts[isSecond ? number - 1 : number]};
}

constexpr std::size_t kMostSteps = 24;
constexpr std::size_t kMostDeliveries = kMostSteps * (kMostSteps + 1);  // one more with each step
constexpr std::size_t kSubscribers = 7;
constexpr unsigned kMostReported = 31;

struct FailingCall {
  Failure failure;
  const char* call;
};

const FailingCall kFailingCalls[] = {
    {Failure::kReading, "TavrelSettingsClient::GetSettings"},
    {Failure::kSubscribing, "TavrelSettingsClient::Subscribe"},
    {Failure::kUnsubscribing, "TavrelSettingsClient::UnSubscribe"},
    {Failure::kMerging, "IniFile::MergeSettings"},
    {Failure::kLookingForGroup, "IniFile::HasGroup"},
};

/// Whether the library lets out what the platform or a subscriber throws.
template <typename Operation>
bool Throws(const Operation& operation) {
  try {
    Call(operation);
    return false;
  } catch (const std::runtime_error&) {
    return true;
  }
}

/// The library and the model, driven side by side.
class Comparison {
 public:
  explicit Comparison(Input& input) : m_input(input) {
    Call([] { return WindowBlankingChanges::Instance(); });
  }

  void Step() {
    const Failure failure = PlatformFailure();
    fakes::LockAnswer() = m_input.Seldom(16) ? 1 : 0;
    Operate(failure);
    fakes::CallLog::Instance().Clear();
    Require(s_deliveries == m_model.Deliveries(), "what subscribers were told");
    Require(m_platform.subscriptions.empty() != m_model.IsStarted(), "whether it is started");
  }

 private:
  /// Has the platform fail at most once in the next operation.
  Failure PlatformFailure() {
    if (!m_input.Seldom(8) || LibraryMemory::RunsOut()) return Failure::kNone;
    const FailingCall& failing = m_input.Of(kFailingCalls);
    const bool isLooking = failing.failure == Failure::kLookingForGroup;
    const unsigned number = isLooking ? 1 + static_cast<unsigned>(m_input.Below(33)) : 1;
    m_model.FailAtGroup(number);
    fakes::CallLog::Instance().FailAt(failing.call, static_cast<int>(number));
    return failing.failure;
  }

  void Operate(Failure failure) {
    const WindowBlankingChanges changes;
    const int subscriber = static_cast<int>(m_input.Below(kSubscribers));
    const Subscriber given = SubscriberOf(subscriber);
    switch (m_input.Below(9)) {
      case 0:
        return Start(failure);
      case 1:
        return Same(Throws([&] { changes.Stop(); }), m_model.Stop(failure));
      case 2:
        return Same(Throws([&] { changes.Subscribe(given.callback, given.context); }),
                    m_model.Subscribe(subscriber));
      case 3:
        Call([&] { changes.Unsubscribe(given.callback, given.context); });
        return m_model.Unsubscribe(subscriber);
      case 4:
        return SetConfiguration();
      case 5:
        return AskForResources();
      default:
        return Change(failure);
    }
  }

  void SetConfiguration() {
    tagWindowBlankingRegions record = {};
    record.count = static_cast<unsigned>(m_input.Below(3));
    record.regions[0].y = m_input.Byte();
    const WindowBlankingChanges changes;
    Same(Throws([&] { changes.SetConfiguration(record); }), m_model.SetConfiguration(record));
  }

  /// Resources have nothing to do with regions, and are asked for in between.
  void AskForResources() {
    m_platform.availableResources = m_input.Byte() - 128;
    m_platform.usageAccepted = m_input.Flag();
    fakes::CallLog::Instance().Clear();
    analytics::ResourceUsageServer server;
    RequireSame(Call([&] { return server.AvailableResources(); }), m_platform.availableResources,
                "free resources");
    const int units = m_input.Byte() - 128;
    RequireSame(Call([&] { return server.ReserveResources(units); }), 1, "a reservation");
    const std::string claim = "ResourceReserver::TrySetUsage(" + std::to_string(units) + ")";
    RequireSame(static_cast<int>(fakes::CallLog::Instance().CallsOf(claim).size()), 1, "a claim");
  }

  void Change(Failure failure) {
    Groups known = m_model.Settings();
    Edits edits{m_platform.stored, m_stored, IniFile(), known};
    for (std::size_t count = 1 + m_input.Below(4); count > 0; --count) Edit(edits, m_input);
    if (!m_model.IsStarted()) return;
    m_model.Change(known, failure);
    auto* const callback = m_platform.subscriptions.front().first;
    OrBeginAnew(known, [&] { Call([&] { callback->OnSettingsChanged(nullptr, edits.changes); }); });
  }

  void Start(Failure failure) {
    const bool throws = m_model.Start(m_stored, failure);
    OrBeginAnew(m_stored, [&] { Same(Throws([] { WindowBlankingChanges().Start(); }), throws); });
  }

  /// Has the library read settings. Where it runs out of memory then, nobody is told, and it goes
  /// on with what it has; the model does not know what that is.
  template <typename Operation>
  void OrBeginAnew(const Groups& settings, const Operation& operation) {
    while (m_entries < kMostReported && settings.count(RegionGroup(m_entries + 1)) != 0)
      ++m_entries;
    const int failures = LibraryMemory::Failures();
    operation();
    if (LibraryMemory::Failures() != failures) BeginAnew();
  }

  /// Has the library begin with as many regions as it may have reported: that replaces all it has,
  /// and is then what it would be had memory never run out.
  void BeginAnew() {
    Groups known;
    Edits edits{m_platform.stored, m_stored, IniFile(), known};
    edits.Set(kMainGroup, "Enabled", "true");
    for (unsigned number = 1; number <= m_entries; ++number) {
      edits.Remove(RegionGroup(number));
      edits.Set(RegionGroup(number), "Name", "Door");
    }
    edits.Remove(RegionGroup(m_entries + 1));
    const WindowBlankingChanges changes;
    changes.Stop();
    changes.Start();
    m_model.Stop(Failure::kNone);
    m_model.Start(m_stored, Failure::kNone);
    s_deliveries.assign(m_model.Deliveries().begin(), m_model.Deliveries().end());
    CompareRecord();
  }

  /// Has the library tell its record to a subscriber that comes and goes.
  void CompareRecord() {
    const Subscriber subscriber = SubscriberOf(0);
    const WindowBlankingChanges changes;
    changes.Subscribe(subscriber.callback, subscriber.context);
    m_model.Subscribe(0);
    changes.Unsubscribe(subscriber.callback, subscriber.context);
    m_model.Unsubscribe(0);
  }

  static void Same(bool throws, bool expected) { RequireSame(throws, expected, "a failure"); }

  Input& m_input;
  fakes::Platform& m_platform = fakes::Platform::Instance();
  RegionsModel m_model;
  Groups m_stored;
  unsigned m_entries = 1;  // of the record that may have been set
};

}  // namespace

void SetUp() { s_deliveries.reserve(kMostDeliveries); }

void RunOne(Input& input) {
  ForgetInstance();
  fakes::Platform::Instance().Reset();
  s_deliveries.clear();
  Comparison comparison(input);
  for (std::size_t step = 0; step < kMostSteps && !input.IsUsedUp(); ++step) comparison.Step();
  fakes::Platform::Instance().Reset();
}

}  // namespace fuzz
