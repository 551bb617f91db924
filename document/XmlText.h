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

/// The text of a node: that of its child list, entity references substituted as `document` declares
/// them.
inline std::string NodeText(xmlDocPtr document, const xmlNode* node) {
  return CopyText(XmlPtr<xmlChar>(xmlNodeListGetString(document, node->children, 1)).get());
}

}  // namespace analytics
