#include "check/SettingsVocabulary.h"

#include <algorithm>
#include <map>
#include <set>

#include "check/Elements.h"

namespace settingsctl {
namespace {

/// The settings by the name of their own element.
std::multimap<std::string, const Setting*> SettingsByName() {
  std::multimap<std::string, const Setting*> settings;
  for (const Setting& setting : AllSettings()) settings.emplace(LastName(setting), &setting);
  return settings;
}

/// The names of a path, the innermost first: "rule", "tags".
std::vector<std::string> NamesFromInside(const std::string& path) {
  std::vector<std::string> names;
  std::size_t end = path.size();
  while (end != std::string::npos) {
    const std::size_t slash = end == 0 ? std::string::npos : path.rfind('/', end - 1);
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    names.push_back(path.substr(start, end - start));
    end = slash;
  }
  return names;
}

/// Settings are found by their path alone, at any depth.
bool Fits(const xmlNode* element, const Setting& setting) {
  for (const std::string& name : NamesFromInside(setting.path)) {
    if (!IsElement(element, "", name)) return false;
    element = element->parent;
  }
  return true;
}

std::vector<std::string> CollectNames() {
  std::set<std::string> names = {"variables", "variable"};
  for (const Setting& setting : AllSettings()) {
    for (const std::string& name : NamesFromInside(setting.path)) names.insert(name);
  }
  return {names.begin(), names.end()};
}

/// What a known element holds; elements that are not known may hold what the root element holds.
const std::map<std::string, std::vector<std::string>>& Contents() {
  static const std::map<std::string, std::vector<std::string>> s_contents = {
      {"tags",
       {"profile", "mediaSource", "engines", "engine", "rules", "rule", "eventSinks", "eventSink",
        "cameraPreset"}},
      {"namespaces", {"onvif", "kestal"}},
      {"onvif", {"url", "prefix"}},
      {"kestal", {"url", "prefix"}},
      {"variables", {"variable"}},
  };
  return s_contents;
}

std::vector<std::string> TopNames() {
  std::vector<std::string> names = {"tags", "namespaces", "variables"};
  for (const Setting& setting : AllSettings()) {
    if (setting.path.find('/') == std::string::npos) names.push_back(setting.path);
  }
  return names;
}

}  // namespace

const std::vector<Setting>& AllSettings() {
  static const std::vector<Setting> s_settings = {
      {"maxSessions", SettingKind::kNumber},
      {"maxResource", SettingKind::kNumber},
      {"pluginRepository", SettingKind::kDirectory},
      {"videoInputFile", SettingKind::kText},
      {"quadOutputFile", SettingKind::kText},
      {"tags/profile", SettingKind::kTag},
      {"tags/mediaSource", SettingKind::kTag},
      {"tags/engines", SettingKind::kTag},
      {"tags/engine", SettingKind::kTag},
      {"tags/rules", SettingKind::kTag},
      {"tags/rule", SettingKind::kTag},
      {"tags/eventSinks", SettingKind::kTag},
      {"tags/eventSink", SettingKind::kTag},
      {"tags/cameraPreset", SettingKind::kTag},
      {"profile4DefaultModules", SettingKind::kText},
      {"namespaces/kestal/url", SettingKind::kUri},
      {"namespaces/kestal/prefix", SettingKind::kPrefix},
      {"namespaces/onvif/url", SettingKind::kUri},
      {"namespaces/onvif/prefix", SettingKind::kPrefix},
      {"userdataPipe", SettingKind::kPipe},
  };
  return s_settings;
}

const Setting* SettingOf(const xmlNode* element) {
  static const std::multimap<std::string, const Setting*> s_byName = SettingsByName();
  const auto range = s_byName.equal_range(NameOf(element));
  for (auto entry = range.first; entry != range.second; ++entry) {
    if (Fits(element, *entry->second)) return entry->second;
  }
  return nullptr;
}

const Setting* SettingOfPath(const std::string& path) {
  const auto& all = AllSettings();
  return &*std::find_if(all.begin(), all.end(),
                        [&path](const Setting& setting) { return setting.path == path; });
}

std::string LastName(const Setting& setting) { return NamesFromInside(setting.path).front(); }

std::string ShownPath(const Setting& setting) {
  std::string shown;
  for (const std::string& name : NamesFromInside(setting.path)) {
    shown.insert(0, "<" + name + ">");
  }
  return shown;
}

const std::vector<std::string>& KnownNames() {
  static const std::vector<std::string> s_names = CollectNames();
  return s_names;
}

std::vector<std::string> NamesBelow(const xmlNode* parent) {
  const auto found = Contents().find(NameOf(parent));
  return found == Contents().end() ? TopNames() : found->second;
}

}  // namespace settingsctl
