#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace tests {

/// A command that was started, with what it prints.
class Command {
 public:
  /// @param arguments  the program's path and what it is given
  explicit Command(const std::vector<std::string>& arguments);

  /// Kills the command, unless it was waited for.
  ~Command();

  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;

  /// Waits for the next line of the standard output; if none comes the test fails.
  std::string NextLine();

  void Signal(int signal) const;

  /// Reads all output to its end and waits for the command.
  ///
  /// @return its exit status; -1 if a signal ended it
  int Wait();

  /// What is left of the standard output, and all of the standard error; both after `Wait`.
  const std::string& Output() const { return m_output; }
  const std::string& Errors() const { return m_errors; }

 private:
  pid_t m_process;  // 0 once waited for
  int m_outputEnd;
  int m_errorsEnd;
  std::string m_output;
  std::string m_errors;
};

}  // namespace tests
