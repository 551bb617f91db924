#include "fuzz/MemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/Check.h"

namespace fuzz {

MemoryFile::MemoryFile()
    : m_descriptor(memfd_create("input", MFD_CLOEXEC)),
      m_path("/proc/self/fd/" + std::to_string(m_descriptor)) {
  Require(m_descriptor >= 0, "there is no file in memory");
}

MemoryFile::~MemoryFile() { close(m_descriptor); }

void MemoryFile::Write(const std::string& text) const {
  const bool isCut = ftruncate(m_descriptor, 0) == 0;
  const ssize_t written = pwrite(m_descriptor, text.data(), text.size(), 0);
  Require(isCut && written == static_cast<ssize_t>(text.size()), "the file cannot be written");
}

}  // namespace fuzz
