#pragma once

#include <unistd.h>

namespace tests {

/// Gives up, for a scope, the rights of root, for which every file can be read and written.
///
/// `if (!user.IsReady()) GTEST_SKIP()` where a root may not change its user, as in some containers.
class Unprivileged {
 public:
  Unprivileged() : m_wasRoot(geteuid() == 0), m_isReady(!m_wasRoot || seteuid(kNobody) == 0) {}
  ~Unprivileged() {
    // Only root's own rights come back; a process that cannot take them is of no more use.
    if (m_wasRoot && m_isReady && seteuid(0) != 0) _exit(1);
  }

  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;

  bool IsReady() const { return m_isReady; }

 private:
  static constexpr uid_t kNobody = 65534;

  const bool m_wasRoot;
  const bool m_isReady;
};

}  // namespace tests
