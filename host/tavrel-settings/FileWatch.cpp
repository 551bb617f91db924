#include "host/tavrel-settings/FileWatch.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>

namespace tavrel {
namespace settings {
namespace {

using Clock = Settling::Clock;

/// Milliseconds until a time, for `poll`; never too few.
int Until(Settling::Time time) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(time - Clock::now());
  return static_cast<int>(std::max<long long>(0, left.count() + 1));
}

}  // namespace

FileWatch::FileWatch(const std::string& path)
    : m_way(path),
      m_seen(m_way.File()),
      m_wakeUps(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), "cannot watch", path),
      m_isStopped(false) {}

bool FileWatch::Wait() {
  while (!m_isStopped) {
    if (IsReady()) return true;
    Sleep();
  }
  return false;
}

bool FileWatch::HasRead() {
  const FileChange change = Look();
  return m_settling.HasRead(change, IsThere(), Clock::now());
}

void FileWatch::HasFailed() { m_settling.Fail(Clock::now()); }

void FileWatch::Wake() { eventfd_write(m_wakeUps.Get(), 1); }

void FileWatch::Stop() {
  m_isStopped = true;
  Wake();
}

/// Whether the file is to be read now.
bool FileWatch::IsReady() {
  if (!m_settling.IsPending() || Clock::now() < m_settling.Due()) return false;
  m_way.Follow();  // the last time may have failed
  const FileChange change = Look();
  const bool isReady = m_settling.MayRead(change, IsThere(), Clock::now());
  if (isReady && !m_way.IsWatched()) HasFailed();  // what may go unnoticed is looked for
  return isReady;
}

/// Waits until something happens or a read is due.
void FileWatch::Sleep() {
  pollfd sources[] = {{m_way.Descriptor(), POLLIN, 0}, {m_wakeUps.Get(), POLLIN, 0}};
  // An error, such as an interruption by a signal, finds nothing to read.
  poll(sources, 2, m_settling.IsPending() ? Until(m_settling.Due()) : -1);
  const FileChange change = Look();
  if (change != FileChange::kNone) m_settling.Note(change, IsThere(), Clock::now());
  eventfd_t count = 0;
  if (eventfd_read(m_wakeUps.Get(), &count) == 0) m_settling.Ask(IsThere(), Clock::now());
}

/// Finds out how the file has changed since it was last looked at.
FileChange FileWatch::Look() {
  const FileChange change = m_way.Take();
  const FileState before = std::exchange(m_seen, FileState(m_way.File()));
  return change == FileChange::kNone && before != m_seen ? FileChange::kOther : change;
}

}  // namespace settings
}  // namespace tavrel
