#pragma once

#include <atomic>
#include <string>

#include "host/tavrel-settings/FileDescriptor.h"
#include "host/tavrel-settings/FileState.h"
#include "host/tavrel-settings/Settling.h"
#include "host/tavrel-settings/WatchedWay.h"

namespace tavrel {
namespace settings {

/// Waits for changes of a file, in whatever way they are made: written in place, replaced by
/// another file, removed, created, made readable or reached by another way. Nothing is created for
/// that.
///
/// Each time `Wait` gives true the file is read; then `HasRead` or `HasFailed` may be called.
///
/// Threads: one thread waits and reads, any thread may wake or stop it.
class FileWatch {
 public:
  /// From now on no change is missed.
  ///
  /// @param path  absolute
  explicit FileWatch(const std::string& path);

  /// Waits until the file has changed and settled, or a read has to be tried again, or `Wake` was
  /// called, since the last time.
  ///
  /// @return false once `Stop` was called
  ///
  /// Errors: as `WatchedWay::Follow`.
  bool Wait();

  /// The file was read.
  ///
  /// @return whether what was read may be used. Otherwise the file has changed in the meantime, so
  ///         that this may be half of it, and the next `Wait` waits for it to settle.
  bool HasRead();

  /// The file could not be read; `Wait` gives it another try after a while.
  void HasFailed();

  void Wake();
  void Stop();

 private:
  bool IsReady();
  void Sleep();
  FileChange Look();
  bool IsThere() const { return !m_seen.IsMissing(); }

  WatchedWay m_way;
  FileState m_seen;
  Settling m_settling;
  const FileDescriptor m_wakeUps;  // an eventfd
  std::atomic<bool> m_isStopped;
};

}  // namespace settings
}  // namespace tavrel
