#include "check/FileKind.h"

#include <algorithm>

#include "check/Elements.h"
#include "check/ProfileVocabulary.h"
#include "input/LineNumbers.h"

namespace settingsctl {
namespace {

bool IsOneOf(const std::string& name, const std::vector<std::string>& names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// Names that only settings files have; tags such as "rule" occur in both.
bool SpeaksForSettings(const xmlNode* element) {
  static const std::vector<std::string> s_names = {
      "maxSessions",    "maxResource",    "pluginRepository",
      "videoInputFile", "quadOutputFile", "profile4DefaultModules",
      "userdataPipe",   "tags",           "namespaces",
      "variables",      "variable"};
  return IsOneOf(NameOf(element), s_names);
}

bool SpeaksForProfile(const ProfileVocabulary& words, const xmlNode* element) {
  static const std::vector<std::string> s_names = {"Parameters", "SimpleItem", "ElementItem"};
  const std::string uri = NamespaceOf(element);
  return IsOneOf(NameOf(element), s_names) ||
         (!uri.empty() && (uri == words.onvifNs || uri == words.kestalNs));
}

}  // namespace

FileKind KindOfFile(xmlNode* root) {
  const ProfileVocabulary words = ProfileVocabulary::OfSettings();
  const std::vector<xmlNode*> elements = AllElements(root);
  const auto settings = std::count_if(elements.begin(), elements.end(), SpeaksForSettings);
  const auto profile =
      std::count_if(elements.begin(), elements.end(),
                    [&words](const xmlNode* element) { return SpeaksForProfile(words, element); });
  if (settings != profile) return settings > profile ? FileKind::kSettings : FileKind::kProfile;
  const bool hasProfileRoot = root && (root->ns || IsOneOf(NameOf(root), words.containerTags));
  return hasProfileRoot ? FileKind::kProfile : FileKind::kSettings;
}

}  // namespace settingsctl
