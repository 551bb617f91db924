#include "host/tavrel-settings/WatchedWay.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <utility>

#include <sys/inotify.h>

#include "host/tavrel-settings/StorePath.h"

namespace tavrel {
namespace settings {
namespace {

constexpr std::uint32_t kDirectoryEvents =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ONLYDIR;

/// Only asked for where the file is: elsewhere, such as in /tmp, others may write all the time.
constexpr std::uint32_t kFileEvents = IN_ATTRIB | IN_CLOSE_WRITE | IN_MODIFY;

}  // namespace

WatchedWay::WatchedWay(std::string path)
    : m_path(std::move(path)),
      m_inotify(inotify_init1(IN_CLOEXEC | IN_NONBLOCK), "cannot watch", m_path) {
  Follow();
  errno = m_error;
  if (!IsWatched()) ThrowErrno("cannot watch", m_file);
}

FileChange WatchedWay::Take() {
  const std::vector<Event> events = TakeEvents();
  if (events.empty()) return FileChange::kNone;
  Follow();
  const bool isReplaced = std::all_of(events.begin(), events.end(),
                                      [this](const Event& event) { return IsReplacement(event); });
  return isReplaced ? FileChange::kReplaced : FileChange::kOther;
}

void WatchedWay::Follow() {
  m_steps.clear();
  m_error = 0;
  m_file = FollowedPath(m_path, [this](const std::string& directory, const std::string& name) {
    AddStep(directory, name);
  });
  WatchFile();
  RemoveOtherWatches();
}

bool WatchedWay::IsAbout(const Step& step, const Event& event) {
  const bool isWhole = (event.mask & IN_IGNORED) != 0;  // the directory is gone
  return event.watch == step.watch && (isWhole || event.name == step.name);
}

bool WatchedWay::IsAboutWay(const Event& event) const {
  const bool areLost = (event.mask & IN_Q_OVERFLOW) != 0;
  return areLost || std::any_of(m_steps.begin(), m_steps.end(),
                                [&](const Step& step) { return IsAbout(step, event); });
}

bool WatchedWay::IsReplacement(const Event& event) const {
  return (event.mask & IN_MOVED_TO) != 0 && !m_steps.empty() && IsAbout(m_steps.back(), event);
}

/// Takes all events there are, and gives those about the way.
std::vector<WatchedWay::Event> WatchedWay::TakeEvents() const {
  std::vector<Event> taken;
  alignas(inotify_event) char events[4096];
  for (;;) {
    const ssize_t size = read(m_inotify.Get(), events, sizeof events);
    if (size <= 0) return taken;
    for (ssize_t at = 0; at < size;) {
      const auto& event = *reinterpret_cast<const inotify_event*>(events + at);
      Event next{event.wd, event.mask, event.len > 0 ? event.name : ""};
      if (IsAboutWay(next)) taken.push_back(std::move(next));
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
  }
}

/// Watches the directory before the name is looked up there, so that nothing is missed in between.
/// What does not exist is noticed where it is looked up.
void WatchedWay::AddStep(const std::string& directory, const std::string& name) {
  const int watch =
      inotify_add_watch(m_inotify.Get(), directory.c_str(), kDirectoryEvents | IN_MASK_ADD);
  if (watch == -1 && (errno == ENOENT || errno == ENOTDIR)) return;
  m_error = watch == -1 ? errno : 0;
  if (watch == -1) return;
  m_watches.insert(watch);
  m_steps.push_back({watch, directory, name});
}

/// Watches the file in its directory, if the way leads that far.
void WatchedWay::WatchFile() const {
  const std::string directory = m_file.substr(0, std::max<std::size_t>(1, m_file.rfind('/')));
  if (!m_steps.empty() && m_steps.back().directory == directory)
    inotify_add_watch(m_inotify.Get(), directory.c_str(), kDirectoryEvents | kFileEvents);
}

void WatchedWay::RemoveOtherWatches() {
  std::set<int> stale;
  stale.swap(m_watches);
  for (const Step& step : m_steps) {
    m_watches.insert(step.watch);
    stale.erase(step.watch);
  }
  for (const int watch : stale) inotify_rm_watch(m_inotify.Get(), watch);
}

}  // namespace settings
}  // namespace tavrel
