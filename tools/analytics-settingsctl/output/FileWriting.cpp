#include "output/FileWriting.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Failure.h"
#include "input/FileDescriptor.h"
#include "output/Messages.h"

namespace settingsctl {
namespace {

constexpr mode_t kAllPermissions = 07777;
constexpr mode_t kNewFile = 0666;
constexpr auto kAnyOwner = static_cast<uid_t>(-1);
constexpr int kMostLinks = 40;  // as many as the kernel follows
constexpr const char* kUnchanged = ", and nothing was changed";

/// What helps against an error of writing.
const char* Remedy(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
      return "free some space";
    case EFBIG:
      return "raise the limit on the size of files";
    case EISDIR:
      return "name a file in it";
    case ENOENT:
    case ENOTDIR:
      return "make its directory first";
    case ELOOP:
      return "remove the symbolic links that lead to each other";
    case ENXIO:
      return "start the reader of this pipe first";
    default:
      return "allow it, or write elsewhere with -o";
  }
}

[[noreturn]] void Refuse(const std::string& path, const std::string& consequence) {
  const int error = errno;
  throw Failure(path + ": cannot be written" + consequence + ": " + std::strerror(error) + "; " +
                Remedy(error));
}

bool WriteAll(const FileDescriptor& file, const std::string& text) {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t count = write(file.Get(), text.data() + done, text.size() - done);
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) done += static_cast<std::size_t>(count);
  }
  return true;
}

std::string DirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

/// What a symbolic link holds; empty for what is none.
std::string LinkText(const std::string& path) {
  std::string text(PATH_MAX, '\0');
  const ssize_t length = readlink(path.c_str(), text.data(), text.size());
  text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return text;
}

/// The file that a path leads to through symbolic links, whether it exists yet or not.
std::string Target(const std::string& path) {
  std::string target = path;
  for (int links = 0; links <= kMostLinks; ++links) {
    const std::string next = LinkText(target);
    if (next.empty()) return target;
    target = next.front() == '/' ? next : DirectoryOf(target).append("/").append(next);
  }
  errno = ELOOP;
  Refuse(path, kUnchanged);
}

mode_t ModeOfNewFile() {
  const mode_t mask = umask(0);
  umask(mask);
  return kNewFile & ~mask;
}

/// Who may do what with a file; by default it is its writer's.
struct Rights {
  mode_t mode;
  uid_t owner = kAnyOwner;
  gid_t group = static_cast<gid_t>(-1);
};

/// A new file beside the one that it will replace; removed at the end of its scope unless it did.
class Replacement {
 public:
  explicit Replacement(const std::string& target)
      : m_path(DirectoryOf(target) + "/.analytics-settingsctl-XXXXXX"),
        m_file(mkostemp(m_path.data(), O_CLOEXEC)) {}
  ~Replacement() {
    if (m_file.IsOpen() && !m_isInPlace) unlink(m_path.c_str());
  }

  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  bool Write(const std::string& text, const Rights& rights) {
    return m_file.IsOpen() && WriteAll(m_file, text) && TakeOwner(rights) &&
           fchmod(m_file.Get(), rights.mode) == 0 && fsync(m_file.Get()) == 0;
  }

  /// Whether the file is somebody else's than what it was to be.
  bool HasOtherOwner(const Rights& rights) const {
    struct stat state {};
    return rights.owner != kAnyOwner && fstat(m_file.Get(), &state) == 0 &&
           state.st_uid != rights.owner;
  }

  bool TakePlaceOf(const std::string& target) {
    m_isInPlace = std::rename(m_path.c_str(), target.c_str()) == 0;
    return m_isInPlace;
  }

 private:
  /// Only root may give a file away; what anybody else writes is theirs.
  bool TakeOwner(const Rights& rights) const {
    return fchown(m_file.Get(), rights.owner, rights.group) == 0 || errno == EPERM;
  }

  std::string m_path;
  const FileDescriptor m_file;
  bool m_isInPlace = false;
};

/// So that the new name, too, survives a power failure. Not all file systems can; none is worse
/// off than without.
void SyncDirectory(const std::string& target) {
  const FileDescriptor directory(
      open(DirectoryOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory.IsOpen()) fsync(directory.Get());
}

void Replace(const std::string& path, const std::string& text, const Rights& rights) {
  const std::string target = Target(path);
  Replacement replacement(target);
  if (!replacement.Write(text, rights) || !replacement.TakePlaceOf(target)) {
    Refuse(path, kUnchanged);
  }
  SyncDirectory(target);
  if (replacement.HasOtherOwner(rights)) {
    PrintMessage(path + ": is now yours, for only root may give a file to its former owner");
  }
}

void WriteInto(int file, const std::string& path, const std::string& text) {
  const FileDescriptor open(file);
  if (!open.IsOpen() || !WriteAll(open, text)) Refuse(path, "");
}

/// Opens what is no plain file. A pipe that nobody reads is refused rather than waited for.
int OpenSpecial(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
  if (file >= 0) fcntl(file, F_SETFL, O_WRONLY);  // its reader is waited for
  return file;
}

}  // namespace

void WriteFile(const std::string& path, const std::string& text) {
  struct stat state {};
  if (path == "-") return WriteInto(dup(STDOUT_FILENO), "standard output", text);
  if (stat(path.c_str(), &state) != 0) return Replace(path, text, {ModeOfNewFile()});
  if (!S_ISREG(state.st_mode)) return WriteInto(OpenSpecial(path), path, text);
  if (access(path.c_str(), W_OK) != 0) Refuse(path, kUnchanged);
  Replace(path, text, {state.st_mode & kAllPermissions, state.st_uid, state.st_gid});
}

}  // namespace settingsctl
