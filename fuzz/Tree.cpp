#include "fuzz/Tree.h"

#include "document/XmlHandle.h"

namespace fuzz {
namespace {

bool IsText(const xmlNode* node) {
  return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
}

}  // namespace

std::string StringOf(const xmlChar* text) {
  return text ? std::string(reinterpret_cast<const char*>(text)) : std::string();
}

const xmlChar* XmlOf(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

std::string TextOf(const xmlNode* node) {
  std::string text;
  for (xmlNode* child = node ? node->children : nullptr; child; child = child->next) {
    if (IsText(child)) text += StringOf(child->content);
    if (child->type == XML_ENTITY_REF_NODE) {
      // What an entity stands for is libxml2's business.
      const analytics::XmlPtr<xmlChar> whole(xmlNodeListGetString(node->doc, node->children, 1));
      return StringOf(whole.get());
    }
  }
  return text;
}

const xmlAttr* Property(const xmlNode* element, const std::string& name) {
  if (!element || element->type != XML_ELEMENT_NODE) return nullptr;
  const xmlAttr* attribute = element->properties;
  while (attribute && !xmlStrEqual(attribute->name, XmlOf(name))) attribute = attribute->next;
  return attribute;
}

std::string PropertyText(const xmlNode* element, const std::string& name) {
  return TextOf(reinterpret_cast<const xmlNode*>(Property(element, name)));
}

const xmlAttr* PlainAttribute(const xmlNode* element, const std::string& name) {
  const xmlAttr* attribute = element->properties;
  while (attribute && (attribute->ns || !xmlStrEqual(attribute->name, XmlOf(name))))
    attribute = attribute->next;
  return attribute;
}

std::string PlainText(const xmlNode* element, const std::string& name) {
  return TextOf(reinterpret_cast<const xmlNode*>(PlainAttribute(element, name)));
}

bool IsElement(const xmlNode* node, const std::string& uri, const std::string& name) {
  if (!node || node->type != XML_ELEMENT_NODE || !xmlStrEqual(node->name, XmlOf(name)))
    return false;
  return node->ns ? !uri.empty() && xmlStrEqual(node->ns->href, XmlOf(uri)) : uri.empty();
}

xmlNode* NextInOrder(xmlNode* node, const xmlNode* top) {
  const bool isEntered = node->type != XML_ENTITY_REF_NODE && node->type != XML_DTD_NODE;
  if (node->children && isEntered) return node->children;
  while (node != top && !node->next) node = node->parent;
  return node == top ? nullptr : node->next;
}

std::vector<xmlNode*> ChildrenOf(const std::vector<xmlNode*>& parents, const std::string& uri,
                                 const std::string& name) {
  std::vector<xmlNode*> found;
  for (const xmlNode* parent : parents) {
    for (xmlNode* child = parent->children; child; child = child->next) {
      if (IsElement(child, uri, name)) found.push_back(child);
    }
  }
  return found;
}

std::vector<xmlNode*> ElementsOf(xmlDoc* document, const std::string& uri,
                                 const std::string& name) {
  std::vector<xmlNode*> found;
  auto* const top = reinterpret_cast<xmlNode*>(document);
  for (xmlNode* node = top->children; node; node = NextInOrder(node, top)) {
    if (IsElement(node, uri, name)) found.push_back(node);
  }
  return found;
}

}  // namespace fuzz
