#include "host/tavrel-settings/WriteLock.h"

#include <cerrno>
#include <chrono>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/Replacement.h"

namespace tavrel {
namespace settings {
namespace {

using files::FileDescriptor;
using std::chrono::steady_clock;

constexpr auto kLongestWait = std::chrono::seconds(5);
constexpr auto kPause = std::chrono::milliseconds(1);
constexpr int kOpening = O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;  // no pipe is waited for
constexpr mode_t kPermissions = 0777;

struct LockFile {
  FileDescriptor descriptor;
  bool isNew;
};

struct stat StateOf(const FileDescriptor& file, const std::string& path) {
  struct stat state = {};
  files::Checked(fstat(file.Get(), &state), "cannot lock", path);
  return state;
}

/// Whoever may write may open the lock, and nobody else; its owner, who can allow it to himself,
/// too.
mode_t LockPermissions(mode_t store) {
  const mode_t writing = (store & 0222U) | 0200U;
  return writing | writing << 1U;
}

/// Whether a lock is open to others than its store is, or is somebody else's.
bool IsOpenToOthers(const struct stat& lock, const struct stat& store) {
  return lock.st_uid != store.st_uid || lock.st_gid != store.st_gid ||
         (lock.st_mode & kPermissions & ~LockPermissions(store.st_mode)) != 0;
}

/// Gives a new lock the rights that go with its store or, without one, with what its maker makes.
/// Where that cannot be done the store cannot be written either; the lock would keep out its owner.
void LimitRights(const FileDescriptor& lock, const std::string& path, const std::string& store) {
  struct stat state = {};
  if (stat(store.c_str(), &state) != 0) state = StateOf(lock, path);
  try {
    files::GiveTo(state.st_uid, state.st_gid, lock, store);
  } catch (const files::OwnershipError&) {
    unlink(path.c_str());
    throw;
  }
  fchmod(lock.Get(), LockPermissions(state.st_mode));
}

/// Removes a lock that the owner of its store may not open, if that is who asks: its maker was
/// killed before it gave the lock away, or the store was given away later. Who holds it notices.
bool RemoveIfShutToOwner(const std::string& path, const std::string& store) {
  struct stat state = {};
  return stat(store.c_str(), &state) == 0 && state.st_uid == geteuid() && unlink(path.c_str()) == 0;
}

/// Opens the lock, or makes it. At no moment may a new one be opened by others than those who may
/// write the store or, without one, who could write it once it is made.
LockFile Opened(const std::string& path, const std::string& store) {
  for (;;) {
    const int found = open(path.c_str(), kOpening);
    if (found == -1 && errno == EACCES) {
      if (RemoveIfShutToOwner(path, store)) continue;
      errno = EACCES;
    }
    if (found != -1 || errno != ENOENT) return {{found, "cannot open", path}, false};
    const bool hasStore = access(store.c_str(), F_OK) == 0;
    const int made = open(path.c_str(), kOpening | O_CREAT | O_EXCL, hasStore ? 0600 : 0222);
    if (made == -1 && errno == EEXIST) continue;  // somebody else was faster
    LockFile lock = {{made, "cannot create", path}, true};
    LimitRights(lock.descriptor, path, store);
    return lock;
  }
}

void WaitFor(const FileDescriptor& lock, const std::string& path, steady_clock::time_point end) {
  while (flock(lock.Get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) files::ThrowErrno("cannot lock", path);
    if (steady_clock::now() > end)
      throw std::runtime_error("cannot lock " + path +
                               ": another program has held it for 5 seconds");
    std::this_thread::sleep_for(kPause);
  }
}

bool IsAt(const std::string& path, const FileDescriptor& file) {
  struct stat found = {};
  const struct stat state = StateOf(file, path);
  return lstat(path.c_str(), &found) == 0 && found.st_dev == state.st_dev &&
         found.st_ino == state.st_ino;
}

/// Removes a lock that is held but that others may open too; its waiters notice.
///
/// @return whether it was removed, so that a new one is to be made
bool RemoveIfOpenToOthers(const FileDescriptor& lock, const std::string& path,
                          const std::string& store) {
  struct stat state = {};
  return stat(store.c_str(), &state) == 0 && IsOpenToOthers(StateOf(lock, path), state) &&
         unlink(path.c_str()) == 0;
}

FileDescriptor Locked(const std::string& path, const std::string& store) {
  const auto end = steady_clock::now() + kLongestWait;
  for (;;) {
    LockFile lock = Opened(path, store);
    WaitFor(lock.descriptor, path, end);
    if (!IsAt(path, lock.descriptor)) continue;
    if (lock.isNew || !RemoveIfOpenToOthers(lock.descriptor, path, store))
      return std::move(lock.descriptor);
  }
}

}  // namespace

WriteLock::WriteLock(const std::string& store)
    : m_path(store + ".lock"), m_file(Locked(m_path, store)) {}

WriteLock::~WriteLock() {
  // Not left to closing the file: a process that was forked meanwhile has it open as well.
  flock(m_file.Get(), LOCK_UN);
}

bool WriteLock::IsInForce() const { return IsAt(m_path, m_file); }

}  // namespace settings
}  // namespace tavrel
