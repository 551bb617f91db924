#include <algorithm>

#include <libxml/tree.h>

#include <analytics/DocumentNode.h>
#include <analytics/Settings.h>

#include "check/Elements.h"
#include "check/Number.h"
#include "check/SettingsChecks.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

/// The element that the library reads a setting from, and its text.
struct ReadSetting {
  const Setting& setting;
  int line;
  std::string text;
  Findings& findings;

  void Add(const std::string& check, const std::string& message) const {
    findings.Add(check, line, ShownPath(setting) + " " + message);
  }
};

/// The number that the library uses; both settings that are numbers have one.
std::string UsedNumber(const Setting& setting) {
  if (setting.path == "maxResource") return std::to_string(analytics::Settings::MaxResource());
  return std::to_string(analytics::Settings::GetValue("//" + setting.path, 1));
}

void CheckNumber(const ReadSetting& read) {
  const NumberForm form = FormOfNumber(read.text);
  if (form == NumberForm::kPlain) return;
  const char* check = form == NumberForm::kTrailing     ? "number-trailing-text"
                      : form == NumberForm::kOutOfRange ? "number-out-of-range"
                                                        : "number-no-digits";
  read.Add(check, NumberProblem(form) + ": the library uses " + UsedNumber(read.setting) +
                      (IsBlank(read.text) ? "" : " for " + Quoted(read.text)));
}

void CheckBlanks(const ReadSetting& read) {
  if (read.text.empty() || read.setting.kind == SettingKind::kNumber) return;
  if (!IsBlank(read.text.substr(0, 1)) && !IsBlank(read.text.substr(read.text.size() - 1))) return;
  read.Add("surrounding-blanks", "has white space around its text, which the library keeps");
}

void CheckEmptyName(const ReadSetting& read) {
  if (!read.text.empty()) return;
  read.Add("empty-name", "is empty, so queries with it find nothing");
}

/// Blanks around a name are told apart from wrong names.
std::string WithoutBlanksAround(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

/// Whether queries take the prefix for another namespace than the settings give it. Of the two
/// prefixes that XML reserves, "xmlns" is one as any other to them.
bool IsTakenPrefix(const Setting& setting, const std::string& name) {
  if (setting.kind != SettingKind::kPrefix || name != "xml") return false;
  const bool isOnvif = setting.path == "namespaces/onvif/prefix";
  const std::string uri =
      isOnvif ? analytics::Settings::OnvifNs() : analytics::Settings::KestalNs();
  return uri != reinterpret_cast<const char*>(XML_XML_NAMESPACE);
}

void CheckName(const ReadSetting& read) {
  const std::string name = WithoutBlanksAround(read.text);
  if (name.empty()) return;
  if (IsTakenPrefix(read.setting, name)) {
    read.Add("invalid-name", Quoted(name) +
                                 " always stands for XML's own namespace, so queries with it find "
                                 "nothing");
  }
  if (xmlValidateNCName(reinterpret_cast<const xmlChar*>(name.c_str()), 0) == 0) return;
  read.Add("invalid-name",
           Quoted(name) + " is not a valid XML name without a colon, so queries with it fail");
}

void CheckSlash(const ReadSetting& read) {
  const std::string used = analytics::Settings::PluginRepository();
  if (used == read.text) return;
  read.Add("missing-slash", "does not end in a slash: the library uses " + Quoted(used));
}

void CheckPipe(const ReadSetting& read) {
  if (!read.text.empty()) return;
  const bool isAlone = analytics::Settings::GetValues("//userdataPipe").empty();
  const std::string used = analytics::Settings::UserDataPipes().front();
  read.Add("empty-pipe", "is empty and skipped" +
                             (isAlone ? ": the library uses " + Quoted(used) : std::string()));
}

void CheckKind(const ReadSetting& read) {
  switch (read.setting.kind) {
    case SettingKind::kNumber:
      return CheckNumber(read);
    case SettingKind::kDirectory:
      return CheckSlash(read);
    case SettingKind::kPipe:
      return CheckPipe(read);
    case SettingKind::kTag:
    case SettingKind::kPrefix:
      CheckName(read);
      return CheckEmptyName(read);
    case SettingKind::kUri:
      return CheckEmptyName(read);
    case SettingKind::kText:
      break;
  }
}

/// Whether there is text in the elements of an element, which the library does not read.
bool HoldsTextDeeper(xmlNode* element) {
  const std::vector<xmlNode*> elements = AllElements(element);
  return std::any_of(elements.begin() + 1, elements.end(), [](xmlNode* inner) {
    return !IsBlank(analytics::DocumentNode(inner).GetValue());
  });
}

void CheckNested(const ReadSetting& read) {
  read.Add("nested-text", "holds elements, whose text the library does not read: it uses " +
                              (read.text.empty() ? "an empty text" : Quoted(read.text)));
}

void CheckValue(const CheckedSettings& settings, const Setting& setting, xmlNode* element) {
  const std::string text = analytics::DocumentNode(element).GetValue();
  const ReadSetting read = {setting, LineOf(element), text, settings.findings};
  const bool isNested = HoldsTextDeeper(element);
  if (isNested) CheckNested(read);
  // What is wrong with white space between elements has been said by that.
  if (isNested && IsBlank(text)) return;
  CheckBlanks(read);
  CheckKind(read);
}

/// The last of two bindings of one prefix counts: the vendor's, whatever the order in the file.
void CheckPrefixes(const CheckedSettings& settings) {
  const std::string prefix = analytics::Settings::OnvifPrefix();
  if (prefix.empty() || prefix != analytics::Settings::KestalPrefix()) return;
  if (analytics::Settings::OnvifNs() == analytics::Settings::KestalNs()) return;
  const Setting* setting = SettingOfPath("namespaces/onvif/prefix");
  settings.findings.Add("shared-prefix", LineOf(settings.found.at(setting).front()),
                        "both namespaces have the prefix " + Quoted(prefix) +
                            ": queries take it for the vendor's and find no rule or engine");
}

}  // namespace

void CheckSettingValues(const CheckedSettings& settings) {
  for (const auto& [setting, elements] : settings.found) {
    if (setting->kind != SettingKind::kPipe) {
      CheckValue(settings, *setting, elements.front());
      continue;
    }
    for (xmlNode* element : elements) CheckValue(settings, *setting, element);
  }
  CheckPrefixes(settings);
}

}  // namespace settingsctl
