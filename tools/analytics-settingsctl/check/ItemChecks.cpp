#include <algorithm>
#include <unordered_map>

#include <analytics/DocumentNode.h>

#include "check/Elements.h"
#include "check/Number.h"
#include "check/ProfileChecks.h"
#include "input/Attributes.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

using FirstItems = std::unordered_map<std::string, xmlNode*>;

/// All items of an owner, in order; also those of a second "Parameters".
std::vector<xmlNode*> ItemsOf(const ProfileVocabulary& words, xmlNode* owner,
                              const std::string& kind) {
  std::vector<xmlNode*> items;
  for (xmlNode* parameters : Children(owner, words.onvifNs, "Parameters")) {
    const std::vector<xmlNode*> found = Children(parameters, words.onvifNs, kind);
    items.insert(items.end(), found.begin(), found.end());
  }
  return items;
}

/// What becomes of two items of one name, for messages.
std::string OfTwo(xmlNode* first) {
  const std::string line = std::to_string(LineOf(first));
  if (NameOf(first) == "ElementItem") return "the one on line " + line + " comes first in queries";
  return "the one on line " + line + ", with " + Quoted(Attribute(first, "Value")) + ", counts";
}

void CheckRepeated(const CheckedProfile& checked, xmlNode* owner, const std::string& kind) {
  FirstItems first;
  for (xmlNode* item : ItemsOf(checked.words, owner, kind)) {
    const std::string name = PlainAttribute(item, "Name");
    if (name.empty() || first.insert({name, item}).second) continue;
    checked.findings.Add("repeated-item", LineOf(item),
                         "the " + kind + " " + Quoted(name) + " occurs twice in this " +
                             KindOf(checked.words, owner) + ": " + OfTwo(first.at(name)));
  }
}

/// The first item "Active" of a rule; null if there is none.
xmlNode* ActiveItem(const ProfileVocabulary& words, xmlNode* rule) {
  const std::vector<xmlNode*> items = ItemsOf(words, rule, "SimpleItem");
  const auto active = std::find_if(items.begin(), items.end(), [](xmlNode* item) {
    return PlainAttribute(item, "Name") == "Active";
  });
  return active == items.end() ? nullptr : *active;
}

void CheckActive(const CheckedProfile& checked, xmlNode* rule) {
  xmlNode* item = ActiveItem(checked.words, rule);
  if (!item) return;
  analytics::DocumentNode node(rule);
  const std::string text = checked.profile.GetSimpleItemValue("Active", &node, true);
  const NumberForm form = FormOfNumber(text);
  if (form != NumberForm::kNone && form != NumberForm::kBlank) return;
  const int number = checked.profile.GetSimpleItemValue("Active", 0, &node, true);
  checked.findings.Add("active-not-a-number", LineOf(item),
                       "Active is " + Quoted(text) + ", which reads as " + std::to_string(number) +
                           ": the rule counts as inactive");
}

/// The lines on which simple items of each name first were plain numbers.
using PlainLines = std::unordered_map<std::string, int>;

bool IsSimpleItem(const ProfileVocabulary& words, const xmlNode* element) {
  return words.IsItem(element) && NameOf(element) == "SimpleItem";
}

PlainLines FindPlainNumbers(const CheckedProfile& checked) {
  PlainLines plain;
  for (xmlNode* element : checked.elements) {
    if (!IsSimpleItem(checked.words, element)) continue;
    if (FormOfNumber(Attribute(element, "Value")) != NumberForm::kPlain) continue;
    plain.insert({PlainAttribute(element, "Name"), LineOf(element)});
  }
  return plain;
}

/// Nothing in the file says that an item is a number, so its other occurrences must.
void CheckNumber(const CheckedProfile& checked, xmlNode* item, const PlainLines& plain) {
  const std::string text = Attribute(item, "Value");
  const NumberForm form = FormOfNumber(text);
  const bool isTrailing = form == NumberForm::kTrailing;
  const std::string name = PlainAttribute(item, "Name");
  const auto elsewhere = plain.find(name);
  if ((!isTrailing && form != NumberForm::kOutOfRange) || elsewhere == plain.end()) return;
  checked.findings.Add(isTrailing ? "item-trailing-text" : "item-out-of-range", LineOf(item),
                       Quoted(name) + " is " + Quoted(text) + ", which reads as " +
                           std::to_string(IntAttribute(item, "Value")) +
                           " where an integer is asked for, as on line " +
                           std::to_string(elsewhere->second));
}

}  // namespace

void CheckItems(const CheckedProfile& checked) {
  const PlainLines plain = FindPlainNumbers(checked);
  for (xmlNode* element : checked.elements) {
    if (checked.words.IsOwner(element)) {
      CheckRepeated(checked, element, "SimpleItem");
      CheckRepeated(checked, element, "ElementItem");
    }
    if (checked.words.IsRule(element)) CheckActive(checked, element);
    if (IsSimpleItem(checked.words, element)) CheckNumber(checked, element, plain);
  }
}

}  // namespace settingsctl
