#include "bench/sides/Walked.h"

#include <cstring>
#include <utility>

#include <libxml/parser.h>

#include "bench/sides/Names.h"

namespace bench {
namespace {

constexpr std::string_view kCondition = "[@";

/// Null where a name has no prefix.
const char* UriOf(std::string_view prefix) {
  if (prefix.empty()) return nullptr;
  return prefix == "tt:" ? kOnvifUri : kVendorUri;
}

bool Same(const xmlChar* text, const char* other) {
  return std::strcmp(reinterpret_cast<const char*>(text), other) == 0;
}

/// The text of an element or attribute, in its place.
const xmlChar* TextIn(const xmlNode* text) { return text ? text->content : nullptr; }

const xmlChar* AttributeIn(const xmlNode* node, const char* name) {
  const xmlAttr* attribute = node->properties;
  while (attribute && !Same(attribute->name, name)) attribute = attribute->next;
  return attribute ? TextIn(attribute->children) : nullptr;
}

bool IsIn(const xmlNode* node, const char* uri) {
  return node->ns ? uri && Same(node->ns->href, uri) : !uri;
}

/// The first child element of a name, from `node` on.
xmlNodePtr FindElement(xmlNodePtr node, const char* name) {
  while (node && (node->type != XML_ELEMENT_NODE || !Same(node->name, name))) node = node->next;
  return node;
}

/// Visits what a path stands for from a step on; ends at once where `visit` gives true.
template <typename Visit>
bool VisitBelow(xmlNodePtr parent, const Walked::Path& path, std::size_t step, const Visit& visit) {
  const bool isLast = step + 1 == path.Depth();
  for (xmlNodePtr node = parent->children; node; node = node->next) {
    if (node->type != XML_ELEMENT_NODE) continue;
    const bool matches = path.Matches(node, step);
    if (matches && isLast && visit(node)) return true;
    const bool leadsOn = path.IsAnywhere() || (matches && !isLast);
    if (leadsOn && VisitBelow(node, path, path.IsAnywhere() ? step : step + 1, visit)) return true;
  }
  return false;
}

template <typename Visit>
void VisitAll(xmlNodePtr from, const Walked::Path& path, const Visit& visit) {
  VisitBelow(path.IsAnywhere() ? reinterpret_cast<xmlNodePtr>(from->doc) : from, path, 0, visit);
}

}  // namespace

Walked::Path::Path(const std::string& text) : m_isAnywhere(text.front() == '/') {
  std::string_view rest = text;
  if (m_isAnywhere) rest.remove_prefix(2);
  for (std::size_t end = 0; end != std::string_view::npos; rest.remove_prefix(end + 1)) {
    end = rest.find('/');
    m_steps.push_back(StepOf(rest.substr(0, end)));
    if (end == std::string_view::npos) return;
  }
}

/// "prefix:name" or "prefix:name[@attribute='value']".
Walked::Path::Step Walked::Path::StepOf(std::string_view text) {
  const std::size_t condition = text.find(kCondition);
  const std::string_view name = text.substr(0, condition);
  const std::size_t local = name.find(':') + 1;  // 0 where there is no prefix
  Step step{UriOf(name.substr(0, local)), std::string(name.substr(local)), {}, {}};
  if (condition == std::string_view::npos) return step;
  const std::size_t begin = condition + kCondition.size();
  const std::size_t equals = text.find('=', begin);
  step.attribute = text.substr(begin, equals - begin);
  step.value = text.substr(equals + 2, text.size() - equals - 4);
  return step;
}

bool Walked::Path::Matches(const xmlNode* node, std::size_t step) const {
  const Step& wanted = m_steps[step];
  if (!Same(node->name, wanted.name.c_str()) || !IsIn(node, wanted.uri)) return false;
  if (wanted.attribute.empty()) return true;
  const xmlChar* const value = AttributeIn(node, wanted.attribute.c_str());
  return value && Same(value, wanted.value.c_str());
}

Walked Walked::Parse(const std::string& text) {
  return Walked(XmlPtr<xmlDoc>(xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr,
                                             nullptr, XML_PARSE_COMPACT)));
}

Walked Walked::Load(const std::string& path) {
  return Walked(XmlPtr<xmlDoc>(xmlReadFile(path.c_str(), nullptr, 0)));
}

Walked::Nodes Walked::Select(Node from, const Path& path) const {
  Nodes nodes;
  VisitAll(from, path, [&](Node node) {
    nodes.push_back(node);
    return false;
  });
  return nodes;
}

Walked::Node Walked::First(Node from, const Path& path) const {
  Node first = nullptr;
  VisitAll(from, path, [&](Node node) {
    first = node;
    return true;
  });
  return first;
}

std::string Walked::Attribute(Node node, const char* name) { return Copy(AttributeIn(node, name)); }

int Walked::Number(Node node, const char* name) { return NumberOf(AttributeIn(node, name), 0); }

int Walked::TextNumber(Node node, int fallback) {
  return NumberOf(node ? TextIn(node->children) : nullptr, fallback);
}

std::string Walked::VariableValue(const std::string& name) const {
  const xmlNodePtr variables = FindElement(Root()->children, "variables");
  xmlNodePtr variable = variables->children;
  while ((variable = FindElement(variable, "variable"))) {
    if (Same(AttributeIn(variable, "name"), name.c_str())) break;
    variable = variable->next;
  }
  return variable ? Attribute(variable, "value") : std::string();
}

}  // namespace bench
