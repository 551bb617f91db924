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
std::string ListText(xmlDocPtr document, const xmlNode* nodes);

/// The text of a node: that of its child list.
inline std::string NodeText(xmlDocPtr document, const xmlNode* node) {
  return ListText(document, node->children);
}

/// The value of an attribute, or the default that the document type declares; "" without either.
std::string AttributeText(xmlNodePtr node, const char* name);

}  // namespace analytics
