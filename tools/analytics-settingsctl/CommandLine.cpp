#include "CommandLine.h"

#include <algorithm>
#include <utility>

#include <CLI/CLI.hpp>

#include "Failure.h"
#include "Transformed.h"
#include "check/Similar.h"

namespace settingsctl {
namespace {

/// CLI11 from 2.5 on would join the lines of texts to paragraphs, those of the examples too.
void KeepLines([[maybe_unused]] CLI::App& app) {
#if CLI11_VERSION_MAJOR > 2 || (CLI11_VERSION_MAJOR == 2 && CLI11_VERSION_MINOR >= 5)
  app.get_formatter()->enable_description_formatting(false);
  app.get_formatter()->enable_footer_formatting(false);
#endif
}

/// A word in the place of a command that is none would else be reported as no command at all.
void RequireKnownCommand(const CLI::App& app, int argc, char** argv) {
  const std::string word = argc > 1 ? argv[1] : "-";
  const std::vector<std::string> names = Transformed(
      app.get_subcommands({}), [](const CLI::App* command) { return command->get_name(); });
  const bool isCommand = std::find(names.begin(), names.end(), word) != names.end();
  if (isCommand || word.empty() || word.front() == '-') return;
  const std::string similar = SimilarWord(word, names);
  throw Failure(
      "there is no command '" + word + "'; " +
      (similar.empty() ? "see analytics-settingsctl --help" : "did you mean '" + similar + "'?"));
}

/// The command whose arguments were being read, as the user would name it.
std::string NameOf(const CLI::App& app) {
  const auto chosen = app.get_subcommands();
  return app.get_name() + (chosen.empty() ? "" : " " + chosen.front()->get_name());
}

}  // namespace

CommandOption CommandOption::Required() const { return CommandOption(m_option->required()); }

CommandOption CommandOption::TypeName(const std::string& name) const {
  return CommandOption(m_option->type_name(name));
}

CommandOption CommandOption::OneOf(const std::vector<std::string>& values) const {
  return CommandOption(m_option->check(CLI::IsMember(values)));
}

CommandOption CommandOption::OneValueEach() const {
  return CommandOption(m_option->allow_extra_args(false));
}

CommandOption CommandOption::Excludes(CommandOption other) const {
  return CommandOption(m_option->excludes(other.m_option));
}

CommandOption Command::Add(const std::string& name, std::string& text,
                           const std::string& help) const {
  return CommandOption(m_app->add_option(name, text, help));
}

CommandOption Command::Add(const std::string& name, std::vector<std::string>& texts,
                           const std::string& help) const {
  return CommandOption(m_app->add_option(name, texts, help));
}

CommandOption Command::Add(const std::string& name, std::optional<int>& number,
                           const std::string& help) const {
  return CommandOption(m_app->add_option(name, number, help));
}

CommandOption Command::Add(const std::string& flag, bool& isGiven, const std::string& help) const {
  return CommandOption(m_app->add_flag(flag, isGiven, help));
}

void Command::Footer(const std::string& text) const { m_app->footer(text); }

void Command::Callback(std::function<void()> action) const { m_app->callback(std::move(action)); }

CommandLine::CommandLine(const std::string& name, const std::string& purpose,
                         const std::string& version)
    : m_app(std::make_unique<CLI::App>(purpose, name)) {
  m_app->set_version_flag("--version", name + " " + version);
  m_app->require_subcommand(1);
  KeepLines(*m_app);
}

CommandLine::~CommandLine() = default;

Command CommandLine::AddCommand(const std::string& name, const std::string& purpose) {
  return Command(m_app->add_subcommand(name, purpose));
}

void CommandLine::Footer(const std::string& text) { m_app->footer(text); }

int CommandLine::Run(int argc, char** argv) {
  RequireKnownCommand(*m_app, argc, argv);
  try {
    m_app->parse(argc, argv);
    return 0;
  } catch (const ExitStatus& status) {
    return status.value;
  } catch (const CLI::Success& answer) {
    return m_app->exit(answer);
  } catch (const CLI::Error& error) {
    throw Failure(std::string(error.what()) + "; see " + NameOf(*m_app) + " --help");
  }
}

}  // namespace settingsctl
