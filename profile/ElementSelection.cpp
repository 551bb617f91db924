#include <analytics/ProfileDoc.h>
#include <analytics/Settings.h>

#include "document/DocumentImpl.h"
#include "profile/ProfileQueries.h"

namespace analytics {
namespace {

std::string EngineQry(const std::string& type) {
  const std::string prefix = Settings::OnvifPrefix();
  return ElementQry(prefix, Settings::EngineTag(), type);
}

// Deliberate: unlike rules and engines, event sinks are the vendor's elements. Kept for
// compatibility: installed runtimes see it.
std::string EventSinkQry(const std::string& type) {
  const std::string prefix = Settings::KestalPrefix();
  return ElementQry(prefix, Settings::EventSinkTag(), type);
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
