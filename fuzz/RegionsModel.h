#pragma once

#include <map>
#include <string>
#include <vector>

#include <analytics/WindowBlankingChanges.h>

namespace fuzz {

/// The settings of a platform: the keys of each group by name.
using Groups = std::map<std::string, std::map<std::string, std::string>>;

constexpr char kMainGroup[] = "Imaging/WindowBlanking";

std::string RegionGroup(unsigned number);

/// What a subscriber was called with.
struct Delivery {
  int subscriber;
  tagWindowBlankingRegions record;
};

bool operator==(const Delivery& one, const Delivery& other);

/// What the platform fails at during one operation.
enum class Failure { kNone, kReading, kSubscribing, kUnsubscribing, kMerging, kLookingForGroup };

/// The rules of the window-blanking subscription, written once more over plain maps.
///
/// Subscribers are numbers: from `kThrows` on they throw once called, from `kNeverCalled` on they
/// have no callback.
class RegionsModel {
 public:
  static constexpr int kThrows = 4;
  static constexpr int kNeverCalled = 5;

  /// How often the next operation looks for a group until that fails.
  void FailAtGroup(unsigned number) { m_failingGroup = number; }

  /// Gives whether the operation throws, as the others do.
  bool Start(const Groups& stored, Failure failure);
  bool Stop(Failure failure);
  bool IsStarted() const { return m_isStarted; }

  /// The platform reports that its settings have become `settings`.
  void Change(const Groups& settings, Failure failure);

  bool Subscribe(int subscriber);
  void Unsubscribe(int subscriber);
  bool SetConfiguration(const tagWindowBlankingRegions& record);

  /// The settings as the library knows them.
  const Groups& Settings() const { return m_settings; }

  const std::vector<Delivery>& Deliveries() const { return m_deliveries; }

 private:
  void Refresh(Failure failure);
  bool CountGroups(Failure failure);
  bool Deliver(int subscriber, const tagWindowBlankingRegions& record);
  bool DeliverToAll(const tagWindowBlankingRegions& record);

  Groups m_settings;
  std::vector<int> m_subscribers;
  std::vector<Delivery> m_deliveries;
  tagWindowBlankingRegions m_record = {};
  unsigned m_groupCount = 0;
  unsigned m_failingGroup = 0;
  bool m_isStarted = false;
};

}  // namespace fuzz
