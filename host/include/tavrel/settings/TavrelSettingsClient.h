// SPDX-FileCopyrightText: 2026 the analytics-settings authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace settings {

class IChangeCallback;

/// A client of the platform's settings service.
///
/// The service of a workstation is one INI file, shared by any number of processes: the file that
/// the environment variable `TAVREL_SETTINGS` names, else `tavrel-settings.ini` in
/// `$XDG_STATE_HOME` or, without that, in `$HOME/.local/state`. A relative name starts at the
/// directory that the process was in when this library was loaded. A file that does not exist is a
/// store without settings.
///
/// Patterns: a pattern that ends in "*" matches each group whose name starts with what precedes it;
/// any other pattern matches the group of that name.
///
/// Errors: a store that cannot be read gives a `std::runtime_error` whose message names the file
/// and the reason, a malformed line one whose message starts with "FILE:LINE: ". On the client's
/// thread what is known stays meanwhile: a store that cannot be read is tried again every second, a
/// malformed one is read again when it changes.
///
/// Threads: any thread may call. A client with subscriptions watches the store on a thread of its
/// own and delivers changes there, one after the other, without holding a lock of the client.
class TavrelSettingsClient {
 public:
  /// What a client is opened for. On a workstation both modes do the same.
  enum OperationMode { kObserve = 0, kQuery = 1 };

  explicit TavrelSettingsClient(OperationMode mode);

  /// Ends the client's thread, after a delivery that is in progress. A callback may destroy its
  /// client: the thread then ends once that callback has returned.
  ~TavrelSettingsClient();

  TavrelSettingsClient(const TavrelSettingsClient&) = delete;
  TavrelSettingsClient& operator=(const TavrelSettingsClient&) = delete;

  /// Replaces what `out` held by every group that matches `pattern`, as the store now holds it.
  /// Afterwards `out` marks nothing as removed.
  void GetSettings(const std::string& pattern, core::IniFile& out) const;

  /// From now on reports each change of groups that match `pattern` to `callback`: what differs
  /// from what `GetSettings` last gave for that pattern or, without that, from the store as it is
  /// now. Links and directories on the way to the store may change as well; nothing is created.
  ///
  /// A file that is moved into the store's place is read at once. One that is written in place is
  /// read once it has been left alone for 0.1 s, or after 2 s; one that is gone counts as removed
  /// after 0.3 s. Changes that follow each other closely may be reported as one.
  ///
  /// @param callback  what it throws is swallowed
  void Subscribe(IChangeCallback* callback, const std::string& pattern);

  /// Ends all subscriptions of `callback`. No delivery starts after this, but one that is in
  /// progress is not waited for: the caller may hold the lock that it waits for. So `callback` has
  /// to live until such a delivery has ended, at the latest with the client. If `callback` is
  /// subscribed again before that, a further delivery corrects what the late one may overwrite.
  void UnSubscribe(IChangeCallback* callback);

 private:
  class Impl;
  const std::unique_ptr<Impl> m_impl;
};

}  // namespace settings
}  // namespace tavrel
