#include "input/LineNumbers.h"

#include <cstdint>

#include <analytics/DocumentNode.h>

#include "input/Nodes.h"

namespace settingsctl {
namespace {

void AppendElements(xmlNode* element, std::vector<xmlNode*>& elements) {
  elements.push_back(element);
  for (xmlNode* child = xmlFirstElementChild(element); child;
       child = xmlNextElementSibling(child)) {
    AppendElements(child, elements);
  }
}

}  // namespace

int LineOf(const xmlNode* element) {
  if (element->_private) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(element->_private));
  }
  const long line = xmlGetLineNo(element);
  return line > 0 ? static_cast<int>(line) : 1;
}

void SetLine(xmlNode* element, int line) {
  // libxml2 leaves this member to its users, and the library does not use it.
  const auto number = static_cast<std::intptr_t>(line);
  // NOLINTNEXTLINE(performance-no-int-to-ptr): it is never followed as a pointer.
  element->_private = reinterpret_cast<void*>(number);
}

std::vector<xmlNode*> AllElements(xmlNode* root) {
  std::vector<xmlNode*> elements;
  if (root) AppendElements(root, elements);
  return elements;
}

std::vector<xmlNode*> AllElements(analytics::Document& document) {
  const NodePtr root(document.SelectRootNode());
  return AllElements(root ? static_cast<xmlNode*>(root->Handle()) : nullptr);
}

void NumberLines(analytics::Document& document, xmlDoc* lines) {
  const std::vector<xmlNode*> elements = AllElements(document);
  const std::vector<xmlNode*> numbered = AllElements(xmlDocGetRootElement(lines));
  // Both come from one text, so they are the same elements in the same order.
  for (std::size_t index = 0; index < elements.size() && index < numbered.size(); ++index) {
    SetLine(elements[index], LineOf(numbered[index]));
  }
}

}  // namespace settingsctl
