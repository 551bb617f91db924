#include "document/XmlText.h"

namespace analytics {

std::string ListText(xmlDocPtr document, const xmlNode* nodes) {
  if (!nodes) return std::string();
  if (nodes->type == XML_TEXT_NODE && !nodes->next) return CopyText(nodes->content);
  return CopyText(XmlPtr<xmlChar>(xmlNodeListGetString(document, nodes, 1)).get());
}

std::string AttributeText(xmlNodePtr node, const char* name) {
  const auto* const xmlName = reinterpret_cast<const xmlChar*>(name);
  const xmlAttr* const attribute = xmlHasProp(node, xmlName);
  if (!attribute) return std::string();
  if (attribute->type == XML_ATTRIBUTE_NODE) return ListText(attribute->doc, attribute->children);
  return CopyText(XmlPtr<xmlChar>(xmlGetProp(node, xmlName)).get());
}

}  // namespace analytics
