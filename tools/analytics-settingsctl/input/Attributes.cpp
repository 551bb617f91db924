#include "input/Attributes.h"

#include <analytics/DocumentNode.h>

namespace settingsctl {
namespace {

xmlAttr* FindPlain(const xmlNode* element, const char* name) {
  return xmlHasNsProp(element, reinterpret_cast<const xmlChar*>(name), nullptr);
}

}  // namespace

bool HasPlainAttribute(const xmlNode* element, const char* name) {
  return FindPlain(element, name) != nullptr;
}

std::string PlainAttribute(xmlNode* element, const char* name) {
  xmlAttr* const attribute = FindPlain(element, name);
  return attribute ? analytics::DocumentNode(attribute).GetValue() : std::string();
}

}  // namespace settingsctl
