#include "host/tavrel-settings/ChangeWatcher.h"

#include <thread>
#include <utility>

#include <unistd.h>

#include "host/tavrel-settings/FileWatch.h"
#include "host/tavrel-settings/Store.h"
#include "host/tavrel-settings/StoreReading.h"
#include "host/tavrel-settings/Subscriptions.h"

namespace tavrel {
namespace settings {

struct ChangeWatcher::State {
  State(TavrelSettingsClient* source, std::string name)
      : store(std::move(name)), watch(store), subscriptions(source) {}

  const std::string store;  // its name, which may lead elsewhere each time
  FileWatch watch;
  Subscriptions subscriptions;
  std::thread thread;
};

ChangeWatcher::ChangeWatcher(TavrelSettingsClient* source, const std::string& store)
    : m_process(getpid()), m_state(std::make_shared<State>(source, store)) {
  m_state->thread = std::thread(&ChangeWatcher::Run, m_state);
}

ChangeWatcher::~ChangeWatcher() {
  if (getpid() != m_process) return;
  m_state->subscriptions.Clear();
  m_state->watch.Stop();
  if (m_state->thread.get_id() == std::this_thread::get_id())
    m_state->thread.detach();
  else
    m_state->thread.join();
}

void ChangeWatcher::Subscribe(IChangeCallback* callback, const std::string& pattern,
                              const core::IniFile::Groups& known) {
  m_state->subscriptions.Add(callback, pattern, known);
  m_state->watch.Wake();  // the store may have changed since, or a late delivery need correction
}

void ChangeWatcher::UnSubscribe(const IChangeCallback* callback) {
  m_state->subscriptions.Remove(callback);
}

/// Waits for a change and delivers it.
///
/// @return false once the watch was stopped
bool ChangeWatcher::Serve(State& state) {
  if (!state.watch.Wait()) return false;
  // In this order: what a subscription knows is never newer than what it is compared with.
  const Subscriptions::List current = state.subscriptions.Current();
  const core::IniFile settings = Store(state.store).Read();
  if (state.watch.HasRead()) state.subscriptions.DeliverChanges(current, settings);
  return true;
}

void ChangeWatcher::Run(const std::shared_ptr<State>& state) {
  for (bool goesOn = true; goesOn;) {
    try {
      goesOn = Serve(*state);
    } catch (const MalformedStore&) {  // what is known stays until the file changes
    } catch (...) {                    // protects the process
      state->watch.HasFailed();
    }
  }
}

}  // namespace settings
}  // namespace tavrel
