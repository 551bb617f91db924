#include "bench/sides/ByHand.h"

#include <cstdlib>
#include <utility>

#include <libxml/parser.h>
#include <libxml/xpathInternals.h>

#include "bench/sides/Names.h"

namespace bench {

const xmlChar* Xml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

std::string Copy(const xmlChar* text) {
  return text ? std::string(reinterpret_cast<const char*>(text)) : std::string();
}

int NumberOf(const xmlChar* text, int fallback) {
  if (!text || !*text) return fallback;
  return static_cast<int>(std::strtol(reinterpret_cast<const char*>(text), nullptr, 10));
}

namespace {

XmlPtr<xmlChar> TextOf(xmlNodePtr node) {
  return XmlPtr<xmlChar>(node ? xmlNodeListGetString(node->doc, node->children, 1) : nullptr);
}

XmlPtr<xmlChar> AttributeOf(xmlNodePtr node, const char* name) {
  return XmlPtr<xmlChar>(xmlGetProp(node, Xml(name)));
}

}  // namespace

std::size_t ByHand::Nodes::size() const {
  return m_result ? static_cast<std::size_t>(xmlXPathNodeSetGetLength(m_result->nodesetval)) : 0;
}

ByHand::ByHand(XmlPtr<xmlDoc> document)
    : m_document(std::move(document)), m_queries(xmlXPathNewContext(m_document.get())) {}

ByHand ByHand::Parse(const std::string& text) {
  ByHand parsed(XmlPtr<xmlDoc>(xmlParseMemory(text.data(), static_cast<int>(text.size()))));
  xmlXPathRegisterNs(parsed.m_queries.get(), Xml("tt"), Xml(kOnvifUri));
  xmlXPathRegisterNs(parsed.m_queries.get(), Xml("ka"), Xml(kVendorUri));
  return parsed;
}

ByHand ByHand::Load(const std::string& path) {
  return ByHand(XmlPtr<xmlDoc>(xmlParseFile(path.c_str())));
}

ByHand::Nodes ByHand::Select(Node from, const Path& query) const {
  m_queries->node = from;
  return Nodes(XmlPtr<xmlXPathObject>(xmlXPathEvalExpression(Xml(query.c_str()), m_queries.get())));
}

ByHand::Node ByHand::First(Node from, const Path& query) const {
  const Nodes nodes = Select(from, query);
  return nodes.size() > 0 ? *nodes.begin() : nullptr;
}

std::string ByHand::Text(Node node) { return Copy(TextOf(node).get()); }

int ByHand::TextNumber(Node node, int fallback) { return NumberOf(TextOf(node).get(), fallback); }

std::string ByHand::Attribute(Node node, const char* name) {
  return Copy(AttributeOf(node, name).get());
}

int ByHand::Number(Node node, const char* name) {
  return NumberOf(AttributeOf(node, name).get(), 0);
}

void ByHand::SetAttribute(Node node, const char* name, const std::string& value) {
  xmlSetProp(node, Xml(name), Xml(value.c_str()));
}

void ByHand::Remove(Node node) {
  xmlUnlinkNode(node);
  xmlFreeNode(node);
}

std::string ByHand::Dump() const {
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpFormatMemory(m_document.get(), &text, &size, 1);
  return Copy(XmlPtr<xmlChar>(text).get());
}

bool ByHand::Save(const std::string& path) const {
  return xmlSaveFormatFile(path.c_str(), m_document.get(), 1) >= 0;
}

}  // namespace bench
