#include "input/Input.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Failure.h"
#include "input/FileDescriptor.h"

namespace settingsctl {
namespace {

constexpr std::size_t kLargest = std::size_t{64} << 20U;

[[noreturn]] void Refuse(const std::string& name, const std::string& why) {
  throw Failure(name + ": " + why);
}

FileDescriptor Open(const std::string& path, const std::string& name) {
  // A pipe that nobody writes to must not be waited for; one that is being written to reads as
  // usual once the flag is off again.
  FileDescriptor file(path == "-" ? dup(STDIN_FILENO)
                                  : open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) {
    const std::string why = std::string("cannot be opened: ") + std::strerror(errno);
    Refuse(name, why + (path == "-" ? "; redirect a file to it" : "; check its path and mode"));
  }
  if (path != "-") fcntl(file.Get(), F_SETFL, O_RDONLY);
  return file;
}

struct stat StateOf(const FileDescriptor& file, const std::string& name) {
  struct stat state {};
  if (fstat(file.Get(), &state) != 0)
    Refuse(name, std::string("cannot be looked at: ") + std::strerror(errno) + "; try again");
  return state;
}

bool IsSame(const struct stat& before, const struct stat& after) {
  return before.st_size == after.st_size && before.st_mtim.tv_sec == after.st_mtim.tv_sec &&
         before.st_mtim.tv_nsec == after.st_mtim.tv_nsec;
}

/// Appends what can be read at once; false at the end of the file.
bool ReadMore(const FileDescriptor& file, Input& input) {
  static std::array<char, 65536> s_block;
  const ssize_t count = read(file.Get(), s_block.data(), s_block.size());
  if (count < 0 && errno == EINTR) return true;
  if (count < 0) {
    Refuse(input.name, std::string("cannot be read: ") + std::strerror(errno) + "; name a copy");
  }
  input.text.append(s_block.data(), static_cast<std::size_t>(count));
  if (input.text.size() > kLargest) {
    Refuse(input.name, "is larger than 64 MiB, which no settings file or profile is; name another");
  }
  return count > 0;
}

/// How far the file had been read when it was opened: standard input may have been read before.
off_t StartOf(const FileDescriptor& file) {
  return std::max<off_t>(lseek(file.Get(), 0, SEEK_CUR), 0);
}

/// A file that goes on growing would else be read for as long as it does.
bool HasGrown(off_t end, const struct stat& before) {
  return S_ISREG(before.st_mode) && before.st_size > 0 && end > before.st_size;
}

/// Where the file could be replaced, half of it old and half of it new would be no file at all.
///
/// @param end  where the file's last byte was read
void RequireUnchanged(const std::string& name, off_t end, const struct stat& before,
                      const struct stat& after) {
  if (!S_ISREG(before.st_mode)) return;
  // A disk's file is as large as it says; the kernel's own files say 0 whatever they hold.
  if (IsSame(before, after) && (before.st_size == end || before.st_size == 0)) return;
  Refuse(name, "changed while it was read; try again");
}

[[noreturn]] void RefuseEmpty(const std::string& name, const struct stat& state) {
  if (S_ISFIFO(state.st_mode)) {
    Refuse(name, "is a pipe that nobody has written to; start its writer first");
  }
  Refuse(name, "is empty; name another, or write something into it");
}

/// A second reading of standard input would find nothing.
void RequireFirstReading(const Input& input) {
  static bool s_isRead = false;
  if (input.path != "-") return;
  if (s_isRead) Refuse(input.name, "is named twice but can be read only once; name it once");
  s_isRead = true;
}

}  // namespace

Input ReadInput(const std::string& path) {
  Input input{path, path == "-" ? "standard input" : path, {}};
  RequireFirstReading(input);
  const FileDescriptor file = Open(path, input.name);
  const struct stat before = StateOf(file, input.name);
  const off_t start = StartOf(file);
  if (S_ISDIR(before.st_mode)) Refuse(input.name, "is a directory; name a file in it");
  const auto end = [&] { return start + static_cast<off_t>(input.text.size()); };
  while (ReadMore(file, input) && !HasGrown(end(), before)) {
  }
  RequireUnchanged(input.name, end(), before, StateOf(file, input.name));
  if (input.text.empty()) RefuseEmpty(input.name, before);
  return input;
}

}  // namespace settingsctl
