#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/profile/Vocabulary.h"
#include "tests/support/PlainTree.h"

namespace tests {

using Elements = std::vector<xmlNodePtr>;

/// What a profile is to say of a tree, found by walking through it.
class TreeReading {
 public:
  TreeReading(xmlDoc& tree, Vocabulary vocabulary)
      : m_all(ElementsOf(tree)), m_names(std::move(vocabulary)) {}

  Elements Rules() const { return Named(m_all, m_names.onvifUri, m_names.rule); }
  Elements Engines() const { return Named(m_all, m_names.onvifUri, m_names.engine); }
  Elements EventSinks() const { return Named(m_all, m_names.kestalUri, m_names.eventSink); }
  Elements Points() const { return Named(m_all, m_names.onvifUri, "Point"); }
  Elements NearLeftObjects() const { return Named(m_all, m_names.kestalUri, "ObjectAtNearLeft"); }

  /// The types of the active rules, each where it is first met.
  std::vector<std::string> ActiveTypes() const {
    std::vector<std::string> types;
    for (const xmlNodePtr rule : Rules()) {
      const std::string type = AttributeText(rule, "Type");
      if (!IsActive(rule) || type.empty()) continue;
      if (std::find(types.begin(), types.end(), type) == types.end()) types.push_back(type);
    }
    return types;
  }

  bool HasActiveRule() const {
    const Elements rules = Rules();
    return std::any_of(rules.begin(), rules.end(), [this](auto rule) { return IsActive(rule); });
  }

  /// How many rules have a type, compared as a query compares it: in no namespace.
  int RulesOfType(const std::string& type) const {
    int count = 0;
    for (const xmlNodePtr rule : Rules()) {
      const xmlAttr* own = PlainAttribute(rule, "Type");
      if (own && OwnText(own->children) == type) ++count;
    }
    return count;
  }

  /// The value of the first simple item of this name in an element's parameters; "" if none has it.
  std::string ItemValue(xmlNodePtr element, const std::string& name) const {
    for (const xmlNodePtr item : Named(ElementsBelow(element), m_names.onvifUri, "SimpleItem")) {
      const xmlNodePtr parent = item->parent;
      if (!Is(parent, m_names.onvifUri, "Parameters") || parent->parent != element) continue;
      const xmlAttr* itemName = PlainAttribute(item, "Name");
      if (itemName && OwnText(itemName->children) == name) return AttributeText(item, "Value");
    }
    return "";
  }

 private:
  bool IsActive(xmlNodePtr rule) const { return LeadingInt(ItemValue(rule, "Active"), 0) != 0; }

  const Elements m_all;
  const Vocabulary m_names;
};

}  // namespace tests
