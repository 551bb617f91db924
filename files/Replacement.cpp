#include "files/Replacement.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <linux/limits.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "files/AbandonedFiles.h"
#include "files/LinkTarget.h"

namespace files {
namespace {

constexpr const char* kCannotWrite = "cannot write";
constexpr const char* kAccessList = "system.posix_acl_access";
constexpr mode_t kPermissions = 0777;
constexpr mode_t kAnyonesWriting = 0222;

[[noreturn]] void Refuse(int error, const std::string& path) {
  errno = error;
  ThrowErrno(kCannotWrite, path);
}

/// Different each time in this process; another process' names have another number before it.
std::string NewPath(const std::string& path) {
  static std::atomic<unsigned> s_count(0);
  return ReplacementPrefix(path) + std::to_string(getpid()) + "-" + std::to_string(s_count++);
}

void WriteAll(const FileDescriptor& file, const std::string& text, const std::string& path) {
  for (std::size_t written = 0; written < text.size();) {
    const ssize_t count = write(file.Get(), text.data() + written, text.size() - written);
    if (count >= 0) written += static_cast<std::size_t>(count);
    if (count < 0 && errno != EINTR) ThrowErrno(kCannotWrite, path);
  }
}

/// Has a file on the disk. Where its file system cannot promise that, it is not asked for.
void Sync(const FileDescriptor& file, const std::string& path) {
  if (fsync(file.Get()) != 0 && errno != EINVAL) ThrowErrno(kCannotWrite, path);
}

/// So that the new name, too, survives a power failure. Where that cannot be had the file is
/// replaced all the same: to report that as a failure would be wrong.
void SyncDirectoryOf(const std::string& path) {
  const int directory = open(DirectoryOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (directory == -1) return;
  fsync(directory);
  close(directory);
}

}  // namespace

void GiveTo(uid_t owner, gid_t group, const FileDescriptor& file, const std::string& path) {
  struct stat made = {};
  Checked(fstat(file.Get(), &made), kCannotWrite, path);
  const bool isSame = made.st_uid == owner && made.st_gid == group;
  if (isSame || fchown(file.Get(), owner, group) == 0) return;
  throw OwnershipError("cannot write " + path +
                       ": its owner or group would change; write it as its owner or as root");
}

Replacement::Replacement(std::string path)
    : m_path(std::move(path)), m_old(RightsOf(m_path)), m_file(MakeFile()) {}

Replacement::~Replacement() {
  if (!m_newPath.empty()) unlink(m_newPath.c_str());
}

void Replacement::Write(const std::string& text) {
  if (m_old.areThere) TakeRights();
  WriteAll(m_file, text, m_path);
  Sync(m_file, m_path);
}

void Replacement::TakePlace() {
  Checked(std::rename(m_newPath.c_str(), m_path.c_str()), kCannotWrite, m_path);
  m_newPath.clear();  // a process elsewhere, with the same number, may have that name from now on
  SyncDirectoryOf(m_path);
}

Replacement::Rights Replacement::RightsOf(const std::string& path) {
  struct stat old = {};
  if (lstat(path.c_str(), &old) != 0) {
    if (errno != ENOENT) ThrowErrno(kCannotWrite, path);
    return {};
  }
  if (!S_ISREG(old.st_mode)) Refuse(S_ISDIR(old.st_mode) ? EISDIR : EINVAL, path);
  if ((old.st_mode & kAnyonesWriting) == 0) Refuse(EACCES, path);
  Checked(faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS), kCannotWrite, path);
  return {true, old.st_uid, old.st_gid, old.st_mode & kPermissions};
}

/// Nobody else may open what is to have the rights of an old file before it has them.
FileDescriptor Replacement::MakeFile() {
  int file = -1;
  do {
    m_newPath = NewPath(m_path);
    file = open(m_newPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                m_old.areThere ? 0600 : 0666);
  } while (file == -1 && errno == EEXIST);
  return {file, kCannotWrite, m_path};
}

void Replacement::TakeRights() const {
  GiveTo(m_old.owner, m_old.group, m_file, m_path);
  Checked(fchmod(m_file.Get(), m_old.permissions), kCannotWrite, m_path);
  TakeAccessList();
}

/// Without the old file's list its permissions alone would mean other rights; and the directory may
/// have given the new file one that the old file has not.
void Replacement::TakeAccessList() const {
  std::string list(XATTR_SIZE_MAX, '\0');
  const ssize_t size = getxattr(m_path.c_str(), kAccessList, &list.front(), list.size());
  if (size <= 0) {
    fremovexattr(m_file.Get(), kAccessList);
    return;
  }
  Checked(fsetxattr(m_file.Get(), kAccessList, list.data(), static_cast<std::size_t>(size), 0),
          kCannotWrite, m_path);
}

}  // namespace files
