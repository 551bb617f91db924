#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

/// Loaded into the command before all else: whoever reads a regular file finds it longer when it is
/// looked at again, as if another program had gone on writing.
extern "C" ssize_t read(int fd, void* buf, size_t nbytes) {
  using Read = ssize_t (*)(int, void*, size_t);
  static const auto s_read = reinterpret_cast<Read>(dlsym(RTLD_NEXT, "read"));
  const ssize_t count = s_read(fd, buf, nbytes);
  struct stat state {};
  if (count > 0 && fstat(fd, &state) == 0 && S_ISREG(state.st_mode)) {
    const std::string path = "/proc/self/fd/" + std::to_string(fd);
    const int writer = open(path.c_str(), O_WRONLY | O_APPEND);
    if (writer >= 0 && write(writer, " ", 1) == 1) close(writer);
  }
  return count;
}
