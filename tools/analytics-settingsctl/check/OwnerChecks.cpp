#include <algorithm>

#include <analytics/DocumentNode.h>

#include "check/Elements.h"
#include "check/LostAttributes.h"
#include "check/ProfileChecks.h"
#include "check/Similar.h"
#include "input/Attributes.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

/// The namespace in which the library looks for an owner of that name, for messages.
std::string WantedNamespace(const ProfileVocabulary& words, const xmlNode* element) {
  const bool isSink = KindOf(words, element) == "event sink";
  return (isSink ? "the vendor's, " : "ONVIF's, ") +
         Quoted(isSink ? words.kestalNs : words.onvifNs);
}

void CheckNamespace(const CheckedProfile& checked, const xmlNode* element) {
  if (!checked.words.IsLostOwner(element)) return;
  const std::string uri = NamespaceOf(element);
  const bool isKnown = uri == checked.words.onvifNs || uri == checked.words.kestalNs;
  checked.findings.Add(isKnown ? "wrong-namespace" : "unknown-namespace", LineOf(element),
                       "the " + KindOf(checked.words, element) + " <" + WrittenName(element) +
                           "> is never found: it is in " + ShownNamespace(element) +
                           " instead of " + WantedNamespace(checked.words, element));
}

void CheckType(const CheckedProfile& checked, xmlNode* element) {
  if (!checked.words.IsOwner(element)) return;
  const std::string type = PlainAttribute(element, "Type");
  const std::string kind = KindOf(checked.words, element);
  if (!CheckLostAttribute(checked.findings, element, "Type") && type.empty()) {
    checked.findings.Add("missing-type", LineOf(element),
                         "the " + kind + " has no Type, so nothing that asks for a type finds it");
  }
  if (type.find('"') == std::string::npos) return;
  checked.findings.Add("quoted-type", LineOf(element),
                       "the type " + Quoted(type) + " of the " + kind +
                           " cannot be asked for: it holds a double quote");
}

/// The name that an element is probably meant to have; empty if it seems right.
///
/// Names that the settings give to something else are right, however near they are.
std::string MeantName(const ProfileVocabulary& words, const xmlNode* element) {
  const std::string name = NameOf(element);
  const auto& others = words.containerTags;
  if (std::find(others.begin(), others.end(), name) != others.end()) return {};
  if (words.IsParameters(element->parent)) return SimilarWord(name, {"SimpleItem", "ElementItem"});
  if (words.IsOwner(element->parent)) return SimilarWord(name, {"Parameters"});
  if (words.IsBelowOwner(element)) return {};
  return SimilarWord(name, {words.ruleTag, words.engineTag, words.eventSinkTag});
}

void CheckSpelling(const CheckedProfile& checked, const xmlNode* element) {
  const std::string meant = MeantName(checked.words, element);
  if (meant.empty()) return;
  checked.findings.Add("misspelt-element", LineOf(element),
                       "the library does not look for <" + WrittenName(element) +
                           ">: did you mean " + Quoted(meant) + "?");
}

std::size_t CountAndFree(const std::vector<analytics::DocumentNode*>& nodes) {
  for (const analytics::DocumentNode* node : nodes) delete node;
  return nodes.size();
}

std::size_t CountFound(analytics::ProfileDoc& profile) {
  return CountAndFree(profile.SelectRules("")) + CountAndFree(profile.SelectEngines("")) +
         CountAndFree(profile.SelectEventSinks(""));
}

std::size_t CountHeld(const CheckedProfile& checked) {
  const auto& elements = checked.elements;
  return static_cast<std::size_t>(
      std::count_if(elements.begin(), elements.end(),
                    [&](const xmlNode* element) { return checked.words.IsOwner(element); }));
}

}  // namespace

bool CheckQueries(const CheckedProfile& checked) {
  const std::size_t held = CountHeld(checked);
  const std::size_t found = CountFound(checked.profile);
  const int line = checked.elements.empty() ? 1 : LineOf(checked.elements.front());
  if (found == 0 && held == 0) {
    checked.findings.Add("nothing-found", line,
                         "the library finds no rule, engine or event sink in this file");
  }
  if (found >= held) return true;
  checked.findings.Add("unusable-prefix", line,
                       "the library finds " + std::to_string(found) + " of " +
                           std::to_string(held) +
                           " rules, engines and event sinks: queries with the settings' prefixes " +
                           Quoted(checked.words.onvifPrefix) + " and " +
                           Quoted(checked.words.kestalPrefix) + " fail");
  return false;
}

void CheckOwners(const CheckedProfile& checked) {
  for (xmlNode* element : checked.elements) {
    CheckNamespace(checked, element);
    CheckType(checked, element);
    CheckSpelling(checked, element);
  }
}

}  // namespace settingsctl
