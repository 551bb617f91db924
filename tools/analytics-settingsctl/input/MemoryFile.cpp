#include "input/MemoryFile.h"

#include <cerrno>
#include <cstring>

#include <sys/mman.h>
#include <sys/stat.h>

#include "Failure.h"

namespace settingsctl {
namespace {

[[noreturn]] void Refuse() {
  throw Failure(std::string("no copy of a file can be kept in memory: ") + std::strerror(errno) +
                "; free some memory, or raise the limit on the size of files");
}

}  // namespace

MemoryFile::MemoryFile(const std::string& text)
    : m_file(memfd_create("analytics-settingsctl", MFD_CLOEXEC)) {
  if (!m_file.IsOpen()) Refuse();
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t count = write(m_file.Get(), text.data() + done, text.size() - done);
    if (count <= 0) Refuse();
    done += static_cast<std::size_t>(count);
  }
}

std::string MemoryFile::Path() const { return "/proc/self/fd/" + std::to_string(m_file.Get()); }

std::string MemoryFile::Text() const {
  struct stat state {};
  if (fstat(m_file.Get(), &state) != 0) Refuse();
  std::string text(static_cast<std::size_t>(state.st_size), '\0');
  const ssize_t count = pread(m_file.Get(), text.data(), text.size(), 0);
  if (count != state.st_size) Refuse();
  return text;
}

}  // namespace settingsctl
