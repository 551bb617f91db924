#include "files/LinkTarget.h"

#include <cerrno>
#include <climits>
#include <cstddef>

#include <unistd.h>

#include "files/FileDescriptor.h"

namespace files {
namespace {

constexpr int kMostLinks = 40;  // as many as the kernel follows

/// What a symbolic link holds; empty for what is none.
std::string LinkText(const std::string& path) {
  std::string text(PATH_MAX, '\0');
  const ssize_t length = readlink(path.c_str(), &text.front(), text.size());
  text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return text;
}

}  // namespace

std::string DirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string LinkTarget(const std::string& path) {
  std::string target = path;
  for (int links = 0; links <= kMostLinks; ++links) {
    const std::string next = LinkText(target);
    if (next.empty()) return target;
    target = next.front() == '/' ? next : DirectoryOf(target).append("/").append(next);
  }
  errno = ELOOP;
  ThrowErrno("cannot find", path);
}

}  // namespace files
