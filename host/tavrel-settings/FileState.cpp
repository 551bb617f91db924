#include "host/tavrel-settings/FileState.h"

#include <cerrno>

#include <sys/stat.h>

namespace tavrel {
namespace settings {

FileState::FileState(const std::string& path) : m_figures() {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) {
    m_figures[0] = errno;
    return;
  }
  m_figures = {{0, static_cast<std::int64_t>(status.st_dev),
                static_cast<std::int64_t>(status.st_ino), status.st_size, status.st_mtim.tv_sec,
                status.st_mtim.tv_nsec, status.st_ctim.tv_sec, status.st_ctim.tv_nsec}};
}

bool FileState::IsMissing() const { return m_figures[0] == ENOENT; }

}  // namespace settings
}  // namespace tavrel
