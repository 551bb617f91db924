#include "host/tavrel-settings/ChangeWatcher.h"

#include <utility>

#include "host/tavrel-settings/FileWatch.h"
#include "host/tavrel-settings/Subscriptions.h"

namespace tavrel {
namespace settings {

struct ChangeWatcher::State {
  State(TavrelSettingsClient* source, Store watched)
      : store(std::move(watched)),
        watch(store.CreatedDirectory(), store.FileName()),
        subscriptions(source) {}

  const Store store;
  FileWatch watch;
  Subscriptions subscriptions;
};

ChangeWatcher::ChangeWatcher(TavrelSettingsClient* source, const Store& store)
    : m_state(std::make_shared<State>(source, store)), m_thread(&ChangeWatcher::Run, m_state) {}

ChangeWatcher::~ChangeWatcher() {
  m_state->subscriptions.Clear();
  m_state->watch.Stop();
  if (m_thread.get_id() == std::this_thread::get_id())
    m_thread.detach();
  else
    m_thread.join();
}

void ChangeWatcher::Subscribe(IChangeCallback* callback, const std::string& pattern,
                              const core::IniFile::Groups& known) {
  m_state->subscriptions.Add(callback, pattern, known);
  m_state->watch.Wake();  // the store may have changed since, or a late delivery need correction
}

void ChangeWatcher::UnSubscribe(const IChangeCallback* callback) {
  m_state->subscriptions.Remove(callback);
}

void ChangeWatcher::Run(const std::shared_ptr<State>& state) {
  while (state->watch.Wait()) {
    try {
      state->subscriptions.DeliverChanges(state->store);
    } catch (...) {  // protects the process: the next change may make the store readable again
    }
  }
}

}  // namespace settings
}  // namespace tavrel
