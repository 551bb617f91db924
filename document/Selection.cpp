#include "document/Selection.h"

#include <algorithm>

#include "document/NodeRemoval.h"
#include "document/XmlText.h"

namespace analytics {
namespace {

XmlPtr<xmlXPathObject> Evaluate(xmlXPathContextPtr searchContext, DocumentNode* context,
                                const std::string& path) {
  if (!searchContext) return nullptr;  // first: with the document closed, `context` may dangle
  searchContext->node = ContextNode(searchContext->doc, context);
  return XmlPtr<xmlXPathObject>(xmlXPathEvalExpression(XmlText(path), searchContext));
}

int NodeCount(const xmlXPathObject* result) {
  return result ? xmlXPathNodeSetGetLength(result->nodesetval) : 0;
}

}  // namespace

xmlNodePtr ContextNode(xmlDocPtr document, DocumentNode* context) {
  return context ? static_cast<xmlNodePtr>(context->Handle()) : xmlDocGetRootElement(document);
}

Selection::Selection(xmlXPathContextPtr searchContext, DocumentNode* context,
                     const std::string& path)
    : m_searchContext(searchContext),
      m_result(Evaluate(searchContext, context, path)),
      m_count(NodeCount(m_result.get())) {}

xmlNodePtr Selection::Node(int index) const {
  const xmlNodePtr node = m_result->nodesetval->nodeTab[index];
  return node->type == XML_NAMESPACE_DECL ? nullptr : node;
}

std::string Selection::Text(int index) const {
  const xmlNodePtr node = Node(index);
  return node ? NodeText(m_searchContext->doc, node) : std::string();
}

std::string Selection::FirstText() const { return m_count > 0 ? Text(0) : std::string(); }

int Selection::Delete() {
  // All are detached before any is freed: then none lies within another, so none is freed twice,
  // in whatever order libxml2 puts namespace nodes among them.
  for (int index = 0; index < m_count; ++index) xmlUnlinkNode(m_result->nodesetval->nodeTab[index]);
  int freed = 0;
  for (int index = m_count - 1; index >= 0; --index) {
    xmlNodePtr& node = m_result->nodesetval->nodeTab[index];
    if (!RemoveNode(node)) continue;
    node = nullptr;  // else freeing the result would look at it
    ++freed;
  }
  return freed;
}

}  // namespace analytics
