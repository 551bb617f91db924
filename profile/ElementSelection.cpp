#include <analytics/ProfileDoc.h>

#include "document/DocumentImpl.h"
#include "profile/ProfileNames.h"

namespace analytics {
namespace {

/// All elements of a name in the document, those of one type only if `type` is not empty.
std::string ElementQry(const std::string& qualifiedName, const std::string& type) {
  const std::string all = "//" + qualifiedName;
  return type.empty() ? all : all + "[@Type=\"" + type + "\"]";
}

std::string RuleQry(const std::string& type) {
  return ElementQry(OnvifName(Settings::RuleTag()), type);
}

std::string EngineQry(const std::string& type) {
  return ElementQry(OnvifName(Settings::EngineTag()), type);
}

// Deliberate: unlike rules and engines, event sinks are the vendor's elements.
std::string EventSinkQry(const std::string& type) {
  return ElementQry(KestalName(Settings::EventSinkTag()), type);
}

}  // namespace

DocumentNode* ProfileDoc::SelectRule(const std::string& type) {
  return SelectNode(RuleQry(type), nullptr);
}

std::vector<DocumentNode*> ProfileDoc::SelectRules(const std::string& type) {
  return SelectNodes(RuleQry(type), nullptr);
}

int ProfileDoc::DeleteRules(const std::string& type) {
  // Deliberate: an empty filter, which selects every rule, must never wipe them all.
  return type.empty() ? 0 : m_impl->DeleteNodes(RuleQry(type), nullptr);
}

DocumentNode* ProfileDoc::SelectEngine(const std::string& type) {
  return SelectNode(EngineQry(type), nullptr);
}

std::vector<DocumentNode*> ProfileDoc::SelectEngines(const std::string& type) {
  return SelectNodes(EngineQry(type), nullptr);
}

std::vector<DocumentNode*> ProfileDoc::SelectEventSinks(const std::string& type) {
  return SelectNodes(EventSinkQry(type), nullptr);
}

}  // namespace analytics
