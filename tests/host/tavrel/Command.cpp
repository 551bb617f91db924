#include "tests/host/tavrel/Command.h"

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <stdexcept>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tests {
namespace {

struct Pipe {
  Pipe() {
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("cannot make a pipe");
  }

  int ends[2];
};

pid_t Spawn(const std::vector<std::string>& arguments, int output, int errors) {
  std::vector<char*> texts(arguments.size() + 1, nullptr);
  std::transform(arguments.begin(), arguments.end(), texts.begin(),
                 [](const std::string& argument) { return const_cast<char*>(argument.c_str()); });
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);
  pid_t process = 0;
  const int error = posix_spawn(&process, texts[0], &actions, nullptr, texts.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("cannot start " + arguments[0]);
  return process;
}

/// Appends what comes next on a pipe, waiting for it at most half a minute.
///
/// @return whether anything came
bool ReadSome(int end, std::string& text) {
  pollfd source = {end, POLLIN, 0};
  if (poll(&source, 1, 30000) != 1) return false;
  char buffer[4096];
  const ssize_t size = read(end, buffer, sizeof buffer);
  if (size > 0) text.append(buffer, static_cast<std::size_t>(size));
  return size > 0;
}

}  // namespace

Command::Command(const std::vector<std::string>& arguments) {
  const Pipe output;
  const Pipe errors;
  m_process = Spawn(arguments, output.ends[1], errors.ends[1]);
  close(output.ends[1]);
  close(errors.ends[1]);
  m_outputEnd = output.ends[0];
  m_errorsEnd = errors.ends[0];
}

Command::~Command() {
  if (m_process != 0) {
    Signal(SIGKILL);
    Wait();
  }
  close(m_outputEnd);
  close(m_errorsEnd);
}

std::string Command::NextLine() {
  while (m_output.find('\n') == std::string::npos && ReadSome(m_outputEnd, m_output)) continue;
  const std::size_t end = m_output.find('\n');
  EXPECT_NE(std::string::npos, end) << "no line came";
  std::string line = m_output.substr(0, end);
  m_output.erase(0, end == std::string::npos ? end : end + 1);
  return line;
}

void Command::Signal(int signal) const { kill(m_process, signal); }

int Command::Wait() {
  while (ReadSome(m_outputEnd, m_output)) continue;
  while (ReadSome(m_errorsEnd, m_errors)) continue;
  int status = 0;
  waitpid(m_process, &status, 0);
  m_process = 0;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace tests
