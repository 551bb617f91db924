#include "input/SettingsFile.h"

#include <cstdlib>

#include <analytics/Settings.h>

#include "Failure.h"
#include "input/MemoryFile.h"
#include "input/XmlInput.h"
#include "settings/SettingsPath.h"

namespace settingsctl {
namespace {

std::string OriginOf(const std::string& path) {
  const char* const variable = std::getenv(kSettingsVariable);
  if (!variable) return "the built-in path, as ANALYTICS_INI is not set";
  if (path == variable) return "ANALYTICS_INI";
  if (path == analytics::kBuiltInSettingsPath) {
    return "the built-in path, as ANALYTICS_INI expands to nothing";
  }
  return std::string("ANALYTICS_INI, expanded from '") + variable + "'";
}

SettingsFile Found(const std::string& file) {
  if (!file.empty()) return {file, "the command line", {}, {}};
  std::string path = analytics::ResolveSettingsPath();
  // An empty first word is what the library takes for no path at all.
  if (path.empty()) path = analytics::kBuiltInSettingsPath;
  return {path, OriginOf(path), {}, {}};
}

/// Lets the library's first use load these bytes, so that it never reads another file.
bool Load(const std::string& path) {
  setenv(kSettingsVariable, path.c_str(), 1);
  return analytics::Settings::LoadSettings(path);
}

void LoadText(const Input& input) {
  XmlInput(input).RequireDocument(input);
  const MemoryFile file(input.text);
  if (Load(file.Path())) return;
  throw Failure(input.name + ": cannot be parsed by the library; see what `check` finds in it");
}

/// A path at which there is never a file.
constexpr char kNoFile[] = "/dev/null/analytics.ini";

}  // namespace

SettingsFile LoadSettingsFile(const std::string& file) {
  SettingsFile settings = Found(file);
  try {
    settings.input = ReadInput(settings.path);
    LoadText(*settings.input);
  } catch (const Failure& failure) {
    if (!file.empty()) throw;
    settings.input.reset();
    settings.problem = failure.what();
    Load(kNoFile);
  }
  return settings;
}

void RequireUsable(const SettingsFile& file) {
  if (file.problem.empty()) return;
  throw Failure("the runtime has no settings file here, because " + file.problem +
                    ", or name one with --settings",
                1);
}

}  // namespace settingsctl
