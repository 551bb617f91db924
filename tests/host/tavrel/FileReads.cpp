#include "tests/host/tavrel/FileReads.h"

#include <stdexcept>

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace tests {

FileReads::FileReads(const std::string& path) : m_inotify(inotify_init1(IN_CLOEXEC)) {
  if (inotify_add_watch(m_inotify, path.c_str(), IN_CLOSE_NOWRITE) == -1)
    throw std::runtime_error("cannot watch " + path);
}

FileReads::~FileReads() { close(m_inotify); }

void FileReads::WaitForOne() {
  pollfd reads = {m_inotify, POLLIN, 0};
  EXPECT_EQ(1, poll(&reads, 1, 30000)) << "nobody has read the file";
}

}  // namespace tests
