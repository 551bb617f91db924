#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <analytics/Version.h>

#include "Commands.h"
#include "Failure.h"
#include "Transformed.h"
#include "check/Similar.h"
#include "input/XmlInput.h"
#include "output/Messages.h"

namespace {

using settingsctl::Failure;
using settingsctl::kCouldNotRun;

const char* const kExamples = R"(Examples:
  analytics-settingsctl settings                  which file is read, and what comes of it
  analytics-settingsctl check analytics.ini gate.xml
  analytics-settingsctl profile gate.xml          what the runtime finds in a profile
  analytics-settingsctl draw gate.xml -o gate.svg
  analytics-settingsctl set gate.xml --rule LineCrossing --item Sensitivity 90 --dry-run

Each command has examples of its own: analytics-settingsctl COMMAND --help. A FILE of
"-" is standard input. Exit status: 0 fine, 1 the answer is no or there are findings,
2 could not run.
)";

void AddCommands(CLI::App& app) {
  settingsctl::AddSettingsCommand(app);
  settingsctl::AddGetCommand(app);
  settingsctl::AddExpandCommand(app);
  settingsctl::AddProfileCommand(app);
  settingsctl::AddCheckCommand(app);
  settingsctl::AddDrawCommand(app);
  settingsctl::AddSetCommand(app);
  settingsctl::AddDeleteRulesCommand(app);
  settingsctl::AddWatchCommand(app);
  settingsctl::AddAvailableCommand(app);
  settingsctl::AddReserveCommand(app);
}

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
  const std::vector<std::string> names = settingsctl::Transformed(
      app.get_subcommands({}), [](const CLI::App* command) { return command->get_name(); });
  const bool isCommand = std::find(names.begin(), names.end(), word) != names.end();
  if (isCommand || word.empty() || word.front() == '-') return;
  const std::string similar = settingsctl::SimilarWord(word, names);
  throw Failure(
      "there is no command '" + word + "'; " +
      (similar.empty() ? "see analytics-settingsctl --help" : "did you mean '" + similar + "'?"));
}

/// The command whose arguments were being read, as the user would name it.
std::string NameOf(const CLI::App& app) {
  const auto chosen = app.get_subcommands();
  return app.get_name() + (chosen.empty() ? "" : " " + chosen.front()->get_name());
}

int Parse(CLI::App& app, int argc, char** argv) {
  try {
    app.parse(argc, argv);
    return 0;
  } catch (const CLI::RuntimeError& status) {
    return status.get_exit_code();
  } catch (const CLI::Success& answer) {
    return app.exit(answer);
  } catch (const CLI::Error& error) {
    throw Failure(std::string(error.what()) + "; see " + NameOf(app) + " --help");
  }
}

int Run(int argc, char** argv) {
  // The library's own messages are for a camera's log; whoever asks for them gets them.
  setenv("ANALYTICS_TRACE", "0", 0);
  // A limit on the size of files is to be an error like others, not the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
  settingsctl::PrepareXml();
  CLI::App app("See, check and try a camera's analytics configuration as its runtime will see it.",
               "analytics-settingsctl");
  app.set_version_flag("--version", "analytics-settingsctl " ANALYTICS_SETTINGS_VERSION);
  app.require_subcommand(1);
  app.footer(kExamples);
  KeepLines(app);
  AddCommands(app);
  RequireKnownCommand(app, argc, argv);
  const int status = Parse(app, argc, argv);
  if (!std::cout.flush()) throw Failure("standard output cannot be written; redirect it elsewhere");
  return status;
}

int Report(const std::string& message, int status) {
  settingsctl::PrintMessage(message);
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const Failure& failure) {
    return Report(failure.what(), failure.Status());
  } catch (const std::bad_alloc&) {
    return Report("there is not enough memory; free some and try again", kCouldNotRun);
  } catch (const std::exception& error) {
    return Report(error.what(), kCouldNotRun);
  }
}
