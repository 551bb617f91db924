#include "tests/support/Survival.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tests {
namespace {

[[noreturn]] void RunSilently(const std::function<void()>& body) noexcept {
  const int nowhere = open("/dev/null", O_WRONLY);
  dup2(nowhere, STDOUT_FILENO);
  dup2(nowhere, STDERR_FILENO);
  std::signal(SIGSEGV, SIG_DFL);  // without the report of a sanitizer, which takes its time
  prctl(PR_SET_DUMPABLE, 0);      // and without a core file
  body();
  _exit(EXIT_SUCCESS);
}

}  // namespace

bool SurvivesInAChild(const std::function<void()>& body) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) RunSilently(body);
  int status = -1;
  return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
         WEXITSTATUS(status) == EXIT_SUCCESS;
}

SharedNumber::SharedNumber(int number)
    : m_number(static_cast<int*>(
          mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
  if (m_number == MAP_FAILED) std::abort();
  *m_number = number;
}

SharedNumber::~SharedNumber() { munmap(const_cast<int*>(m_number), sizeof(int)); }

}  // namespace tests
