#include <iostream>
#include <memory>
#include <string>

#include "Commands.h"
#include "input/NamedSettings.h"
#include "input/SettingsFile.h"
#include "input/Variables.h"
#include "output/Json.h"
#include "output/Table.h"
#include "output/TextWidth.h"

namespace settingsctl {
namespace {

constexpr const char* kExamples = R"(Examples:
  analytics-settingsctl settings                     the file that the library finds
  ANALYTICS_INI='~/camera/*.ini' analytics-settingsctl settings
  analytics-settingsctl settings analytics.ini
  analytics-settingsctl settings analytics.ini --json | jq .settings

A text setting that the file lacks is empty, even where the library has a built-in
value: that one applies only as long as no file has been read. Exit status: 1 if the
file that the library finds cannot be used and its built-in values apply, 2 if FILE
cannot be used.
)";

struct Arguments {
  std::string file;
  bool asJson = false;
};

std::string ShownValue(const NamedSetting& setting) {
  std::string text;
  for (const std::string& value : setting.values) {
    text += (text.empty() ? "" : "\n") + Printable(value);
  }
  return text.empty() ? "-" : text;
}

std::string ShownValue(const Variable& variable) {
  if (!variable.problem.empty()) return Printable(variable.value) + "\n(" + variable.problem + ")";
  if (variable.expanded == variable.value) return Printable(variable.value);
  return Printable(variable.value) + "\n= " + Printable(variable.expanded);
}

void WriteTables(const SettingsFile& file) {
  std::cout << "File:     " << Printable(file.path) << "\nFound by: " << Printable(file.origin)
            << "\n";
  if (!file.problem.empty()) std::cout << "Unusable: " << Printable(file.problem) << "\n";
  Table settings({"SETTING", "VALUE", "FROM"});
  for (const NamedSetting& setting : NamedSettings(file)) {
    settings.Add({setting.name, ShownValue(setting), setting.source});
  }
  std::cout << "\n";
  settings.Write(std::cout);
  Table variables({"VARIABLE", "VALUE", "FROM"});
  const std::vector<Variable> known = Variables(file);
  for (const Variable& variable : known) {
    variables.Add({variable.name, ShownValue(variable), "line " + std::to_string(variable.line)});
  }
  if (!known.empty()) std::cout << "\n";
  variables.Write(std::cout);
}

Json ValueJson(const NamedSetting& setting) {
  if (setting.name == "userdataPipe") return setting.values;
  if (setting.isNumber) return std::stoll(setting.values.front());
  return setting.values.front();
}

Json SettingJson(const NamedSetting& setting) {
  Json json{{"name", setting.name}, {"value", ValueJson(setting)}, {"source", setting.source}};
  if (setting.line > 0) json["line"] = setting.line;
  return json;
}

Json VariableJson(const Variable& variable) {
  Json json{{"name", variable.name}, {"value", variable.value}, {"line", variable.line}};
  if (variable.problem.empty()) {
    json["expanded"] = variable.expanded;
  } else {
    json["problem"] = variable.problem;
  }
  return json;
}

void WriteJson(const SettingsFile& file) {
  Json json{{"file", file.path}, {"foundBy", file.origin}};
  if (!file.problem.empty()) json["problem"] = file.problem;
  json["settings"] = Json::array();
  for (const NamedSetting& setting : NamedSettings(file)) {
    json["settings"].push_back(SettingJson(setting));
  }
  json["variables"] = Json::array();
  for (const Variable& variable : Variables(file)) {
    json["variables"].push_back(VariableJson(variable));
  }
  PrintJson(json);
}

void Show(const Arguments& arguments) {
  const SettingsFile file = LoadSettingsFile(arguments.file);
  arguments.asJson ? WriteJson(file) : WriteTables(file);
  if (!file.problem.empty()) throw ExitStatus{1};
}

}  // namespace

void AddSettingsCommand(CommandLine& program) {
  const auto arguments = std::make_shared<Arguments>();
  const Command command =
      program.AddCommand("settings", "Show every setting, its value and where it comes from");
  command.Add("FILE", arguments->file, "Settings file; else the one that is found");
  command.Add("--json", arguments->asJson, "For other programs");
  command.Footer(kExamples);
  command.Callback([arguments] { Show(*arguments); });
}

}  // namespace settingsctl
