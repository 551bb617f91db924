#include "check/Elements.h"

#include <analytics/DocumentNode.h>

namespace settingsctl {
namespace {

/// Never null, so that names can be compared without copies: there are many of them.
const char* Characters(const xmlChar* text) {
  return text ? reinterpret_cast<const char*>(text) : "";
}

}  // namespace

std::string NameOf(const xmlNode* element) { return Characters(element->name); }

std::string NamespaceOf(const xmlNode* element) {
  return element->ns ? Characters(element->ns->href) : "";
}

std::string WrittenName(const xmlNode* element) {
  const std::string prefix = element->ns ? Characters(element->ns->prefix) : "";
  return (prefix.empty() ? "" : prefix + ":") + NameOf(element);
}

bool IsElement(const xmlNode* node, const std::string& uri, const std::string& name) {
  return node && node->type == XML_ELEMENT_NODE && name == Characters(node->name) &&
         uri == (node->ns ? Characters(node->ns->href) : "");
}

std::string Attribute(xmlNode* element, const char* name) {
  return analytics::DocumentNode(element).GetProperty(name);
}

int IntAttribute(xmlNode* element, const char* name) {
  return analytics::DocumentNode(element).GetProperty(name, 0);
}

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n\v\f") == std::string::npos;
}

std::vector<xmlNode*> Children(xmlNode* element, const std::string& uri, const std::string& name) {
  std::vector<xmlNode*> children;
  for (xmlNode* child = xmlFirstElementChild(element); child;
       child = xmlNextElementSibling(child)) {
    if (IsElement(child, uri, name)) children.push_back(child);
  }
  return children;
}

}  // namespace settingsctl
