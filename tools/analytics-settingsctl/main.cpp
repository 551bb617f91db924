#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include <analytics/Version.h>

#include "CommandLine.h"
#include "Commands.h"
#include "Failure.h"
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

void AddCommands(settingsctl::CommandLine& program) {
  settingsctl::AddSettingsCommand(program);
  settingsctl::AddGetCommand(program);
  settingsctl::AddExpandCommand(program);
  settingsctl::AddProfileCommand(program);
  settingsctl::AddCheckCommand(program);
  settingsctl::AddDrawCommand(program);
  settingsctl::AddSetCommand(program);
  settingsctl::AddDeleteRulesCommand(program);
  settingsctl::AddWatchCommand(program);
  settingsctl::AddAvailableCommand(program);
  settingsctl::AddReserveCommand(program);
}

int Run(int argc, char** argv) {
  // The library's own messages are for a camera's log; whoever asks for them gets them.
  setenv("ANALYTICS_TRACE", "0", 0);
  // A limit on the size of files is to be an error like others, not the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
  settingsctl::PrepareXml();
  settingsctl::CommandLine program(
      "analytics-settingsctl",
      "See, check and try a camera's analytics configuration as its runtime will see it.",
      ANALYTICS_SETTINGS_VERSION);
  program.Footer(kExamples);
  AddCommands(program);
  const int status = program.Run(argc, argv);
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
