#pragma once

#include <atomic>
#include <string>

#include "host/tavrel-settings/FileDescriptor.h"

namespace tavrel {
namespace settings {

/// Waits for changes of a file, in whatever way they are made: written in place, replaced by
/// another file, removed, created or made readable. The directory is watched for that, so it has to
/// stay.
///
/// Threads: one thread waits, any thread may wake or stop it.
class FileWatch {
 public:
  /// From now on no change is missed.
  ///
  /// @param directory  holds the file and exists
  FileWatch(const std::string& directory, std::string file);

  /// Waits until the file may have changed, or `Wake` was called, since the last time.
  ///
  /// @return false once `Stop` was called
  bool Wait();

  void Wake();
  void Stop();

 private:
  bool HasChange() const;
  bool WasWoken() const;

  const std::string m_file;
  const FileDescriptor m_inotify;
  const FileDescriptor m_wakeUps;  // an eventfd
  std::atomic<bool> m_isStopped;
};

}  // namespace settings
}  // namespace tavrel
