#pragma once

#include <memory>
#include <string>
#include <thread>

#include <tavrel/core/IniFile.h>

#include "host/tavrel-settings/Store.h"

namespace tavrel {
namespace settings {

class IChangeCallback;
class TavrelSettingsClient;

/// Watches a store and tells subscribers of its changes, on a thread of its own.
///
/// Threads: any.
class ChangeWatcher {
 public:
  /// From now on no change is missed. Creates the directory of the store, unless it is there.
  ChangeWatcher(TavrelSettingsClient* source, const Store& store);

  /// Ends the thread, after a delivery that is in progress. If it is that delivery that destroys
  /// the watcher, the thread ends by itself once the callback has returned.
  ~ChangeWatcher();

  ChangeWatcher(const ChangeWatcher&) = delete;
  ChangeWatcher& operator=(const ChangeWatcher&) = delete;

  /// @param known  what the callback knows of the groups that match `pattern`
  void Subscribe(IChangeCallback* callback, const std::string& pattern,
                 const core::IniFile::Groups& known);
  void UnSubscribe(const IChangeCallback* callback);

 private:
  struct State;

  static void Run(const std::shared_ptr<State>& state);

  const std::shared_ptr<State> m_state;  // the thread's too, which may outlive this object
  std::thread m_thread;
};

}  // namespace settings
}  // namespace tavrel
