#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "host/tavrel-settings/FileDescriptor.h"
#include "host/tavrel-settings/Settling.h"

namespace tavrel {
namespace settings {

/// Notices what happens to a file, and to all directories and links that lead to it: each directory
/// on the way is watched for the name that comes next, so that what does not exist yet is waited
/// for where it will appear. A directory that may be passed but not read cannot be watched and is
/// left out, unless it is the last one that exists.
///
/// Threads: one at a time.
class WatchedWay {
 public:
  /// From now on no change is missed.
  ///
  /// Errors: a `std::system_error` if that is not possible.
  explicit WatchedWay(std::string path);

  /// Has something to read when `Take` may find a change.
  int Descriptor() const { return m_inotify.Get(); }

  /// What has happened since the last time. If that is anything the way is followed anew.
  FileChange Take();

  /// Watches the way as it now leads.
  ///
  /// Errors: links that never end give a `std::system_error`.
  void Follow();

  /// Whether the way could be watched when it was last followed. Changes may be missed otherwise,
  /// until it is followed again.
  bool IsWatched() const { return m_error == 0; }

  /// What the path leads to.
  const std::string& File() const { return m_file; }

 private:
  struct Step {
    int watch;  // of the directory
    std::string directory;
    std::string name;
  };

  struct Event {
    int watch;
    std::uint32_t mask;
    std::string name;
  };

  static bool IsAbout(const Step& step, const Event& event);
  bool IsAboutWay(const Event& event) const;
  bool IsReplacement(const Event& event) const;
  std::vector<Event> TakeEvents() const;
  void AddStep(const std::string& directory, const std::string& name);
  void WatchFile() const;
  void RemoveOtherWatches();

  const std::string m_path;
  const FileDescriptor m_inotify;
  std::string m_file;
  std::vector<Step> m_steps;
  std::set<int> m_watches;  // of the steps; also of previous ones while the way is followed
  int m_error{0};           // of watching the last directory
};

}  // namespace settings
}  // namespace tavrel
