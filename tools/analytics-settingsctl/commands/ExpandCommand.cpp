#include <iostream>
#include <memory>
#include <string>

#include <analytics/Settings.h>

#include "Commands.h"
#include "Failure.h"
#include "input/Expansion.h"
#include "input/NamedSettings.h"
#include "input/SettingsFile.h"
#include "input/SettingsOption.h"

namespace settingsctl {
namespace {

constexpr const char* kExamples = R"(Examples:
  analytics-settingsctl expand '${root}/profiles/gate.xml'
  analytics-settingsctl expand '${profiles}' --settings analytics.ini

Quote TEXT, or the shell expands it first. An undefined variable becomes an empty
text, as on the camera. A reference that leads back to itself never ends there;
here it is named, with exit status 1.
)";

struct Arguments {
  std::string text;
  std::string settings;
};

void RequireEnd(const Expansion& expansion, const SettingsFile& file) {
  if (!expansion.cycle.empty()) {
    throw Failure(file.input->name +
                      ": the substitution never ends, because a variable leads back " +
                      "to itself: " + CycleText(expansion.cycle),
                  1);
  }
  if (expansion.isTooLong) {
    throw Failure(file.input->name + ": the text grows beyond 256 KiB or 10000 references", 1);
  }
}

void Expand(const Arguments& arguments) {
  const SettingsFile file = LoadSettingsFile(arguments.settings);
  const bool hasReference = arguments.text.find("${") != std::string::npos;
  if (hasReference && !file.problem.empty()) {
    throw Failure(file.problem + "; name another with --settings");
  }
  if (hasReference) RequireEnd(TryExpansion(arguments.text, VariableValue), file);
  std::cout << analytics::Settings::SubstituteVariables(arguments.text) << "\n";
}

}  // namespace

void AddExpandCommand(CLI::App& app) {
  const auto arguments = std::make_shared<Arguments>();
  CLI::App* const command =
      app.add_subcommand("expand", "Substitute variables in a text as the runtime would");
  command->add_option("TEXT", arguments->text, "A text with references such as ${root}")
      ->required();
  AddSettingsOption(*command, arguments->settings);
  command->footer(kExamples);
  command->callback([arguments] { Expand(*arguments); });
}

}  // namespace settingsctl
