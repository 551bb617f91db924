#pragma once

#include <cstdio>
#include <string>

#include <unistd.h>

namespace tests {

/// Takes what the process writes to standard error, for a scope.
class StandardError {
 public:
  StandardError() : m_former(dup(STDERR_FILENO)), m_taken(std::tmpfile()) {
    std::fflush(stderr);
    dup2(fileno(m_taken), STDERR_FILENO);
  }
  ~StandardError() {
    dup2(m_former, STDERR_FILENO);
    close(m_former);
    std::fclose(m_taken);
  }

  StandardError(const StandardError&) = delete;
  StandardError& operator=(const StandardError&) = delete;

  /// All that has been written so far.
  std::string Text() const {
    std::fflush(stderr);
    std::string text(static_cast<std::size_t>(lseek(STDERR_FILENO, 0, SEEK_CUR)), '\0');
    const ssize_t length = pread(fileno(m_taken), text.data(), text.size(), 0);
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return text;
  }

 private:
  const int m_former;
  std::FILE* const m_taken;
};

}  // namespace tests
