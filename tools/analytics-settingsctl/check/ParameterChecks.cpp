#include "check/Elements.h"
#include "check/LostAttributes.h"
#include "check/ProfileChecks.h"
#include "input/Attributes.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

bool IsItemName(const std::string& name) { return name == "SimpleItem" || name == "ElementItem"; }

/// What hangs below an owner that is not found is lost with it, and reported there.
void CheckPlaceOfParameters(const CheckedProfile& checked, const xmlNode* element) {
  const ProfileVocabulary& words = checked.words;
  if (!checked.placesAreKnown || !IsElement(element, words.onvifNs, "Parameters")) return;
  if (words.IsOwner(element->parent) || words.IsBelowLostOwner(element)) return;
  checked.findings.Add("misplaced-parameters", LineOf(element),
                       "<" + WrittenName(element) +
                           "> is never found: it is a child of no rule, engine or event sink");
}

void CheckNamespaceOfParameters(const CheckedProfile& checked, const xmlNode* element) {
  if (NameOf(element) != "Parameters" || NamespaceOf(element) == checked.words.onvifNs) return;
  if (!checked.words.IsOwner(element->parent)) return;
  checked.findings.Add("parameters-namespace", LineOf(element),
                       "<" + WrittenName(element) + "> is never found: it is in " +
                           ShownNamespace(element) + " instead of ONVIF's, " +
                           Quoted(checked.words.onvifNs));
}

/// "the SimpleItem 'Active'"; without a name if it has none.
std::string ShownItem(xmlNode* item) {
  const std::string name = PlainAttribute(item, "Name");
  return "the " + NameOf(item) + (name.empty() ? "" : " " + Quoted(name));
}

void CheckPlaceOfItem(const CheckedProfile& checked, xmlNode* element) {
  const ProfileVocabulary& words = checked.words;
  if (!IsItemName(NameOf(element)) || NamespaceOf(element) != words.onvifNs) return;
  const bool isInSomeParameters =
      element->parent->type == XML_ELEMENT_NODE && NameOf(element->parent) == "Parameters";
  if (isInSomeParameters || !words.IsBelowOwner(element)) return;
  checked.findings.Add("misplaced-item", LineOf(element),
                       ShownItem(element) + " is never found: it is no child of Parameters");
}

void CheckNamespaceOfItem(const CheckedProfile& checked, xmlNode* element) {
  const ProfileVocabulary& words = checked.words;
  if (!IsItemName(NameOf(element)) || NamespaceOf(element) == words.onvifNs) return;
  if (!words.IsParameters(element->parent)) return;
  checked.findings.Add("item-namespace", LineOf(element),
                       ShownItem(element) + " is never found: it is in " + ShownNamespace(element) +
                           " instead of ONVIF's, " + Quoted(words.onvifNs));
}

void CheckName(const CheckedProfile& checked, xmlNode* item) {
  if (!checked.words.IsItem(item)) return;
  const std::string name = PlainAttribute(item, "Name");
  if (!CheckLostAttribute(checked.findings, item, "Name") && name.empty()) {
    checked.findings.Add("unnamed-item", LineOf(item),
                         "the " + NameOf(item) + " has no Name, so it cannot be asked for");
  }
  // Element items are asked for by the caller's own queries, which may quote as they need.
  if (NameOf(item) != "SimpleItem" || name.find('\'') == std::string::npos) return;
  checked.findings.Add("quoted-name", LineOf(item),
                       ShownItem(item) + " cannot be asked for: its Name holds a single quote");
}

void CheckHasValue(const CheckedProfile& checked, xmlNode* item) {
  if (!checked.words.IsItem(item) || NameOf(item) != "SimpleItem") return;
  if (xmlHasProp(item, reinterpret_cast<const xmlChar*>("Value"))) return;
  checked.findings.Add("item-without-value", LineOf(item),
                       ShownItem(item) + " has no Value, so whoever reads it gets a default");
}

}  // namespace

void CheckParameters(const CheckedProfile& checked) {
  for (xmlNode* element : checked.elements) {
    CheckPlaceOfParameters(checked, element);
    CheckNamespaceOfParameters(checked, element);
    CheckPlaceOfItem(checked, element);
    CheckNamespaceOfItem(checked, element);
    CheckName(checked, element);
    CheckHasValue(checked, element);
  }
}

}  // namespace settingsctl
