#include <algorithm>

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

}  // namespace

void CheckOwners(const CheckedProfile& checked) {
  for (xmlNode* element : checked.elements) {
    CheckNamespace(checked, element);
    CheckType(checked, element);
    CheckSpelling(checked, element);
  }
}

}  // namespace settingsctl
