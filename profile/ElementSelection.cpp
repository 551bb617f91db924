#include <analytics/ProfileDoc.h>

#include "document/DocumentImpl.h"

#include <analytics/Settings.h>

namespace analytics {
namespace {

/// Made with braces, which evaluate the prefix before the tag.
struct ElementName {
  std::string prefix;
  std::string tag;
};

/// All elements of a name in the document, those of one type only if `type` is not empty.
std::string ElementQry(const ElementName& name, const std::string& type) {
  const std::string all = "//" + name.prefix + ":" + name.tag;
  return type.empty() ? all : all + "[@Type=\"" + type + "\"]";
}

std::string RuleQry(const std::string& type) {
  return ElementQry({Settings::OnvifPrefix(), Settings::RuleTag()}, type);
}

std::string EngineQry(const std::string& type) {
  return ElementQry({Settings::OnvifPrefix(), Settings::EngineTag()}, type);
}

// Deliberate: unlike rules and engines, event sinks are the vendor's elements. Kept for
// compatibility: installed runtimes see it.
std::string EventSinkQry(const std::string& type) {
  return ElementQry({Settings::KestalPrefix(), Settings::EventSinkTag()}, type);
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
