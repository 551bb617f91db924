#pragma once

#include <memory>
#include <string>

#include <sys/types.h>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

class IChangeCallback;
class TavrelSettingsClient;

/// Watches a store and tells subscribers of its changes, on a thread of its own.
///
/// Threads: any.
class ChangeWatcher {
 public:
  /// From now on no change is missed. Nothing is created, and each thing on the way to the store,
  /// such as its directory, may come and go.
  ///
  /// @param store  the path that names it
  ChangeWatcher(TavrelSettingsClient* source, const std::string& store);

  /// Ends the thread, after a delivery that is in progress. If it is that delivery that destroys
  /// the watcher, the thread ends by itself once the callback has returned. A child of `fork()` has
  /// no such thread, and leaves all that the two share as it is.
  ~ChangeWatcher();

  ChangeWatcher(const ChangeWatcher&) = delete;
  ChangeWatcher& operator=(const ChangeWatcher&) = delete;

  /// @param known  what the callback knows of the groups that match `pattern`
  void Subscribe(IChangeCallback* callback, const std::string& pattern,
                 const core::IniFile::Groups& known);
  void UnSubscribe(const IChangeCallback* callback);

 private:
  struct State;

  static bool Serve(State& state);
  static void Run(const std::shared_ptr<State>& state);

  const pid_t m_process;                 // the one that has the thread
  const std::shared_ptr<State> m_state;  // the thread's too, which may outlive this object
};

}  // namespace settings
}  // namespace tavrel
