#pragma once

#include <string>
#include <vector>

#include <libxml/tree.h>

namespace settingsctl {

/// The names and namespaces by which the library finds the elements of a profile.
struct ProfileVocabulary {
  std::string onvifNs;
  std::string onvifPrefix;
  std::string kestalNs;
  std::string kestalPrefix;
  std::string ruleTag;
  std::string engineTag;
  std::string eventSinkTag;
  std::vector<std::string> containerTags;  ///< other tags of the settings

  /// As the settings now give them.
  static ProfileVocabulary OfSettings();

  /// Whether the library finds the element as a rule, an engine or an event sink.
  bool IsRule(const xmlNode* element) const;
  bool IsEngine(const xmlNode* element) const;
  bool IsEventSink(const xmlNode* element) const;

  /// A rule or an engine: what items and a calibration are read of.
  bool IsRuleOrEngine(const xmlNode* element) const;

  /// A rule, an engine or an event sink.
  bool IsOwner(const xmlNode* element) const;

  /// Whether the element has the tag of an owner, but not its namespace, so that it is not found.
  /// What is within an element item is the vendor's own matter, whatever its name.
  bool IsLostOwner(const xmlNode* element) const;

  /// Whether the element is a "Parameters" or an item within it that the library finds.
  bool IsParameters(const xmlNode* element) const;
  bool IsItem(const xmlNode* element) const;

  /// Whether the element is the content of an element item, at any depth.
  bool IsContent(const xmlNode* element) const;

  /// Whether the element is below an owner, or below a lost one, at any depth.
  bool IsBelowOwner(const xmlNode* element) const;
  bool IsBelowLostOwner(const xmlNode* element) const;
};

/// "rule", "engine" or "event sink" for messages, by the element's name alone.
std::string KindOf(const ProfileVocabulary& words, const xmlNode* element);

/// How messages call a namespace: "no namespace" or "the namespace 'urn:x'".
std::string ShownNamespace(const xmlNode* element);

}  // namespace settingsctl
