#include "bench/ByHand.h"

#include <cstdlib>

#include <libxml/parser.h>
#include <libxml/xpathInternals.h>

namespace bench {

const xmlChar* Xml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

std::string Copy(const xmlChar* text) {
  return text ? std::string(reinterpret_cast<const char*>(text)) : std::string();
}

int Number(const xmlChar* text, int fallback) {
  if (!text || !*text) return fallback;
  return static_cast<int>(std::strtol(reinterpret_cast<const char*>(text), nullptr, 10));
}

Tree ParseProfile(const std::string& text) {
  Tree tree;
  tree.document.reset(xmlParseMemory(text.data(), static_cast<int>(text.size())));
  tree.queries.reset(xmlXPathNewContext(tree.document.get()));
  xmlXPathRegisterNs(tree.queries.get(), Xml("tt"), Xml("http://www.onvif.org/ver10/schema"));
  xmlXPathRegisterNs(tree.queries.get(), Xml("ka"), Xml("urn:kestal-com:schema:onvif:analytics:1"));
  return tree;
}

XmlPtr<xmlXPathObject> Evaluate(const Tree& tree, xmlNodePtr from, const char* query) {
  tree.queries->node = from;
  return XmlPtr<xmlXPathObject>(xmlXPathEvalExpression(Xml(query), tree.queries.get()));
}

xmlNodePtr First(const Tree& tree, xmlNodePtr from, const char* query) {
  const XmlPtr<xmlXPathObject> result = Evaluate(tree, from, query);
  const bool empty = !result || xmlXPathNodeSetIsEmpty(result->nodesetval);
  return empty ? nullptr : result->nodesetval->nodeTab[0];
}

XmlPtr<xmlChar> Attribute(xmlNodePtr node, const char* name) {
  return XmlPtr<xmlChar>(xmlGetProp(node, Xml(name)));
}

int NumberAttribute(xmlNodePtr node, const char* name, int fallback) {
  return Number(Attribute(node, name).get(), fallback);
}

XmlPtr<xmlChar> Text(xmlNodePtr node) {
  return XmlPtr<xmlChar>(node ? xmlNodeListGetString(node->doc, node->children, 1) : nullptr);
}

std::string Dump(const Tree& tree) {
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpFormatMemory(tree.document.get(), &text, &size, 1);
  return Copy(XmlPtr<xmlChar>(text).get());
}

}  // namespace bench
