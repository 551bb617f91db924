#include <memory>
#include <string>

#include <analytics/DocumentNode.h>
#include <analytics/Settings.h>

#include "Commands.h"
#include "Failure.h"
#include "commands/ProfileEdit.h"
#include "input/Nodes.h"
#include "input/XmlText.h"

namespace settingsctl {
namespace {

constexpr const char* kExamples = R"(Examples:
  analytics-settingsctl set gate.xml --rule LineCrossing --item Sensitivity 90 --dry-run
  analytics-settingsctl set gate.xml --rule LineCrossing --item Sensitivity 90
  analytics-settingsctl set gate.xml --rule FieldDetector --item Active 0 -o night.xml
  analytics-settingsctl set - --rule LineCrossing --item Offset -- -5 <gate.xml >new.xml

The first rule of the type is changed. The item must exist: the library sets no
others. FILE is replaced at once or stays as it was; a further hard link to it keeps
the old text. A VALUE that starts with a dash goes behind --. Exit status: 1 if there
is no such rule or item.
)";

struct Arguments : EditArguments {
  std::string rule;
  std::string item;
  std::string value;
};

NodePtr RuleOf(ProfileEdit& edit, const std::string& type) {
  edit.RequireType(type);
  NodePtr rule(edit.Profile().SelectRule(type));
  if (!rule) {
    throw Failure(edit.Name() + ": has no rule of type '" + type +
                      "'; see its types with analytics-settingsctl profile",
                  1);
  }
  return rule;
}

[[noreturn]] void RefuseItem(const ProfileEdit& edit, const Arguments& arguments) {
  const std::string which = edit.Name() + ": the first rule of type '" + arguments.rule +
                            "' has no item '" + arguments.item + "'";
  if (arguments.item.find('\'') != std::string::npos) {
    throw Failure(which + " that the library finds, because of its single quote; rename it by hand",
                  1);
  }
  throw Failure(which + "; add <" + analytics::Settings::OnvifPrefix() + ":SimpleItem Name=\"" +
                    arguments.item + R"(" Value=""/> to its Parameters first)",
                1);
}

std::string Message(ProfileEdit& edit, const Arguments& arguments, const std::string& former) {
  const std::size_t count = Owned(edit.Profile().SelectRules(arguments.rule)).size();
  const std::string rule = count == 1
                               ? "the rule of type '"
                               : "the first of " + std::to_string(count) + " rules of type '";
  return rule + arguments.rule + "': " + arguments.item + " was '" + former + "', is now '" +
         arguments.value + "'";
}

void Set(const Arguments& arguments) {
  ProfileEdit edit(arguments);
  const std::string problem = ProblemInXml(arguments.value);
  if (!problem.empty()) throw Failure(edit.Name() + ": " + problem);
  const NodePtr rule = RuleOf(edit, arguments.rule);
  analytics::ProfileDoc& profile = edit.Profile();
  const std::string former = profile.GetSimpleItemValue(arguments.item, rule.get(), true);
  if (!profile.SetSimpleItemValue(arguments.item, arguments.value, rule.get())) {
    RefuseItem(edit, arguments);
  }
  edit.Finish(Message(edit, arguments, former));
}

}  // namespace

void AddSetCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command = program.AddCommand("set", "Set the value of a rule's item in a profile");
  command.Add("FILE", arguments->file, "Profile, or - for standard input").Required();
  command.Add("--rule", arguments->rule, "Type of the rule").TypeName("TYPE").Required();
  command.Add("--item", arguments->item, "Name of the simple item").TypeName("NAME").Required();
  command.Add("VALUE", arguments->value, "The new value").Required();
  AddEditOptions(command, *arguments);
  command.Footer(kExamples);
  command.Callback([arguments] { Set(*arguments); });
}

}  // namespace settingsctl
