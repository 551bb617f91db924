#include "input/Input.h"

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
  if (!file.IsOpen()) Refuse(name, std::string("cannot be opened: ") + std::strerror(errno));
  if (path != "-") fcntl(file.Get(), F_SETFL, O_RDONLY);
  return file;
}

struct stat StateOf(const FileDescriptor& file, const std::string& name) {
  struct stat state {};
  if (fstat(file.Get(), &state) != 0) Refuse(name, "cannot be looked at");
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
  if (count < 0) Refuse(input.name, std::string("cannot be read: ") + std::strerror(errno));
  input.text.append(s_block.data(), static_cast<std::size_t>(count));
  if (input.text.size() > kLargest) {
    Refuse(input.name, "is larger than 64 MiB, which no settings file or profile is");
  }
  return count > 0;
}

/// A file that goes on growing would else be read for as long as it does.
bool HasGrown(const Input& input, const struct stat& before) {
  const auto size = static_cast<off_t>(input.text.size());
  return S_ISREG(before.st_mode) && before.st_size > 0 && size > before.st_size;
}

/// Where the file could be replaced, half of it old and half of it new would be no file at all.
void RequireUnchanged(const Input& input, const struct stat& before, const struct stat& after) {
  if (!S_ISREG(before.st_mode)) return;
  // A disk's file as large as it says; the kernel's own files say 0 whatever they hold.
  const auto size = static_cast<off_t>(input.text.size());
  if (IsSame(before, after) && (before.st_size == size || before.st_size == 0)) return;
  Refuse(input.name, "changed while it was read; try again");
}

}  // namespace

Input ReadInput(const std::string& path) {
  Input input{path, path == "-" ? "standard input" : path, {}};
  const FileDescriptor file = Open(path, input.name);
  const struct stat before = StateOf(file, input.name);
  if (S_ISDIR(before.st_mode)) Refuse(input.name, "is a directory; name a file in it");
  while (ReadMore(file, input) && !HasGrown(input, before)) {
  }
  RequireUnchanged(input, before, StateOf(file, input.name));
  if (input.text.empty()) Refuse(input.name, "is empty");
  return input;
}

}  // namespace settingsctl
