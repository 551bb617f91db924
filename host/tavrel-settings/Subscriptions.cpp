#include "host/tavrel-settings/Subscriptions.h"

#include <algorithm>
#include <utility>

#include <tavrel/settings/IChangeCallback.h>

#include "host/tavrel-settings/Comparison.h"

namespace tavrel {
namespace settings {

using core::IniFile;

struct Subscriptions::Subscription {
  IChangeCallback* callback;  // under m_mutex; null once the subscription has ended
  const std::string pattern;

  // The rest is touched by the thread that delivers, only.
  IniFile::Groups known;
  IniFile late;  // what a delivery told the callback after the end of its own subscription
};

void Subscriptions::Add(IChangeCallback* callback, const std::string& pattern,
                        const IniFile::Groups& known) {
  const auto subscription =
      std::make_shared<Subscription>(Subscription{callback, pattern, known, IniFile()});
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_list.push_back(subscription);
}

void Subscriptions::Remove(const IChangeCallback* callback) {
  End([=](const Subscription& subscription) { return subscription.callback == callback; });
}

void Subscriptions::Clear() {
  End([](const Subscription&) { return true; });
}

Subscriptions::List Subscriptions::Current() const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return m_list;
}

void Subscriptions::DeliverChanges(const List& subscriptions, const IniFile& settings) const {
  for (const auto& subscription : subscriptions) Deliver(*subscription, settings.AllGroups());
}

IChangeCallback* Subscriptions::CallbackOf(const Subscription& subscription) const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return subscription.callback;
}

IniFile Subscriptions::TakeChanges(Subscription& subscription, const IniFile::Groups& groups) {
  IniFile overwritten = Changes(IniFile::Groups(), subscription.known);
  overwritten.MergeSettings(subscription.late);
  IniFile::Groups now = Matching(subscription.pattern, groups);
  // The late changes may have been merged before or after the callback got what it knows, so both
  // outcomes are led to the present state.
  IniFile changes = Changes(subscription.known, now);
  changes.MergeSettings(Changes(Matching(subscription.pattern, overwritten.AllGroups()), now));
  // Only now, so that a failure above loses no change.
  subscription.known = std::move(now);
  subscription.late = IniFile();
  return changes;
}

void Subscriptions::Deliver(Subscription& subscription, const IniFile::Groups& groups) const {
  const IniFile changes = TakeChanges(subscription, groups);
  if (IsEmpty(changes)) return;
  IChangeCallback* const callback = CallbackOf(subscription);
  if (!callback) return;
  try {
    callback->OnSettingsChanged(m_source, changes);
  } catch (...) {  // protects the thread, and the callbacks that come next
  }
  if (!CallbackOf(subscription)) NoteLateDelivery(callback, changes);
}

void Subscriptions::NoteLateDelivery(const IChangeCallback* callback,
                                     const IniFile& changes) const {
  for (const auto& subscription : Current())
    if (CallbackOf(*subscription) == callback) subscription->late = changes;
}

template <typename Condition>
void Subscriptions::End(const Condition& isMeant) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  for (const auto& subscription : m_list)
    if (isMeant(*subscription)) subscription->callback = nullptr;
  m_list.erase(std::remove_if(m_list.begin(), m_list.end(),
                              [](const auto& subscription) { return !subscription->callback; }),
               m_list.end());
}

}  // namespace settings
}  // namespace tavrel
