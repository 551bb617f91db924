#include "check/SettingsVocabulary.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "check/Elements.h"

namespace settingsctl {
namespace {

using SettingsTable = std::multimap<std::string, const Setting*>;

SettingsTable TableByName() {
  SettingsTable table;
  for (const Setting& setting : AllSettings()) table.emplace(LastName(setting), &setting);
  return table;
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

std::vector<const Setting*> SettingsNamed(const std::string& name) {
  static const SettingsTable s_table = TableByName();
  std::vector<const Setting*> settings;
  const auto range = s_table.equal_range(name);
  std::transform(range.first, range.second, std::back_inserter(settings),
                 [](const auto& entry) { return entry.second; });
  return settings;
}

const Setting* SettingOf(const xmlNode* element) {
  const std::vector<const Setting*> named = SettingsNamed(NameOf(element));
  const auto found = std::find_if(named.begin(), named.end(), [element](const Setting* setting) {
    return Fits(element, *setting);
  });
  return found == named.end() ? nullptr : *found;
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

bool IsKnownName(const std::string& name) {
  return std::binary_search(KnownNames().begin(), KnownNames().end(), name);
}

std::vector<std::string> NamesBelow(const xmlNode* parent) {
  const auto found = Contents().find(NameOf(parent));
  return found == Contents().end() ? TopNames() : found->second;
}

}  // namespace settingsctl
