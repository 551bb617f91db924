#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace settingsctl {

/// Ends the command without a message, by its exit status alone; thrown by what a command does.
struct ExitStatus {
  int value;
};

/// An option or argument of a command; each operation adds a rule for it.
class CommandOption {
 public:
  explicit CommandOption(CLI::Option* option) : m_option(option) {}

  CommandOption Required() const;

  /// What the help calls its value.
  CommandOption TypeName(const std::string& name) const;

  CommandOption OneOf(const std::vector<std::string>& values) const;

  /// Takes one value each time that it is given, not all that follow.
  CommandOption OneValueEach() const;

  CommandOption Excludes(CommandOption other) const;

 private:
  CLI::Option* m_option;
};

/// One command of a program. What its options are read into outlives the program's run.
class Command {
 public:
  explicit Command(CLI::App* app) : m_app(app) {}

  CommandOption Add(const std::string& name, std::string& text, const std::string& help) const;
  CommandOption Add(const std::string& name, std::vector<std::string>& texts,
                    const std::string& help) const;
  CommandOption Add(const std::string& name, std::optional<int>& number,
                    const std::string& help) const;
  CommandOption Add(const std::string& flag, bool& isGiven, const std::string& help) const;

  /// The text after the options in the help.
  void Footer(const std::string& text) const;

  /// What the command does, with its options read. It may throw.
  void Callback(std::function<void()> action) const;

 private:
  CLI::App* m_app;
};

/// The arguments of a program with commands.
///
/// Its source is the only one of this program that includes the headers of CLI11, which take longer
/// to compile and to check than all else in a source.
class CommandLine {
 public:
  CommandLine(const std::string& name, const std::string& purpose, const std::string& version);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  /// The help lists commands in the order in which they were added.
  Command AddCommand(const std::string& name, const std::string& purpose);

  /// The text after the commands in the help.
  void Footer(const std::string& text);

  /// Does what the arguments say, and gives the exit status. Throws `Failure` for arguments that
  /// cannot be read, and what a command throws but `ExitStatus`.
  int Run(int argc, char** argv);

 private:
  std::unique_ptr<CLI::App> m_app;
};

}  // namespace settingsctl
