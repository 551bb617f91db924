#include <analytics/DocumentNode.h>

#include "check/Elements.h"
#include "check/Number.h"
#include "check/ProfileChecks.h"
#include "input/Attributes.h"
#include "input/CalibrationContents.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

bool IsCalibrationItem(const ProfileVocabulary& words, xmlNode* element) {
  return IsElement(element, words.onvifNs, "ElementItem") && words.IsItem(element) &&
         PlainAttribute(element, "Name") == "Calibration";
}

/// Whether the library reads a calibration from this element.
bool IsRead(const ProfileVocabulary& words, const xmlNode* element) {
  return IsElement(element, words.kestalNs, "Calibration") &&
         IsCalibrationItem(words, element->parent) &&
         words.IsRuleOrEngine(element->parent->parent->parent);
}

bool IsMeantAsCalibration(const ProfileVocabulary& words, const xmlNode* element) {
  return NameOf(element) == "Calibration" &&
         (NamespaceOf(element) == words.kestalNs || IsCalibrationItem(words, element->parent));
}

void CheckPlace(const CheckedProfile& checked, const xmlNode* element) {
  const ProfileVocabulary& words = checked.words;
  if (!IsMeantAsCalibration(words, element) || IsRead(words, element)) return;
  if (!checked.placesAreKnown || words.IsBelowLostOwner(element)) return;
  const bool isInPlace = NamespaceOf(element) != words.kestalNs;
  checked.findings.Add("misplaced-calibration", LineOf(element),
                       "<" + WrittenName(element) + "> is never read: it is " +
                           (isInPlace ? "in " + ShownNamespace(element) + " instead of the vendor's"
                                      : "not in the ElementItem 'Calibration' of a rule's or "
                                        "engine's Parameters"));
}

std::vector<std::string> UnreadPieces(const CalibrationContents& contents) {
  std::vector<std::string> unread;
  if (!IsWhole(contents.nearLeft)) unread.emplace_back("ObjectAtNearLeft");
  if (!IsWhole(contents.nearWidth)) unread.emplace_back("NearWidth");
  if (!IsWhole(contents.farWidth)) unread.emplace_back("FarWidth");
  if (!contents.physicalHeight) unread.emplace_back("PhysicalHeight");
  return unread;
}

std::string Joined(const std::vector<std::string>& words) {
  std::string joined;
  for (const std::string& word : words) joined += (joined.empty() ? "" : ", ") + word;
  return joined;
}

void CheckHeight(const CheckedProfile& checked, xmlNode* calibration) {
  for (xmlNode* height : Children(calibration, checked.words.kestalNs, "PhysicalHeight")) {
    analytics::DocumentNode node(height);
    const NumberForm form = FormOfNumber(node.GetValue());
    if (form == NumberForm::kPlain || form == NumberForm::kBlank) continue;
    checked.findings.Add("incomplete-calibration", LineOf(height),
                         "PhysicalHeight " + NumberProblem(form) + ": " + Quoted(node.GetValue()) +
                             " reads as " + std::to_string(node.GetValue(0)));
  }
}

void CheckPieces(const CheckedProfile& checked, xmlNode* item) {
  const auto calibrations = Children(item, checked.words.kestalNs, "Calibration");
  analytics::DocumentNode owner(item->parent->parent);
  const auto unread = UnreadPieces(ReadCalibrationContents(checked.profile, &owner));
  if (!unread.empty()) {
    checked.findings.Add("incomplete-calibration",
                         LineOf(calibrations.empty() ? item : calibrations.front()),
                         "the library cannot read all of the calibration's " + Joined(unread) +
                             ": former values stay");
  }
  for (xmlNode* calibration : calibrations) CheckHeight(checked, calibration);
}

}  // namespace

void CheckCalibrations(const CheckedProfile& checked) {
  const xmlNode* checkedOwner = nullptr;
  for (xmlNode* element : checked.elements) {
    CheckPlace(checked, element);
    if (!IsCalibrationItem(checked.words, element)) continue;
    const xmlNode* owner = element->parent->parent;
    // The library reads all items of that name together, so each owner is looked at once.
    if (!checked.words.IsRuleOrEngine(owner) || owner == checkedOwner) continue;
    checkedOwner = owner;
    CheckPieces(checked, element);
  }
}

}  // namespace settingsctl
