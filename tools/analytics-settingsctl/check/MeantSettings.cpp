#include "check/MeantSettings.h"

#include <algorithm>

#include "check/Elements.h"
#include "check/Similar.h"

namespace settingsctl {
namespace {

bool IsRoot(const xmlNode* element) { return element->parent->type != XML_ELEMENT_NODE; }

bool FitsAsMeant(const xmlNode* element, const Setting& setting) {
  const std::vector<std::string> names = NamesFromInside(setting.path);
  const xmlNode* level = element;
  return std::all_of(names.begin(), names.end(), [&level](const std::string& name) {
    if (level->type != XML_ELEMENT_NODE || MeantName(level) != name) return false;
    level = level->parent;
    return true;
  });
}

}  // namespace

std::string MisspeltName(const xmlNode* element) {
  if (IsRoot(element) || element->ns || IsKnownName(NameOf(element))) return {};
  return SimilarWord(NameOf(element), NamesBelow(element->parent));
}

std::string MeantName(const xmlNode* element) {
  const std::string name = MisspeltName(element);
  return name.empty() ? NameOf(element) : name;
}

const Setting* MeantSetting(const xmlNode* element) {
  const std::vector<const Setting*> named = SettingsNamed(MeantName(element));
  const auto meant = std::find_if(named.begin(), named.end(), [element](const Setting* setting) {
    return FitsAsMeant(element, *setting);
  });
  return meant == named.end() ? nullptr : *meant;
}

}  // namespace settingsctl
