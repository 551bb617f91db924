#include <iostream>
#include <memory>
#include <string>

#include "Commands.h"
#include "Failure.h"
#include "input/Expansion.h"
#include "input/SettingsFile.h"
#include "input/SettingsOption.h"
#include "input/Variables.h"

namespace settingsctl {
namespace {

constexpr const char* kExamples = R"(Examples:
  analytics-settingsctl expand '${root}/profiles/gate.xml'
  analytics-settingsctl expand '${profiles}' --settings analytics.ini

Quote TEXT, or the shell expands it first. An undefined variable becomes an empty
text, as on the camera. A reference that leads back to itself never ends there;
here it is named, with exit status 1. So it is if the runtime has no settings file
that it can use, in which no variable is defined.
)";

struct Arguments {
  std::string text;
  std::string settings;
};

void RequireEnd(const Expansion& expansion, const SettingsFile& file) {
  const std::string name = file.input ? file.input->name : file.path;
  if (!expansion.cycle.empty()) {
    throw Failure(name +
                      ": the substitution never ends, because a variable leads back to itself: " +
                      CycleText(expansion.cycle) + "; change one of these variables",
                  1);
  }
  if (expansion.isTooLong) {
    throw Failure(
        name + ": the text " + kGrowth + ", more than this command tries; expand a part of it", 1);
  }
}

void Expand(const Arguments& arguments) {
  const SettingsFile file = LoadSettingsFile(arguments.settings);
  const bool hasReference = arguments.text.find("${") != std::string::npos;
  const VariableTable variables = TableOf(file);
  const Expansion expansion = TryExpansion(arguments.text, variables);
  if (hasReference) RequireEnd(expansion, file);
  std::cout << Substitution(variables).Of(arguments.text, expansion) << "\n";
  if (hasReference) RequireUsable(file);
}

}  // namespace

void AddExpandCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command =
      program.AddCommand("expand", "Substitute variables in a text as the runtime would");
  command.Add("TEXT", arguments->text, "A text with references such as ${root}").Required();
  AddSettingsOption(command, arguments->settings);
  command.Footer(kExamples);
  command.Callback([arguments] { Expand(*arguments); });
}

}  // namespace settingsctl
