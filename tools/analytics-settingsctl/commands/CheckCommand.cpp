#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "Failure.h"
#include "check/FileCheck.h"
#include "check/Printing.h"
#include "commands/Vocabulary.h"
#include "input/SettingsOption.h"
#include "output/Messages.h"

namespace settingsctl {
namespace {

constexpr int kHasFindings = 1;
constexpr const char* kUnreadable = "unreadable";

struct Arguments {
  std::vector<std::string> files;
  std::string kind;
  std::string settings;
  std::string explained;
  std::vector<std::string> without;
  PrintOptions printing;
  bool list = false;
};

const Check& NamedCheck(const std::string& name) {
  const Check* check = FindCheck(name);
  if (!check)
    throw Failure("there is no check '" + name + "'; see analytics-settingsctl check --list");
  return *check;
}

CheckOptions OptionsOf(const Arguments& arguments) {
  CheckOptions options;
  if (arguments.kind == "settings") options.kind = FileKind::kSettings;
  if (arguments.kind == "profile") options.kind = FileKind::kProfile;
  for (const std::string& name : arguments.without) options.without.insert(NamedCheck(name).name);
  return options;
}

/// Takes out the findings of files that cannot be read. Somebody who does not want them among the
/// findings still learns why the exit status is what it is.
void TellUnreadable(std::vector<Finding>& findings) {
  const auto first = std::stable_partition(
      findings.begin(), findings.end(),
      [](const Finding& finding) { return finding.check->name != std::string(kUnreadable); });
  std::for_each(first, findings.end(), [](const Finding& finding) {
    PrintMessage(finding.file + ": " + finding.message);
  });
  findings.erase(first, findings.end());
}

void RunChecks(const Arguments& arguments) {
  if (arguments.files.empty()) throw Failure("name a file to check, or - for standard input");
  CheckOptions options = OptionsOf(arguments);
  options.settings = LoadVocabulary(arguments.settings);
  const bool isUnwanted = options.without.erase(kUnreadable) > 0;
  CheckReport report = CheckFiles(arguments.files, options);
  if (isUnwanted) TellUnreadable(report.findings);
  PrintFindings(report.findings, arguments.printing);
  if (!report.isComplete) throw ExitStatus{kCouldNotRun};
  if (!report.findings.empty()) throw ExitStatus{kHasFindings};
}

void Run(const Arguments& arguments) {
  if (!arguments.explained.empty()) return PrintCheck(NamedCheck(arguments.explained));
  if (arguments.list) return PrintChecks(arguments.printing);
  RunChecks(arguments);
}

void AddOptions(const Command& command, Arguments& arguments) {
  command.Add("FILE", arguments.files, "Settings files and profiles; - is standard input");
  command.Add("--as", arguments.kind, "What the files are; else told by their content")
      .TypeName("KIND")
      .OneOf({"settings", "profile"});
  AddSettingsOption(command, arguments.settings);
  command.Add("--without", arguments.without, "Switch a check off; may be repeated")
      .TypeName("NAME")
      .OneValueEach();
  command.Add("--fix-hints", arguments.printing.withHints, "Say what to do about each finding");
  command.Add("--json", arguments.printing.asJson, "Print JSON");
  command.Add("--list", arguments.list, "List all checks");
  command.Add("--explain", arguments.explained, "Explain a check, with an example")
      .TypeName("NAME");
}

}  // namespace

void AddCheckCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command =
      program.AddCommand("check", "Find what the library would silently ignore or misread");
  AddOptions(command, *arguments);
  command.Footer(
      "Prints one line a finding, which editors can jump to:\n"
      "  file:line: severity: message [check-name]\n"
      "Exit status: 0 nothing found, 1 findings, 2 a file or the settings could not be read.\n\n"
      "Examples:\n"
      "  analytics-settingsctl check analytics.ini\n"
      "  analytics-settingsctl check --fix-hints --settings analytics.ini profile.xml\n"
      "  analytics-settingsctl check --without missing-slash analytics.ini\n"
      "  analytics-settingsctl check --explain repeated-item");
  command.Callback([arguments] { Run(*arguments); });
}

}  // namespace settingsctl
