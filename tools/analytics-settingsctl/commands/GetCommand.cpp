#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include <analytics/Settings.h>
#include <libxml/xpath.h>

#include "Commands.h"
#include "Failure.h"
#include "input/SettingsFile.h"
#include "input/SettingsOption.h"

namespace settingsctl {
namespace {

constexpr const char* kExamples = R"(Examples:
  analytics-settingsctl get //maxSessions
  analytics-settingsctl get //maxSessions --int 7       as the runtime asks for a number
  analytics-settingsctl get //userdataPipe --all
  analytics-settingsctl get '//variables/variable[@name="root"]/@value' --settings analytics.ini

XPATH is XPath 1.0 without namespace prefixes. The first match counts; its text is
printed as it is. Exit status: 1 if the runtime would get an empty text or has no
settings file that it can use, 2 if XPATH or the FILE of --settings cannot be used.
)";

struct Arguments {
  std::string path;
  std::string settings;
  bool all = false;
  std::optional<int> number;
};

struct DeleteExpression {
  void operator()(xmlXPathCompExpr* expression) const noexcept { xmlXPathFreeCompExpr(expression); }
};

/// The library takes an expression that does not compile for one that matches nothing.
void RequireExpression(const std::string& path) {
  const std::unique_ptr<xmlXPathCompExpr, DeleteExpression> compiled(
      xmlXPathCompile(reinterpret_cast<const xmlChar*>(path.c_str())));
  if (!compiled)
    throw Failure("'" + path +
                  "' is not an XPath 1.0 expression; see analytics-settingsctl get --help");
}

void PrintTexts(const Arguments& arguments, const SettingsFile& file) {
  std::vector<std::string> texts = analytics::Settings::GetValues(arguments.path);
  const std::string first = analytics::Settings::GetValue(arguments.path);
  if (arguments.all) {
    for (const std::string& text : texts) std::cout << text << "\n";
  } else {
    std::cout << first << "\n";
  }
  if (arguments.all ? !texts.empty() : !first.empty()) return;
  RequireUsable(file);
  throw Failure(file.input->name + ": " + arguments.path +
                    " has no text, so the runtime gets none; add one if it needs it",
                1);
}

void Get(const Arguments& arguments) {
  RequireExpression(arguments.path);
  const SettingsFile file = LoadSettingsFile(arguments.settings);
  if (!arguments.number) return PrintTexts(arguments, file);
  std::cout << analytics::Settings::GetValue(arguments.path, *arguments.number) << "\n";
  RequireUsable(file);
}

}  // namespace

void AddGetCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command = program.AddCommand("get", "Query the settings file as the runtime would");
  command.Add("XPATH", arguments->path, "What to look for, such as //maxSessions").Required();
  const CommandOption all =
      command.Add("--all", arguments->all, "All texts that are not empty, a line each");
  command.Add("--int", arguments->number, "As an integer, DEFAULT where there is no text")
      .TypeName("DEFAULT")
      .Excludes(all);
  AddSettingsOption(command, arguments->settings);
  command.Footer(kExamples);
  command.Callback([arguments] { Get(*arguments); });
}

}  // namespace settingsctl
