#pragma once

#include <stdexcept>
#include <string>

namespace settingsctl {

/// The exit status of a program that could not do what it was asked for.
constexpr int kCouldNotRun = 2;

/// Ends the command with a message on standard error and an exit status other than 0.
class Failure : public std::runtime_error {
 public:
  /// @param message  one sentence without a full stop: which file, what is wrong, what to do
  explicit Failure(const std::string& message, int status = kCouldNotRun)
      : std::runtime_error(message), m_status(status) {}

  int Status() const noexcept { return m_status; }

 private:
  int m_status;
};

}  // namespace settingsctl
