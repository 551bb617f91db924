#pragma once

#include <string>

#include "document/XmlHandle.h"

namespace analytics {

/// The bytes of `text` as libxml2 takes them: up to the first NUL, not owned.
inline const xmlChar* XmlText(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

/// As `XmlText`, but null for an empty text, which libxml2 takes for "none".
inline const xmlChar* XmlTextOrNull(const std::string& text) {
  return text.empty() ? nullptr : XmlText(text);
}

/// Copies text of libxml2 up to its first NUL; null gives the empty string.
inline std::string CopyText(const xmlChar* text) {
  return text ? std::string(reinterpret_cast<const char*>(text)) : std::string();
}

/// The text of a list of nodes, entity references substituted as `document` declares them.
inline std::string ListText(xmlDocPtr document, const xmlNode* nodes) {
  if (!nodes) return std::string();
  if (nodes->type == XML_TEXT_NODE && !nodes->next) return CopyText(nodes->content);
  return CopyText(XmlPtr<xmlChar>(xmlNodeListGetString(document, nodes, 1)).get());
}

/// The text of a node: that of its child list.
inline std::string NodeText(xmlDocPtr document, const xmlNode* node) {
  return ListText(document, node->children);
}

/// The value of an attribute, or the default that the document type declares; "" without either.
inline std::string AttributeText(xmlNodePtr node, const char* name) {
  const xmlChar* const xmlName = reinterpret_cast<const xmlChar*>(name);
  const xmlAttr* const attribute = xmlHasProp(node, xmlName);
  if (!attribute) return std::string();
  if (attribute->type == XML_ATTRIBUTE_NODE) return ListText(attribute->doc, attribute->children);
  return CopyText(XmlPtr<xmlChar>(xmlGetProp(node, xmlName)).get());
}

}  // namespace analytics
