#include "host/tavrel-settings/RegularFile.h"

#include <cerrno>
#include <cstddef>
#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>

#include "host/tavrel-settings/FileDescriptor.h"

namespace tavrel {
namespace settings {
namespace {

const char* const kAction = "cannot read";

/// Whether a call failed because there is no such file.
bool HasFoundNone(int result) { return result == -1 && errno == ENOENT; }

void CheckRegular(const struct stat& status, const std::string& path) {
  if (S_ISREG(status.st_mode)) return;
  const char* const what = S_ISDIR(status.st_mode) ? "a directory" : "not a regular file";
  throw std::runtime_error(std::string(kAction) + " " + path + ": it is " + what);
}

std::string AllText(const FileDescriptor& file, const std::string& path) {
  std::string text;
  char part[16384];
  for (;;) {
    const ssize_t size = read(file.Get(), part, sizeof part);
    if (size == 0) return text;
    if (size > 0) text.append(part, static_cast<std::size_t>(size));
    if (size < 0 && errno != EINTR) ThrowErrno(kAction, path);
  }
}

}  // namespace

std::string TextOfRegularFile(const std::string& path) {
  struct stat status = {};
  const int found = stat(path.c_str(), &status);
  if (HasFoundNone(found)) return "";
  Checked(found, kAction, path);
  CheckRegular(status, path);
  const int opened = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
  if (HasFoundNone(opened)) return "";
  const FileDescriptor file(opened, kAction, path);
  Checked(fstat(file.Get(), &status), kAction, path);
  CheckRegular(status, path);  // anything may have taken its place in the meantime
  return AllText(file, path);
}

}  // namespace settings
}  // namespace tavrel
