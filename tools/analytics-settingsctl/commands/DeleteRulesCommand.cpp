#include <memory>
#include <string>

#include "Commands.h"
#include "Failure.h"
#include "commands/ProfileEdit.h"

namespace settingsctl {
namespace {

constexpr const char* kExamples = R"(Examples:
  analytics-settingsctl delete-rules gate.xml FieldDetector --dry-run
  analytics-settingsctl delete-rules gate.xml FieldDetector -o lines-only.xml
  analytics-settingsctl delete-rules - FieldDetector <gate.xml >lines-only.xml

All rules of exactly this type are deleted. FILE is replaced at once or stays as it
was. Exit status: 1 if there is no such rule.
)";

struct Arguments : EditArguments {
  std::string type;
};

void DeleteRules(const Arguments& arguments) {
  ProfileEdit edit(arguments);
  edit.RequireType(arguments.type);
  const int count = edit.Profile().DeleteRules(arguments.type);
  if (count == 0) {
    throw Failure(edit.Name() + ": has no rule of type '" + arguments.type +
                      "'; see its types with analytics-settingsctl profile",
                  1);
  }
  edit.Finish("deleted " + std::to_string(count) + (count == 1 ? " rule" : " rules") +
              " of type '" + arguments.type + "'");
}

}  // namespace

void AddDeleteRulesCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command =
      program.AddCommand("delete-rules", "Delete all rules of a type from a profile");
  command.Add("FILE", arguments->file, "Profile, or - for standard input").Required();
  command.Add("TYPE", arguments->type, "Type of the rules").Required();
  AddEditOptions(command, *arguments);
  command.Footer(kExamples);
  command.Callback([arguments] { DeleteRules(*arguments); });
}

}  // namespace settingsctl
