#include <iostream>
#include <memory>
#include <string>

#include <analytics/ProfileDoc.h>

#include "Commands.h"
#include "commands/Vocabulary.h"
#include "input/ProfileContents.h"
#include "input/SettingsOption.h"
#include "output/ProfileTable.h"

namespace settingsctl {
namespace {

constexpr const char* kExamples = R"(Examples:
  analytics-settingsctl profile gate.xml
  analytics-settingsctl profile gate.xml --settings analytics.ini    with its tags and prefixes
  analytics-settingsctl profile gate.xml --json | jq .activeTypes

Only what the library finds is shown. If something is missing here, ask check why.
)";

struct Arguments {
  std::string file;
  std::string settings;
  bool asJson = false;
};

void Show(const Arguments& arguments) {
  const Input input = ReadInput(arguments.file);
  LoadVocabulary(arguments.settings);
  analytics::ProfileDoc profile;
  ParseProfile(profile, input);
  const ProfileContents contents = ContentsOf(profile);
  if (arguments.asJson) return PrintJson(ProfileJson(input.name, contents));
  WriteProfile(std::cout, input.name, contents);
}

}  // namespace

void AddProfileCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command = program.AddCommand("profile", "Show what the runtime finds in a profile");
  command.Add("FILE", arguments->file, "Profile, or - for standard input").Required();
  command.Add("--json", arguments->asJson, "For other programs");
  AddSettingsOption(command, arguments->settings);
  command.Footer(kExamples);
  command.Callback([arguments] { Show(*arguments); });
}

}  // namespace settingsctl
