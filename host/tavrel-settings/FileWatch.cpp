#include "host/tavrel-settings/FileWatch.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>

namespace tavrel {
namespace settings {
namespace {

constexpr std::uint32_t kEvents =
    IN_ATTRIB | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ONLYDIR;

/// Whether an event is about `file`, or says that events were lost.
bool IsAbout(const std::string& file, const inotify_event& event) {
  return (event.mask & IN_Q_OVERFLOW) != 0 || (event.len > 0 && file == event.name);
}

}  // namespace

FileWatch::FileWatch(const std::string& directory, std::string file)
    : m_file(std::move(file)),
      m_inotify(inotify_init1(IN_CLOEXEC | IN_NONBLOCK), "cannot watch", directory),
      m_wakeUps(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), "cannot watch", directory),
      m_isStopped(false) {
  Checked(inotify_add_watch(m_inotify.Get(), directory.c_str(), kEvents), "cannot watch",
          directory);
}

bool FileWatch::Wait() {
  while (!m_isStopped) {
    pollfd sources[] = {{m_inotify.Get(), POLLIN, 0}, {m_wakeUps.Get(), POLLIN, 0}};
    poll(sources, 2, -1);  // an error, such as an interruption by a signal, finds nothing to read
    const bool wasWoken = WasWoken();
    const bool hasChange = HasChange();
    if (!m_isStopped && (wasWoken || hasChange)) return true;
  }
  return false;
}

void FileWatch::Wake() { eventfd_write(m_wakeUps.Get(), 1); }

void FileWatch::Stop() {
  m_isStopped = true;
  Wake();
}

/// Takes all events there are.
bool FileWatch::HasChange() const {
  bool hasChange = false;
  alignas(inotify_event) char events[4096];
  for (;;) {
    const ssize_t size = read(m_inotify.Get(), events, sizeof events);
    if (size <= 0) return hasChange;
    for (ssize_t at = 0; at < size;) {
      const auto& event = *reinterpret_cast<const inotify_event*>(events + at);
      hasChange = hasChange || IsAbout(m_file, event);
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
  }
}

/// Takes all wake-ups there are.
bool FileWatch::WasWoken() const {
  eventfd_t count = 0;
  return eventfd_read(m_wakeUps.Get(), &count) == 0;
}

}  // namespace settings
}  // namespace tavrel
