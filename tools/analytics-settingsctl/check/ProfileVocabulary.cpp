#include "check/ProfileVocabulary.h"

#include <analytics/Settings.h>

#include "check/Elements.h"
#include "check/Findings.h"

namespace settingsctl {
namespace {

template <typename Condition>
bool HasAncestor(const xmlNode* element, Condition condition) {
  for (const xmlNode* above = element->parent; above && above->type == XML_ELEMENT_NODE;
       above = above->parent) {
    if (condition(above)) return true;
  }
  return false;
}

/// The white space that a query allows behind a tag, which still finds its elements.
std::string WithoutBlanksBehind(const std::string& tag) {
  return tag.substr(0, tag.find_last_not_of(" \t\r\n") + 1);
}

}  // namespace

ProfileVocabulary ProfileVocabulary::OfSettings() {
  using analytics::Settings;
  return {Settings::OnvifNs(),
          Settings::OnvifPrefix(),
          Settings::KestalNs(),
          Settings::KestalPrefix(),
          WithoutBlanksBehind(Settings::RuleTag()),
          WithoutBlanksBehind(Settings::EngineTag()),
          WithoutBlanksBehind(Settings::EventSinkTag()),
          {Settings::RulesTag(), Settings::EnginesTag(), Settings::EventSinksTag(),
           Settings::ProfileTag(), Settings::MediaSourceTag(), Settings::CameraPresetTag()}};
}

bool ProfileVocabulary::IsRule(const xmlNode* element) const {
  return IsElement(element, onvifNs, ruleTag);
}

bool ProfileVocabulary::IsEngine(const xmlNode* element) const {
  return IsElement(element, onvifNs, engineTag);
}

bool ProfileVocabulary::IsEventSink(const xmlNode* element) const {
  return IsElement(element, kestalNs, eventSinkTag);
}

bool ProfileVocabulary::IsRuleOrEngine(const xmlNode* element) const {
  return IsRule(element) || IsEngine(element);
}

bool ProfileVocabulary::IsOwner(const xmlNode* element) const {
  return IsRuleOrEngine(element) || IsEventSink(element);
}

bool ProfileVocabulary::IsLostOwner(const xmlNode* element) const {
  if (!element || element->type != XML_ELEMENT_NODE || IsOwner(element)) return false;
  const std::string name = NameOf(element);
  const bool hasTag = name == ruleTag || name == engineTag || name == eventSinkTag;
  return hasTag && !IsContent(element);
}

bool ProfileVocabulary::IsParameters(const xmlNode* element) const {
  return IsElement(element, onvifNs, "Parameters") && IsOwner(element->parent);
}

bool ProfileVocabulary::IsItem(const xmlNode* element) const {
  const bool isItem =
      IsElement(element, onvifNs, "SimpleItem") || IsElement(element, onvifNs, "ElementItem");
  return isItem && IsParameters(element->parent);
}

bool ProfileVocabulary::IsContent(const xmlNode* element) const {
  return HasAncestor(element, [this](const xmlNode* above) {
    return IsElement(above, onvifNs, "ElementItem") &&
           IsElement(above->parent, onvifNs, "Parameters");
  });
}

bool ProfileVocabulary::IsBelowOwner(const xmlNode* element) const {
  return HasAncestor(element, [this](const xmlNode* above) { return IsOwner(above); });
}

bool ProfileVocabulary::IsBelowLostOwner(const xmlNode* element) const {
  return HasAncestor(element, [this](const xmlNode* above) { return IsLostOwner(above); });
}

std::string KindOf(const ProfileVocabulary& words, const xmlNode* element) {
  const std::string name = NameOf(element);
  if (name == words.ruleTag) return "rule";
  return name == words.engineTag ? "engine" : "event sink";
}

std::string ShownNamespace(const xmlNode* element) {
  const std::string uri = NamespaceOf(element);
  return uri.empty() ? "no namespace" : "the namespace " + Quoted(uri);
}

}  // namespace settingsctl
