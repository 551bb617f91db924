#pragma once

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/platform/LoadedBlanking.h"

namespace tests {

/// What a subscriber does when it is called for the first time, beside being noted.
enum class Action {
  kNone,
  kSubscribe,
  kUnsubscribeItself,
  kUnsubscribeEarlier,
  kUnsubscribeLater,
  kThrow,
  kThrowNumber,
  kStart,
  kStop,
  kStopThatFails,
  kStopAndStart,
  kStopAndStartThatFails,
  kConfigure,
  kChange,
};

constexpr int kActions = static_cast<int>(Action::kChange) + 1;

/// A subscriber by its number; those of number 4 have come late.
constexpr int kFirstSubscribers = 4;

/// What a call threw.
enum class Out { kNone, kFailure, kNumber };

inline std::string CallOf(int subscriber, std::size_t regions) {
  return "Subscriber(" + std::to_string(subscriber) + " of " + std::to_string(regions) + ")";
}

constexpr std::size_t kStoredRegions = 3;      // what a start reads
constexpr std::size_t kChangedRegions = 2;     // what a change brings
constexpr std::size_t kConfiguredRegions = 5;  // what is in the configuration of a caller

/// What the library is expected to do where its subscribers act on it: a list, a flag and a number
/// in its place. A call says by its result what it throws.
class BlankingModel {
 public:
  /// @param regions  number in the settings and in the record
  BlankingModel(std::vector<Action> actions, std::size_t regions, Refused refused)
      : m_actions(std::move(actions)),
        m_groups(regions),
        m_refusals(refused == Refused::kNone  ? 0
                   : refused == Refused::kOne ? 1
                                              : 1000) {
    for (int subscriber = 0; subscriber < kFirstSubscribers; ++subscriber)
      m_list.push_back(subscriber);
  }

  Out Change() {
    const bool locked = Lock();
    m_groups = std::max(m_groups, kChangedRegions);
    m_regions = m_groups;
    Tell(m_regions);
    return Unlock(locked, Out::kNone);
  }

  Out Configure() {
    const bool locked = Lock();
    return Unlock(locked, Tell(kConfiguredRegions));
  }

  Out Subscribe(int subscriber) {
    const bool locked = Lock();
    m_list.push_back(subscriber);
    return Unlock(locked, m_regions > 0 ? Call(subscriber, m_regions) : Out::kNone);
  }

  Out Unsubscribe(int subscriber) {
    const bool locked = Lock();
    for (std::size_t place = 0; place < m_list.size(); ++place) {
      if (m_list[place] != subscriber) continue;
      m_list.erase(m_list.begin() + static_cast<std::ptrdiff_t>(place));
      break;
    }
    return Unlock(locked, Out::kNone);
  }

  Out Start() {
    const bool locked = Lock();
    if (m_started) return Unlock(locked, Out::kNone);
    m_log.emplace_back("TavrelSettingsClient::GetSettings(Imaging/WindowBlanking*)");
    if (Fails(m_startFails)) return Unlock(locked, Out::kFailure);
    m_log.emplace_back("TavrelSettingsClient::Subscribe(callback,Imaging/WindowBlanking*)");
    m_groups = m_regions = kStoredRegions;
    m_started = true;
    return Unlock(locked, Out::kNone);
  }

  Out Stop() {
    const bool locked = Lock();
    if (!m_started) return Unlock(locked, Out::kNone);
    m_log.emplace_back("TavrelSettingsClient::UnSubscribe(callback)");
    if (Fails(m_stopFails)) return Unlock(locked, Out::kFailure);
    m_started = false;
    return Unlock(locked, Out::kNone);
  }

  const Calls& Log() const { return m_log; }

 private:
  bool Lock() {
    m_log.emplace_back("Mutex::Lock()");
    return m_refusals == 0 || m_refusals-- == 0;
  }

  Out Unlock(bool locked, Out out) {
    if (locked) m_log.emplace_back("Mutex::Unlock()");
    return out;
  }

  static bool Fails(bool& once) {
    const bool fails = once;
    once = false;
    return fails;
  }

  Out Tell(const std::size_t& regions) {
    std::size_t place = 0;
    while (place < m_list.size()) {  // a call may change the list
      const Out out = Call(m_list[place++], regions);
      if (out != Out::kNone) return out;
    }
    return Out::kNone;
  }

  Out Call(int subscriber, std::size_t regions) {
    m_log.push_back(CallOf(subscriber, regions));
    if (subscriber >= kFirstSubscribers || !m_acted.insert(subscriber).second) return Out::kNone;
    return Act(m_actions[static_cast<std::size_t>(subscriber)], subscriber);
  }

  Out Act(Action action, int subscriber) {
    switch (action) {
      case Action::kSubscribe:
        return Subscribe(kFirstSubscribers);
      case Action::kUnsubscribeItself:
        return Unsubscribe(subscriber);
      case Action::kUnsubscribeEarlier:
        return Unsubscribe(subscriber - 1);
      case Action::kUnsubscribeLater:
        return Unsubscribe(subscriber + 1);
      case Action::kThrow:
        return Out::kFailure;
      case Action::kThrowNumber:
        return Out::kNumber;
      case Action::kStart:
        return Start();
      case Action::kStop:
        return Stop();
      case Action::kConfigure:
        return Configure();
      case Action::kChange:
        return Change();
      default:
        return ActOnSubscription(action);
    }
  }

  Out ActOnSubscription(Action action) {
    if (action == Action::kNone) return Out::kNone;
    m_stopFails = m_stopFails || action == Action::kStopThatFails;
    m_startFails = m_startFails || action == Action::kStopAndStartThatFails;
    const Out out = Stop();
    return out != Out::kNone || action == Action::kStopThatFails ? out : Start();
  }

  const std::vector<Action> m_actions;
  std::vector<int> m_list;
  std::set<int> m_acted;
  bool m_started = true;
  std::size_t m_groups;
  std::size_t m_regions = m_groups;
  int m_refusals;
  bool m_startFails = false;
  bool m_stopFails = false;
  Calls m_log;
};

}  // namespace tests
