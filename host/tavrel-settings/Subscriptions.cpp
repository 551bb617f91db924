#include "host/tavrel-settings/Subscriptions.h"

#include <algorithm>

#include <tavrel/settings/IChangeCallback.h>

#include "host/tavrel-settings/Comparison.h"
#include "host/tavrel-settings/Store.h"

namespace tavrel {
namespace settings {

using core::IniFile;

struct Subscriptions::Subscription {
  IChangeCallback* callback;  // under m_mutex; null once the subscription has ended
  const std::string pattern;
  IniFile::Groups known;  // touched by the thread that delivers, only
};

void Subscriptions::Add(IChangeCallback* callback, const std::string& pattern,
                        const IniFile::Groups& known) {
  const auto subscription = std::make_shared<Subscription>(Subscription{callback, pattern, known});
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_list.push_back(subscription);
}

void Subscriptions::Remove(const IChangeCallback* callback) {
  End([=](const Subscription& subscription) { return subscription.callback == callback; });
}

void Subscriptions::Clear() {
  End([](const Subscription&) { return true; });
}

void Subscriptions::DeliverChanges(const Store& store) {
  // In this order: what a subscription knows is never newer than what it is compared with.
  const List current = Current();
  const IniFile settings = store.Read();
  for (const auto& subscription : current) Deliver(*subscription, settings.AllGroups());
}

Subscriptions::List Subscriptions::Current() const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return m_list;
}

IChangeCallback* Subscriptions::CallbackOf(const Subscription& subscription) const {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return subscription.callback;
}

void Subscriptions::Deliver(Subscription& subscription, const IniFile::Groups& groups) const {
  IniFile::Groups now = Matching(subscription.pattern, groups);
  const IniFile changes = Changes(subscription.known, now);
  if (IsEmpty(changes)) return;
  subscription.known.swap(now);
  IChangeCallback* const callback = CallbackOf(subscription);
  if (!callback) return;
  try {
    callback->OnSettingsChanged(m_source, changes);
  } catch (...) {  // protects the thread, and the callbacks that come next
  }
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
