#include <algorithm>
#include <memory>
#include <utility>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "document/OwnedNodes.h"
#include "document/TypedText.h"
#include "profile/ProfileNames.h"

namespace analytics {
namespace {

std::string ItemsQry(const char* tag, bool throughParameters) {
  const std::string path = throughParameters ? OnvifName("Parameters") + "/" : std::string();
  return path + OnvifName(tag);
}

std::string NamedItemQry(const std::string& name, bool throughParameters) {
  return ProfileDoc::SimpleItemQry(throughParameters) + "[@Name='" + name + "']";
}

template <typename Value>
bool SetItem(ProfileDoc& profile, const std::string& name, const Value& value,
             DocumentNode* context, bool throughParameters) {
  const std::unique_ptr<DocumentNode> item(
      profile.SelectNode(NamedItemQry(name, throughParameters), context));
  if (!item) return false;
  item->SetProperty("Value", value);
  return true;
}

template <typename Value>
void AddItem(DocumentNode* parameters, const std::string& name, const Value& value) {
  const std::unique_ptr<DocumentNode> item(
      parameters ? parameters->AddNewChild("SimpleItem", std::string()) : nullptr);
  // Deliberate: without a place for the item nothing is written, and success is reported. Kept for
  // compatibility: installed runtimes see it.
  if (!item) return;
  item->SetProperty("Name", name);
  item->SetProperty("Value", value);
}

template <typename Value>
bool SetOrAddItem(ProfileDoc& profile, const std::string& name, const Value& value,
                  DocumentNode* parameters) {
  if (!SetItem(profile, name, value, parameters, false)) AddItem(parameters, name, value);
  return true;
}

std::string ItemText(ProfileDoc& profile, const std::string& itemQry, DocumentNode* context) {
  const std::unique_ptr<DocumentNode> item(profile.SelectNode(itemQry, context));
  return item ? item->GetProperty("Value") : std::string();
}

/// Tells whether rules are active; the query is built once for all of them.
class ActivityCheck {
 public:
  explicit ActivityCheck(ProfileDoc& profile)
      : m_profile(profile), m_activeQry(NamedItemQry("Active", true)) {}

  bool operator()(DocumentNode* rule) const {
    return NumberFromText(ItemText(m_profile, m_activeQry, rule), 0) != 0;
  }

 private:
  ProfileDoc& m_profile;
  const std::string m_activeQry;
};

bool Contains(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

std::string ProfileDoc::SimpleItemQry(bool throughParameters) {
  return ItemsQry("SimpleItem", throughParameters);
}

std::string ProfileDoc::ElementItemQry(bool throughParameters) {
  return ItemsQry("ElementItem", throughParameters);
}

std::string ProfileDoc::GetSimpleItemValue(const std::string& name, DocumentNode* context,
                                           bool throughParameters) {
  return ItemText(*this, NamedItemQry(name, throughParameters), context);
}

int ProfileDoc::GetSimpleItemValue(const std::string& name, int defaultValue, DocumentNode* context,
                                   bool throughParameters) {
  return NumberFromText(GetSimpleItemValue(name, context, throughParameters), defaultValue);
}

bool ProfileDoc::SetSimpleItemValue(const std::string& name, int value, DocumentNode* context) {
  return SetItem(*this, name, value, context, true);
}

bool ProfileDoc::SetSimpleItemValue(const std::string& name, const std::string& value,
                                    DocumentNode* context) {
  return SetItem(*this, name, value, context, true);
}

bool ProfileDoc::SetOrAddSimpleItemValue(const std::string& name, int value,
                                         DocumentNode* parameters) {
  return SetOrAddItem(*this, name, value, parameters);
}

bool ProfileDoc::SetOrAddSimpleItemValue(const std::string& name, const std::string& value,
                                         DocumentNode* parameters) {
  return SetOrAddItem(*this, name, value, parameters);
}

bool ProfileDoc::RuleIsActive(const std::string& type) {
  const OwnedNodes rules(SelectRules(type));
  return std::count_if(rules.begin(), rules.end(), ActivityCheck(*this)) > 0;
}

std::vector<std::string> ProfileDoc::ActiveRules() {
  std::vector<std::string> types;
  const OwnedNodes rules(SelectRules(std::string()));
  const ActivityCheck isActive(*this);
  for (DocumentNode* rule : rules) {
    if (!isActive(rule)) continue;
    std::string type = rule->GetProperty("Type");
    if (!type.empty() && !Contains(types, type)) types.push_back(std::move(type));
  }
  return types;
}

}  // namespace analytics
