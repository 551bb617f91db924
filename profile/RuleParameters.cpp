#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "document/DocumentImpl.h"
#include "document/Selection.h"
#include "document/TypedText.h"
#include "document/XmlText.h"
#include "profile/ProfileQueries.h"

namespace analytics {
namespace {

QueryText NamedItemQry(const std::string& name, bool throughParameters) {
  QueryText query = ItemsQry("SimpleItem", throughParameters);
  query.Add("[@Name='").Add(name).Add("']");
  return query;
}

void AddItem(DocumentNode* parameters, const std::string& name, const std::string& value) {
  const std::unique_ptr<DocumentNode> item(
      parameters ? parameters->AddNewChild("SimpleItem", std::string()) : nullptr);
  // Deliberate: without a place for the item nothing is written, and success is reported. Kept for
  // compatibility: installed runtimes see it.
  if (!item) return;
  item->SetProperty("Name", name);
  item->SetProperty("Value", value);
}

bool SetItem(xmlXPathContextPtr searchContext, const QueryText& itemQry, const std::string& value,
             DocumentNode* context) {
  const Selection items(searchContext, context, itemQry.c_str(), Selection::kFirst);
  if (items.Count() == 0) return false;
  DocumentNode(items.Node(0)).SetProperty("Value", value);
  return true;
}

bool SetOrAddItem(xmlXPathContextPtr searchContext, const std::string& name,
                  const std::string& value, DocumentNode* parameters) {
  if (!SetItem(searchContext, NamedItemQry(name, false), value, parameters))
    AddItem(parameters, name, value);
  return true;
}

std::string ItemText(xmlXPathContextPtr searchContext, const QueryText& itemQry,
                     DocumentNode* context) {
  const Selection items(searchContext, context, itemQry.c_str(), Selection::kFirst);
  return items.Count() > 0 ? AttributeText(items.Node(0), "Value") : std::string();
}

/// Tells whether rules are active; the query is made once for all of them.
class ActivityCheck {
 public:
  explicit ActivityCheck(xmlXPathContextPtr searchContext)
      : m_searchContext(searchContext), m_activeQry(NamedItemQry("Active", true)) {}

  bool operator()(DocumentNode& rule) const {
    return m_read(ItemText(m_searchContext, m_activeQry, &rule), 0) != 0;
  }

 private:
  const xmlXPathContextPtr m_searchContext;
  const QueryText m_activeQry;
  const IntegerReader m_read{};
};

}  // namespace

std::string ProfileDoc::SimpleItemQry(bool throughParameters) {
  return ItemsQry("SimpleItem", throughParameters).c_str();
}

std::string ProfileDoc::ElementItemQry(bool throughParameters) {
  return ItemsQry("ElementItem", throughParameters).c_str();
}

std::string ProfileDoc::GetSimpleItemValue(const std::string& name, DocumentNode* context,
                                           bool throughParameters) {
  return ItemText(m_impl->SearchContext(), NamedItemQry(name, throughParameters), context);
}

int ProfileDoc::GetSimpleItemValue(const std::string& name, int defaultValue, DocumentNode* context,
                                   bool throughParameters) {
  return NumberFromText(GetSimpleItemValue(name, context, throughParameters), defaultValue);
}

bool ProfileDoc::SetSimpleItemValue(const std::string& name, int value, DocumentNode* context) {
  return SetItem(m_impl->SearchContext(), NamedItemQry(name, true), TextFromNumber(value), context);
}

bool ProfileDoc::SetSimpleItemValue(const std::string& name, const std::string& value,
                                    DocumentNode* context) {
  return SetItem(m_impl->SearchContext(), NamedItemQry(name, true), value, context);
}

bool ProfileDoc::SetOrAddSimpleItemValue(const std::string& name, int value,
                                         DocumentNode* parameters) {
  return SetOrAddItem(m_impl->SearchContext(), name, TextFromNumber(value), parameters);
}

bool ProfileDoc::SetOrAddSimpleItemValue(const std::string& name, const std::string& value,
                                         DocumentNode* parameters) {
  return SetOrAddItem(m_impl->SearchContext(), name, value, parameters);
}

bool ProfileDoc::RuleIsActive(const std::string& type) {
  const Selection rules(m_impl->SearchContext(), nullptr, RuleQry(type).c_str());
  const ActivityCheck isActive(m_impl->SearchContext());
  bool isAnyActive = false;
  for (int index = 0; index < rules.Count(); ++index) {
    DocumentNode rule(rules.Node(index));
    isAnyActive = isActive(rule) || isAnyActive;
  }
  return isAnyActive;
}

std::vector<std::string> ProfileDoc::ActiveRules() {
  std::vector<std::string> types;
  std::unordered_set<std::string> known;
  const Selection rules(m_impl->SearchContext(), nullptr, RuleQry(std::string()).c_str());
  const ActivityCheck isActive(m_impl->SearchContext());
  for (int index = 0; index < rules.Count(); ++index) {
    DocumentNode rule(rules.Node(index));
    if (!isActive(rule)) continue;
    std::string type = AttributeText(rules.Node(index), "Type");
    if (!type.empty() && known.insert(type).second) types.push_back(std::move(type));
  }
  return types;
}

}  // namespace analytics
