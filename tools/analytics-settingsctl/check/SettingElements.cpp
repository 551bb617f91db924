#include <algorithm>
#include <set>

#include "check/Elements.h"
#include "check/MeantSettings.h"
#include "check/SettingsChecks.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

bool IsName(const Setting& setting) {
  return setting.kind == SettingKind::kTag || setting.kind == SettingKind::kPrefix ||
         setting.kind == SettingKind::kUri;
}

/// Numbers and pipes have built-in values also where the file lacks them.
bool IsEmptiedWhenMissing(const Setting& setting) {
  return setting.kind != SettingKind::kNumber && setting.kind != SettingKind::kPipe;
}

bool IsFound(const CheckedSettings& settings, const Setting& setting) {
  return settings.found.count(&setting) != 0;
}

int CountKnown(const xmlNode* element) {
  int count = element->ns && IsKnownName(NameOf(element)) ? 1 : 0;
  for (const xmlNode* child = element->children; child; child = child->next) {
    if (child->type == XML_ELEMENT_NODE) count += CountKnown(child);
  }
  return count;
}

/// Whether the file is lost as a whole because its root puts it into a namespace.
bool IsLostInNamespace(const CheckedSettings& settings) {
  return settings.root->ns && settings.found.empty() && CountKnown(settings.root) > 0 &&
         settings.findings.IsWanted("namespaced-element");
}

/// The settings whose lack follows from a misspelling or a namespace that is a finding itself; none
/// if somebody does not want to be told of those.
std::set<const Setting*> ExplainedSettings(const CheckedSettings& settings) {
  const Findings& findings = settings.findings;
  if (!findings.IsWanted("misspelt-element") || !findings.IsWanted("namespaced-element")) return {};
  std::set<const Setting*> explained;
  for (const xmlNode* element : settings.elements) {
    if (const Setting* setting = MeantSetting(element)) explained.insert(setting);
  }
  return explained;
}

void CheckMissing(const CheckedSettings& settings) {
  if (IsLostInNamespace(settings)) return;
  const std::set<const Setting*> explained = ExplainedSettings(settings);
  for (const Setting& setting : AllSettings()) {
    if (!IsEmptiedWhenMissing(setting) || IsFound(settings, setting)) continue;
    if (explained.count(&setting) != 0) continue;
    settings.findings.Add(IsName(setting) ? "empty-name" : "missing-text", LineOf(settings.root),
                          "the file has no " + ShownPath(setting) +
                              ", so the library uses an empty text instead of the built-in one" +
                              (IsName(setting) ? " and queries with it find nothing" : ""));
  }
}

void CheckRepeated(const CheckedSettings& settings) {
  for (const auto& [setting, elements] : settings.found) {
    if (setting->kind == SettingKind::kPipe) continue;
    for (std::size_t index = 1; index < elements.size(); ++index) {
      settings.findings.Add("repeated-setting", LineOf(elements[index]),
                            ShownPath(*setting) + " is ignored: the one on line " +
                                std::to_string(LineOf(elements.front())) + " counts");
    }
  }
}

void CheckSpelling(const CheckedSettings& settings, const xmlNode* element) {
  const std::string meant = MisspeltName(element);
  if (meant.empty()) return;
  settings.findings.Add(
      "misspelt-element", LineOf(element),
      "the library does not know <" + NameOf(element) + ">: did you mean <" + meant + ">?");
}

/// The setting that the file lacks and whose name the element has; null if there is none.
const Setting* LackedSetting(const CheckedSettings& settings, const xmlNode* element) {
  const auto& all = AllSettings();
  const auto lacked = std::find_if(all.begin(), all.end(), [&](const Setting& setting) {
    return LastName(setting) == NameOf(element) && !IsFound(settings, setting);
  });
  return lacked == all.end() ? nullptr : &*lacked;
}

bool IsStrayVariable(const xmlNode* element) {
  if (!IsElement(element, "", "variable")) return false;
  return element->parent->type != XML_ELEMENT_NODE || MeantName(element->parent) != "variables";
}

void CheckPlace(const CheckedSettings& settings, const xmlNode* element) {
  if (element->ns || MeantSetting(element)) return;
  if (IsStrayVariable(element)) {
    settings.findings.Add("misplaced-setting", LineOf(element),
                          "<variable> defines nothing here: variables are read from <variables>");
  }
  const Setting* lacked = LackedSetting(settings, element);
  if (!lacked) return;
  settings.findings.Add("misplaced-setting", LineOf(element),
                        "<" + NameOf(element) + "> is not read here: the setting is read from " +
                            ShownPath(*lacked) + ", which the file lacks");
}

/// One finding for a whole tree of elements in namespaces: a single declaration puts them there.
void CheckNamespace(const CheckedSettings& settings, const xmlNode* element) {
  const bool isTopmost = element->ns && (element == settings.root || !element->parent->ns);
  if (!isTopmost) return;
  const int known = CountKnown(element);
  if (known == 0) return;
  settings.findings.Add("namespaced-element", LineOf(element),
                        "<" + WrittenName(element) + "> is in the namespace " +
                            Quoted(NamespaceOf(element)) + ", where the library never finds " +
                            (known == 1 ? "a setting" : "settings") + ": " + std::to_string(known) +
                            (known == 1 ? " element is lost" : " elements are lost"));
}

}  // namespace

void CheckSettingElements(const CheckedSettings& settings) {
  for (const xmlNode* element : settings.elements) {
    CheckSpelling(settings, element);
    CheckPlace(settings, element);
    CheckNamespace(settings, element);
  }
  CheckMissing(settings);
  CheckRepeated(settings);
}

}  // namespace settingsctl
