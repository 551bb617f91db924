// Changes window-blanking settings step by step, over the fakes of the platform, and compares what
// subscribers are told with a model.

#include <stdexcept>
#include <string>
#include <vector>

#include <tavrel/core/IniFile.h>
#include <tavrel/settings/IChangeCallback.h>

#include <analytics/ResourceUsageServer.h>
#include <analytics/WindowBlankingChanges.h>

#include "fuzz/Check.h"
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
  s_deliveries.push_back({subscriber, *static_cast<tagWindowBlankingRegions*>(data)});
  if (subscriber >= RegionsModel::kThrows) throw std::runtime_error("a subscriber's failure");
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

constexpr std::size_t kSubscribers = 7;
constexpr std::size_t kMostNumbers = 34;  // beyond the last that counts

const unsigned kCounts[] = {1, 2, 3, 9, 30, 31, 32, 33};

const char* const kKeys[] = {"Name", "ColorR", "ColorG", "ColorB", "ColorA", "Other"};
const char* const kValues[] = {"Door", "Empty", "empty", "",    "0",  "255",         "300",
                               "-1",   "128",   "12abc", "abc", "77", "99999999999", "-257"};

/// Settings that change, as the platform stores them, as a change reports them and as a plain map.
struct Edits {
  IniFile& stored;
  Groups& groups;
  IniFile changes;
  Groups& known;  // what the library knows, with the changes in it

  void Add(const std::string& group) {
    stored.AddGroup(group);
    groups[group];
    changes.AddGroup(group);
    known[group];
  }
  void Set(const std::string& group, const std::string& key, const std::string& value) {
    stored.SetValue(group, key, value);
    groups[group][key] = value;
    changes.SetValue(group, key, value);
    known[group][key] = value;
  }
  void Remove(const std::string& group) {
    stored.RemoveGroup(group);
    groups.erase(group);
    changes.RemoveGroup(group);
    known.erase(group);
  }
  void Remove(const std::string& group, const std::string& key) {
    stored.RemoveKey(group, key);
    if (groups.count(group) != 0) groups[group].erase(key);
    changes.RemoveKey(group, key);
    if (known.count(group) != 0) known[group].erase(key);
  }
};

void AddRegions(Edits& edits, Input& input) {
  const unsigned count = input.Of(kCounts);
  if (input.Flag()) edits.Set(kMainGroup, "Enabled", "true");
  const std::string name = input.Of(kValues);
  const std::string part = std::to_string(input.Byte());
  for (unsigned number = 1; number <= count; ++number) {
    edits.Set(RegionGroup(number), "Name", name);
    edits.Set(RegionGroup(number), "ColorG", part);
  }
}

void Edit(Edits& edits, Input& input) {
  const std::string group = RegionGroup(static_cast<unsigned>(input.Below(kMostNumbers)));
  switch (input.Below(8)) {
    case 0:
      return edits.Add(group);
    case 1:
      return edits.Remove(group);
    case 2:
      return edits.Remove(group, input.Of(kKeys));
    case 3:
      return edits.Set(kMainGroup, "Enabled", input.Seldom(4) ? "false" : "true");
    case 4:
      return input.Flag() ? edits.Remove(kMainGroup) : edits.Remove(kMainGroup, "Enabled");
    case 5:
      return AddRegions(edits, input);
    default: {
      const char* const key = input.Of(kKeys);
      return edits.Set(group, key, input.Of(kValues));
    }
  }
}

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

template <typename Operation>
bool Throws(const Operation& operation) {
  try {
    operation();
    return false;
  } catch (const std::runtime_error&) {
    return true;
  }
}

/// The library and the model, driven side by side.
class Comparison {
 public:
  explicit Comparison(Input& input) : m_input(input) { WindowBlankingChanges::Instance(); }

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
    if (!m_input.Seldom(8)) return Failure::kNone;
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
        return Same(Throws([&] { changes.Start(); }), m_model.Start(m_stored, failure));
      case 1:
        return Same(Throws([&] { changes.Stop(); }), m_model.Stop(failure));
      case 2:
        return Same(Throws([&] { changes.Subscribe(given.callback, given.context); }),
                    m_model.Subscribe(subscriber));
      case 3:
        changes.Unsubscribe(given.callback, given.context);
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
    RequireSame(server.AvailableResources(), m_platform.availableResources, "free resources");
    const int units = m_input.Byte() - 128;
    RequireSame(server.ReserveResources(units), 1, "a reservation");
    const std::string claim = "ResourceReserver::TrySetUsage(" + std::to_string(units) + ")";
    RequireSame(static_cast<int>(fakes::CallLog::Instance().CallsOf(claim).size()), 1, "a claim");
  }

  void Change(Failure failure) {
    Groups known = m_model.Settings();
    Edits edits{m_platform.stored, m_stored, IniFile(), known};
    for (std::size_t count = 1 + m_input.Below(4); count > 0; --count) Edit(edits, m_input);
    if (!m_model.IsStarted()) return;
    m_platform.subscriptions.front().first->OnSettingsChanged(nullptr, edits.changes);
    m_model.Change(known, failure);
  }

  static void Same(bool throws, bool expected) { RequireSame(throws, expected, "a failure"); }

  Input& m_input;
  fakes::Platform& m_platform = fakes::Platform::Instance();
  RegionsModel m_model;
  Groups m_stored;
};

}  // namespace

void SetUp() {}

void RunOne(Input& input) {
  ForgetInstance();
  fakes::Platform::Instance().Reset();
  s_deliveries.clear();
  Comparison comparison(input);
  for (int step = 0; step < 24 && !input.IsUsedUp(); ++step) comparison.Step();
  fakes::Platform::Instance().Reset();
}

}  // namespace fuzz
