#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>

#include <tavrel/core/IniFile.h>
#include <tavrel/settings/IChangeCallback.h>
#include <tavrel/settings/TavrelSettingsClient.h>
#include <CLI/CLI.hpp>

#include "host/hostctl/IniOutput.h"
#include "host/hostctl/ResourceTable.h"
#include "host/tavrel-settings/Resource.h"
#include "host/tavrel-settings/Store.h"
#include "programs/EndSignals.h"

namespace {

using tavrel::core::IniFile;
using tavrel::settings::Store;
using tavrel::settings::TavrelSettingsClient;

const char* const kExamples = R"(Examples:
  hostctl set Resources/CPU Capacity 8
  hostctl set Imaging/WindowBlanking Enabled true
  hostctl get 'Imaging/WindowBlanking*'
  hostctl unset 'Imaging/WindowBlanking/Region#2' Name
  hostctl watch 'Imaging/*'

A PATTERN is the name of a group or, with a * at its end, what the names start with. The settings
are in the file that TAVREL_SETTINGS names, else in tavrel-settings.ini in $XDG_STATE_HOME or in
$HOME/.local/state. A value that starts with a dash goes behind --, unless a digit follows the dash,
as in a negative number.
)";

/// What the command line says.
struct Arguments {
  std::string pattern = "*";
  std::string group;
  std::string key;
  std::string value;
};

void Get(const Arguments& arguments) {
  IniFile settings;
  TavrelSettingsClient(TavrelSettingsClient::kQuery).GetSettings(arguments.pattern, settings);
  hostctl::WriteSettings(std::cout, settings);
}

void Set(const Arguments& arguments) {
  Store().Edit([&](IniFile& settings) {
    settings.SetValue(arguments.group, arguments.key, arguments.value);
  });
}

void UnsetGroup(const Arguments& arguments) {
  Store().Edit([&](IniFile& settings) { settings.RemoveGroup(arguments.group); });
}

void UnsetKey(const Arguments& arguments) {
  Store().Edit([&](IniFile& settings) { settings.RemoveKey(arguments.group, arguments.key); });
}

class ChangePrinter : public tavrel::settings::IChangeCallback {
 public:
  void OnSettingsChanged(TavrelSettingsClient* /*source*/, const IniFile& changes) override {
    hostctl::WriteChanges(std::cout, changes);
  }
};

void Watch(const Arguments& arguments) {
  const programs::EndSignals endSignals;
  ChangePrinter printer;
  TavrelSettingsClient client(TavrelSettingsClient::kObserve);
  // What is got here is what changes are told against, so none is missed after the first line.
  IniFile settings;
  client.GetSettings(arguments.pattern, settings);
  std::cout << std::unitbuf << "# Watching " << arguments.pattern << " in " << Store().Path()
            << "\n";
  client.Subscribe(&printer, arguments.pattern);
  endSignals.Await();
}

void ShowResources() {
  Store().Inspect([](const IniFile& settings) {
    hostctl::WriteResources(std::cout, tavrel::settings::ReadResources(settings));
  });
}

void AddCommands(CLI::App& app, Arguments& arguments) {
  CLI::App* const get = app.add_subcommand("get", "Print the groups that match a pattern");
  get->add_option("PATTERN", arguments.pattern, "Which groups; all if left out");
  get->callback([&] { Get(arguments); });

  CLI::App* const set = app.add_subcommand("set", "Set a key, adding its group where missing");
  set->add_option("GROUP", arguments.group)->required();
  set->add_option("KEY", arguments.key)->required();
  set->add_option("VALUE", arguments.value)->required();
  set->callback([&] { Set(arguments); });

  CLI::App* const unset = app.add_subcommand("unset", "Remove a key or a whole group");
  unset->add_option("GROUP", arguments.group)->required();
  const CLI::Option* const unsetKey =
      unset->add_option("KEY", arguments.key, "The whole group if left out");
  // An empty key is one that is not there, not one that was left out: a script's empty variable
  // must not cost the whole group.
  unset->callback(
      [&, unsetKey] { unsetKey->count() > 0 ? UnsetKey(arguments) : UnsetGroup(arguments); });

  CLI::App* const watch = app.add_subcommand("watch", "Print each change until interrupted");
  watch->add_option("PATTERN", arguments.pattern, "Which groups; all if left out");
  watch->callback([&] { Watch(arguments); });

  app.add_subcommand("resources", "Print who has claimed what of the shared resources")
      ->callback(ShowResources);
}

int Run(int argc, char** argv) {
  CLI::App app("Shows and sets the settings of the host platform.", "hostctl");
  Arguments arguments;
  AddCommands(app, arguments);
  app.require_subcommand(1);
  app.footer(kExamples);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& help) {
    return app.exit(help);
  }
  if (!std::cout.flush()) throw std::runtime_error("cannot write the output");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "hostctl: " << error.what() << "\n";
    return 1;
  }
}
