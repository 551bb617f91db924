#include "fuzz/Selected.h"

#include <algorithm>

#include "fuzz/Tree.h"

namespace fuzz {
namespace {

xmlXPathObject* Evaluated(xmlXPathContext* searchContext, xmlNode* start, const std::string& path) {
  if (!searchContext) return nullptr;
  searchContext->node = start;
  return xmlXPathEvalExpression(XmlOf(path), searchContext);
}

}  // namespace

Selected::Selected(xmlXPathContext* searchContext, xmlNode* start, const std::string& path)
    : m_result(Evaluated(searchContext, start, path)) {}

int Selected::Count() const {
  return m_result && m_result->nodesetval ? m_result->nodesetval->nodeNr : 0;
}

xmlNode* Selected::Node(int index) const {
  xmlNode* const node = m_result->nodesetval->nodeTab[index];
  return node->type == XML_NAMESPACE_DECL ? nullptr : node;
}

std::string Selected::FirstText() const { return Count() > 0 ? TextOf(Node(0)) : std::string(); }

std::vector<std::string> Selected::Texts() const {
  std::vector<std::string> texts;
  for (int index = 0; index < Count(); ++index) {
    const std::string text = TextOf(Node(index));
    if (!text.empty()) texts.push_back(text);
  }
  return texts;
}

std::vector<xmlNode*> Selected::Nodes() const {
  std::vector<xmlNode*> nodes;
  for (int index = 0; index < Count(); ++index) {
    if (xmlNode* const node = Node(index)) nodes.push_back(node);
  }
  return nodes;
}

bool LiesWithin(const xmlNode* node, const std::vector<xmlNode*>& nodes) {
  while (node && std::find(nodes.begin(), nodes.end(), node) == nodes.end()) node = node->parent;
  return node != nullptr;
}

void FreeAll(const std::vector<xmlNode*>& nodes) {
  std::vector<xmlNode*> outermost;
  for (xmlNode* const node : nodes) {
    if (!LiesWithin(node->parent, nodes)) outermost.push_back(node);
  }
  for (xmlNode* const node : outermost) {
    xmlUnlinkNode(node);
    xmlFreeNode(node);
  }
}

}  // namespace fuzz
