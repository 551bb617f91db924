#include "tests/host/tavrel/ChildProcess.h"

#include <csignal>
#include <cstdio>
#include <stdexcept>

#include <sys/wait.h>
#include <unistd.h>

namespace tests {

ChildProcess::ChildProcess(const std::function<int()>& body) {
  std::fflush(nullptr);
  m_process = fork();
  if (m_process == -1) throw std::runtime_error("cannot start a process");
  // Not exit(): the parent's test program must not end twice.
  if (m_process == 0) _exit(body());
}

ChildProcess::~ChildProcess() {
  if (m_process == 0) return;
  Kill();
  Wait();
}

void ChildProcess::Kill() { kill(m_process, SIGKILL); }

int ChildProcess::Wait() {
  int status = 0;
  waitpid(m_process, &status, 0);
  m_process = 0;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

StartSignal::StartSignal() {
  if (pipe(m_ends) != 0) throw std::runtime_error("cannot make a pipe");
}

StartSignal::~StartSignal() {
  close(m_ends[0]);
  Give();
}

void StartSignal::Wait() {
  Give();  // the child's own copy of the writing end would keep the pipe open
  char nothing = 0;
  [[maybe_unused]] const ssize_t end = read(m_ends[0], &nothing, 1);
}

void StartSignal::Give() {
  if (m_ends[1] != -1) close(m_ends[1]);
  m_ends[1] = -1;
}

}  // namespace tests
